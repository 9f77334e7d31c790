#include "kt/ListenSocket.h"

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace KT {

CListenSocket::~CListenSocket() {
    Close();
}

bool CListenSocket::Listen(const std::string& address) {
    Close();
    auto colon = address.find(':');
    if (colon == std::string::npos)
        return false;
    std::string kind = address.substr(0, colon);
    std::string rest = address.substr(colon + 1);
    if (kind == "tcp") {
        auto last = rest.rfind(':');
        if (last == std::string::npos)
            return false;
        std::string host = rest.substr(0, last);
        char* end = nullptr;
        long port = std::strtol(rest.c_str() + last + 1, &end, 10);
        if (!end || *end || port < 0 || port > 65535)
            return false;
        addrinfo hints{};
        hints.ai_family = AF_UNSPEC;
        hints.ai_socktype = SOCK_STREAM;
        hints.ai_flags = AI_PASSIVE;
        addrinfo* res = nullptr;
        std::string service = std::to_string(port);
        if (::getaddrinfo(host.empty() ? nullptr : host.c_str(), service.c_str(), &hints, &res) !=
            0)
            return false;
        for (addrinfo* ai = res; ai; ai = ai->ai_next) {
            int fd = ::socket(ai->ai_family, ai->ai_socktype | SOCK_CLOEXEC, ai->ai_protocol);
            if (fd < 0)
                continue;
            int one = 1;
            ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
            if (::bind(fd, ai->ai_addr, ai->ai_addrlen) == 0 && ::listen(fd, 4) == 0) {
                fd_ = fd;
                break;
            }
            ::close(fd);
        }
        ::freeaddrinfo(res);
        if (fd_ < 0)
            return false;
        sockaddr_storage ss{};
        socklen_t len = sizeof ss;
        ::getsockname(fd_, reinterpret_cast<sockaddr*>(&ss), &len);
        port_ = ntohs(ss.ss_family == AF_INET6 ? reinterpret_cast<sockaddr_in6*>(&ss)->sin6_port
                                               : reinterpret_cast<sockaddr_in*>(&ss)->sin_port);
        address_ = "tcp:" + host + ":" + std::to_string(port_);
        return true;
    }
    if (kind == "unix") {
        sockaddr_un addr{};
        if (rest.empty() || rest.size() >= sizeof addr.sun_path)
            return false;
        addr.sun_family = AF_UNIX;
        std::memcpy(addr.sun_path, rest.c_str(), rest.size() + 1);
        ::unlink(rest.c_str());  // a stale socket file from an earlier run
        int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (fd < 0)
            return false;
        if (::bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 ||
            ::listen(fd, 4) != 0) {
            ::close(fd);
            return false;
        }
        fd_ = fd;
        unixPath_ = rest;
        address_ = address;
        return true;
    }
    return false;
}

bool CListenSocket::Accept(CStreamSocket& out, int timeoutMs) {
    if (fd_ < 0)
        return false;
    pollfd pfd{fd_, POLLIN, 0};
    int r;
    do {
        r = ::poll(&pfd, 1, timeoutMs);
    } while (r < 0 && errno == EINTR);
    if (r <= 0)
        return false;
    int fd = ::accept4(fd_, nullptr, nullptr, SOCK_CLOEXEC);
    if (fd < 0)
        return false;
    if (unixPath_.empty()) {
        int one = 1;
        ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
    }
    return out.Attach(fd);
}

void CListenSocket::Close() {
    if (fd_ >= 0)
        ::close(fd_);
    fd_ = -1;
    if (!unixPath_.empty())
        ::unlink(unixPath_.c_str());
    unixPath_.clear();
    port_ = 0;
}

}  // namespace KT
