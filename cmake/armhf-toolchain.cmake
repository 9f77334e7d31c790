# Cross-compiles for 32-bit ARM (hard float) with Debian's arm-linux-gnueabihf
# toolchain. The libraries we link (log4cpp, SQLite, ncurses) come from a
# sysroot unpacked from Debian's armhf packages (scripts/armhf.sh makes it);
# C and C++ runtimes come with the cross compiler. Binaries run under qemu-arm.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)

# This file is read again for every try_compile, in a scratch directory: pass
# the sysroot along, and default to a place that does not depend on the build
# directory.
if(NOT FP_ARMHF_SYSROOT)
    set(FP_ARMHF_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../build/armhf-sysroot")
endif()
get_filename_component(FP_ARMHF_SYSROOT "${FP_ARMHF_SYSROOT}" ABSOLUTE)
set(FP_ARMHF_SYSROOT "${FP_ARMHF_SYSROOT}" CACHE PATH "Unpacked armhf packages")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES FP_ARMHF_SYSROOT)
set(FP_ARMHF_LIBDIR "${FP_ARMHF_SYSROOT}/usr/lib/arm-linux-gnueabihf")
# Some runtime libraries (ncurses, tinfo) live in /lib rather than /usr/lib.
set(FP_ARMHF_BASELIBDIR "${FP_ARMHF_SYSROOT}/lib/arm-linux-gnueabihf")

set(CMAKE_FIND_ROOT_PATH "${FP_ARMHF_SYSROOT}" /usr/arm-linux-gnueabihf)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)

# pkg-config must read the armhf .pc files and prefix their paths.
set(ENV{PKG_CONFIG_LIBDIR} "${FP_ARMHF_LIBDIR}/pkgconfig:${FP_ARMHF_SYSROOT}/usr/share/pkgconfig")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${FP_ARMHF_SYSROOT}")

# The unpacked libraries are not where the dynamic loader looks.
set(FP_ARMHF_LINK_FLAGS "-L${FP_ARMHF_BASELIBDIR} -Wl,-rpath-link,${FP_ARMHF_LIBDIR}")
string(APPEND FP_ARMHF_LINK_FLAGS " -Wl,-rpath-link,${FP_ARMHF_BASELIBDIR}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${FP_ARMHF_LINK_FLAGS}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${FP_ARMHF_LINK_FLAGS}")

set(CMAKE_CROSSCOMPILING_EMULATOR
    qemu-arm -L /usr/arm-linux-gnueabihf -E "LD_LIBRARY_PATH=${FP_ARMHF_LIBDIR}:${FP_ARMHF_BASELIBDIR}")
