#include "fp/core/Version.h"

namespace FP {

const char* GetLibraryVersion() {
    return FP_VERSION;
}

}  // namespace FP
