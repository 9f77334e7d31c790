#pragma once

namespace TOV {

/// The data-engine library's version as "MAJOR.MINOR.PATCH".
/// Threads: any. The text is static; do not free it.
const char* GetLibraryVersion();

}  // namespace TOV
