// Touches nothing but the fp library itself. Linked with --as-needed, the
// program records only libfp, so it loads only if libfp finds libtov and
// libkttools on its own once installed.
#include <cstdio>

#include "fp/Version.h"

int main() {
    std::printf("fp-only: fp %s\n", FP::GetLibraryVersion());
    return 0;
}
