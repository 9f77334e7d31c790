# Install rules, exported CMake targets, the pkg-config file and the Debian
# package. Included once from the top-level CMakeLists.txt.
include(CMakePackageConfigHelpers)

# The libraries find each other beside themselves once installed.
set_target_properties(kttools tov fp PROPERTIES INSTALL_RPATH "$ORIGIN")

install(TARGETS kttools tov fp EXPORT fpTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# Headers keep their source paths so that #include "fp/link/FpAdapter.h" works
# the same in and out of the tree.
# internal/ folders hold helpers that users never include; they stay out.
foreach(dir kt tov fp)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/${dir} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
            FILES_MATCHING PATTERN "*.h"
            PATTERN "internal" EXCLUDE)
endforeach()

# --- the panel emulator's core, fp::sim (libfpsim.so and its public headers) ---
install(TARGETS fpsim EXPORT fpTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/sim DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h" PATTERN internal EXCLUDE)
# --- end of fp::sim ---

set(FP_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/fp)
install(EXPORT fpTargets NAMESPACE fp:: DESTINATION ${FP_CMAKE_DIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/fpConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/fpConfig.cmake
                              INSTALL_DESTINATION ${FP_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/fpConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/fpConfig.cmake ${PROJECT_BINARY_DIR}/fpConfigVersion.cmake
        DESTINATION ${FP_CMAKE_DIR})

# The prefix is taken relative to the .pc file so the same file serves a
# staging tree (cmake --install --prefix) and the Debian package.
file(RELATIVE_PATH FP_PC_UP /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" FP_PC_UP "${FP_PC_UP}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/fp.pc.in ${PROJECT_BINARY_DIR}/fp.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/fp.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# --- unit runtime (libfpunit, fp::unit): opt-in, installed beside libfp -----
install(TARGETS fpunit EXPORT fpTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/unit DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h" PATTERN internal EXCLUDE)
configure_file(${PROJECT_SOURCE_DIR}/cmake/fp-unit.pc.in ${PROJECT_BINARY_DIR}/fp-unit.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/fp-unit.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
# --- end of unit runtime ----------------------------------------------------

# --- screen test harness, fp::testing (libfptesting.so and its headers) ---
install(TARGETS fptesting EXPORT fpTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/testing DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h" PATTERN internal EXCLUDE)
# --- end of fp::testing ---

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME libfp-dev)
set(CPACK_PACKAGE_VENDOR "fp developers")
set(CPACK_PACKAGE_CONTACT "fp developers <fp@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
# Runtime libraries come from dpkg-shlibdeps; the headers of log4cpp and
# SQLite are needed by anyone linking through the exported targets.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "liblog4cpp5-dev, libsqlite3-dev, pkg-config")
set(CPACK_STRIP_FILES ON)
include(CPack)
