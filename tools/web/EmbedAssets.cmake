# Turns the page's files into a C++ source, so the programs carry their page
# and need nothing on disk at run time. Run as:
#   cmake -DOUT=<file.cpp> -DASSETS="<file>|<file>..." -P EmbedAssets.cmake
string(REPLACE "|" ";" ASSETS "${ASSETS}")
set(entries "")
set(arrays "")
set(index 0)
foreach(asset IN LISTS ASSETS)
    get_filename_component(name ${asset} NAME)
    get_filename_component(ext ${asset} EXT)
    if(ext STREQUAL ".html")
        set(type "text/html; charset=utf-8")
    elseif(ext STREQUAL ".css")
        set(type "text/css; charset=utf-8")
    elseif(ext STREQUAL ".js")
        set(type "text/javascript; charset=utf-8")
    else()
        set(type "application/octet-stream")
    endif()
    if(name STREQUAL "index.html")
        set(path "/")
    else()
        set(path "/${name}")
    endif()
    # Bytes as hex: no quoting or line-length rules to get wrong.
    file(READ ${asset} hex HEX)
    file(SIZE ${asset} size)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${hex}")
    string(APPEND arrays "const char kAsset${index}[] = {${bytes} 0};\n")
    string(APPEND entries "    {\"${path}\", \"${type}\", kAsset${index}, ${size}},\n")
    math(EXPR index "${index} + 1")
endforeach()
file(WRITE ${OUT}.tmp
"// Generated from tools/web/assets by EmbedAssets.cmake; do not edit.
#include \"tools/web/internal/Assets.h\"

namespace FPWEB {

namespace {

${arrays}
const Asset_t kAssets[] = {
${entries}};

}  // namespace

const Asset_t* Assets::Find(const std::string& path) {
    for (const Asset_t& a : kAssets)
        if (path == a.path)
            return &a;
    return nullptr;
}

}  // namespace FPWEB
")
# Only a real change touches the file, so an unchanged page does not rebuild.
execute_process(COMMAND ${CMAKE_COMMAND} -E copy_if_different ${OUT}.tmp ${OUT})
file(REMOVE ${OUT}.tmp)
