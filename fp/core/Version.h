#pragma once

namespace FP {

/// The library's version, "MAJOR.MINOR.PATCH", for about screens and logs.
const char* GetLibraryVersion();

}  // namespace FP
