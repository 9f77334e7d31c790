#pragma once

#include <sys/socket.h>
#include <sys/un.h>

#include <cstring>
#include <string>

namespace KT {
namespace Internal {

// Sets addr to name the socket file at path. Answers why it cannot (a path
// longer than the address holds), or an empty text when addr is ready.
inline std::string UnixAddress(const std::string& path, sockaddr_un& addr) {
    addr = sockaddr_un{};
    if (path.size() >= sizeof addr.sun_path)
        return "socket path too long: '" + path + "'";
    addr.sun_family = AF_UNIX;
    std::memcpy(addr.sun_path, path.c_str(), path.size() + 1);
    return std::string();
}

}  // namespace Internal
}  // namespace KT
