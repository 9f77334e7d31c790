# Installed programs and libraries find the project's own shared libraries
# relative to where they are, so a prefix works wherever it is unpacked and
# needs no LD_LIBRARY_PATH. Build-tree binaries keep their absolute run paths.
# Included before any target is defined, since targets copy these at creation.
if(NOT DEFINED CMAKE_INSTALL_LIBDIR)
    include(GNUInstallDirs)
endif()

# From bin/ (or wherever programs go) up to the library directory.
file(RELATIVE_PATH FP_BIN_TO_LIB /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
set(CMAKE_INSTALL_RPATH "$ORIGIN/${FP_BIN_TO_LIB}")
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH OFF)

# Libraries sit next to each other and get "$ORIGIN" in Packaging.cmake.
