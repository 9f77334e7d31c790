#include "tov/Version.h"

namespace TOV {

const char* GetLibraryVersion() {
    return FP_VERSION;
}

}  // namespace TOV
