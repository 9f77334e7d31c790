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

#include "kt/LinkAddress.h"
#include "kt/internal/UnixAddress.h"

namespace KT {

CListenSocket::~CListenSocket() {
    Close();
}

bool CListenSocket::Listen(const std::string& address) {
    Close();
    const CLinkAddress parsed(address);
    if (!parsed.IsValid())
        return Failed("bad address '" + address + "': " + parsed.GetError());
    if (parsed.GetScheme() == CLinkAddress::SCHEME_TCP)
        return ListenTcp(parsed.GetHost(), parsed.GetPort());
    if (parsed.GetScheme() == CLinkAddress::SCHEME_UNIX)
        return ListenUnix(parsed.GetPath());
    return Failed("bad address '" + address + "': only tcp: and unix: can listen");
}

bool CListenSocket::ListenTcp(const std::string& host, unsigned short port) {
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_PASSIVE;
    addrinfo* res = nullptr;
    std::string service = std::to_string(port);
    const int found =
        ::getaddrinfo(host.empty() ? nullptr : host.c_str(), service.c_str(), &hints, &res);
    if (found != 0)
        return Failed("cannot resolve '" + host + "': " + ::gai_strerror(found));
    int error = 0;
    for (addrinfo* ai = res; ai; ai = ai->ai_next) {
        int fd = ::socket(ai->ai_family, ai->ai_socktype | SOCK_CLOEXEC, ai->ai_protocol);
        if (fd < 0) {
            error = errno;
            continue;
        }
        int one = 1;
        ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
        if (::bind(fd, ai->ai_addr, ai->ai_addrlen) == 0 && ::listen(fd, 4) == 0) {
            fd_ = fd;
            break;
        }
        error = errno;
        ::close(fd);
    }
    ::freeaddrinfo(res);
    if (fd_ < 0)
        return Failed("cannot listen on " + CLinkAddress::Tcp(host, port), error);
    sockaddr_storage ss{};
    socklen_t len = sizeof ss;
    ::getsockname(fd_, reinterpret_cast<sockaddr*>(&ss), &len);
    port_ = ntohs(ss.ss_family == AF_INET6 ? reinterpret_cast<sockaddr_in6*>(&ss)->sin6_port
                                           : reinterpret_cast<sockaddr_in*>(&ss)->sin_port);
    address_ = CLinkAddress::Tcp(host, port_);
    return true;
}

bool CListenSocket::ListenUnix(const std::string& path) {
    sockaddr_un addr;
    const std::string bad = Internal::UnixAddress(path, addr);
    if (!bad.empty())
        return Failed(bad);
    ::unlink(path.c_str());  // a stale socket file from an earlier run
    int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return Failed("cannot create a socket", errno);
    if (::bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 || ::listen(fd, 4) != 0) {
        const int error = errno;
        ::close(fd);
        return Failed("cannot listen on unix:" + path, error);
    }
    fd_ = fd;
    unixPath_ = path;
    address_ = "unix:" + path;
    return true;
}

bool CListenSocket::Failed(const std::string& reason) {
    lastError_ = reason;
    return false;
}

bool CListenSocket::Failed(const std::string& what, int error) {
    return Failed(what + ": " + std::strerror(error));
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
