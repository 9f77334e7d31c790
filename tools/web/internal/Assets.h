#pragma once

#include <cstddef>
#include <string>

namespace FPWEB {

// One file of the page, compiled in from tools/web/assets at build time.
struct Asset_t {
    const char* path;  // as requested, e.g. "/panel.js"
    const char* type;  // Content-Type
    const char* data;
    size_t size;
};

// The page's files. Generated: see tools/web/EmbedAssets.cmake.
class Assets {
public:
    // The file for a request path ("/" is the page itself); null if none.
    static const Asset_t* Find(const std::string& path);
};

}  // namespace FPWEB
