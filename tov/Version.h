#pragma once

namespace TOV {

// The data-engine library's version, "MAJOR.MINOR.PATCH".
const char* GetLibraryVersion();

}  // namespace TOV
