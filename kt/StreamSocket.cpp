#include "kt/StreamSocket.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "kt/LinkAddress.h"
#include "kt/Thread.h"
#include "kt/internal/UnixAddress.h"

namespace KT {

CStreamSocket::CStreamSocket() {
    wakeFd_ = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
}

CStreamSocket::CStreamSocket(int fd) : CStreamSocket() {
    Attach(fd);
}

CStreamSocket::~CStreamSocket() {
    Close();
    if (wakeFd_ >= 0)
        ::close(wakeFd_);
}

bool CStreamSocket::Attach(int fd) {
    Close();
    if (fd < 0)
        return Failed("no descriptor to attach");
    struct stat st {};
    isSocket_ = ::fstat(fd, &st) == 0 && S_ISSOCK(st.st_mode);
    fd_ = fd;
    if (wakeFd_ >= 0) {
        uint64_t drain;
        while (::read(wakeFd_, &drain, sizeof drain) > 0) {
        }
    }
    shutdown_ = false;
    return true;
}

bool CStreamSocket::CreatePair(CStreamSocket& a, CStreamSocket& b) {
    int fds[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, fds) != 0)
        return false;
    a.Attach(fds[0]);
    b.Attach(fds[1]);
    return true;
}

bool CStreamSocket::Open(const std::string& address) {
    const CLinkAddress parsed(address);
    if (!parsed.IsValid())
        return Failed("bad address '" + address + "': " + parsed.GetError());
    switch (parsed.GetScheme()) {
        case CLinkAddress::SCHEME_TCP:
            if (parsed.GetPort() == 0)
                return Failed("bad address '" + address + "': port 0 cannot be connected to");
            return ConnectTcp(parsed.GetHost(), parsed.GetPort());
        case CLinkAddress::SCHEME_UNIX:
            return ConnectUnix(parsed.GetPath());
        case CLinkAddress::SCHEME_SERIAL:
            return OpenSerial(parsed.GetPath(), parsed.GetBaud());
        case CLinkAddress::SCHEME_NONE:
            break;
    }
    return Failed("bad address '" + address + "'");
}

bool CStreamSocket::Failed(const std::string& reason) {
    lastError_ = reason;
    return false;
}

bool CStreamSocket::Failed(const std::string& what, int error) {
    return Failed(what + ": " + std::strerror(error));
}

bool CStreamSocket::ConnectTcp(const std::string& host, unsigned short port) {
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* res = nullptr;
    std::string service = std::to_string(port);
    const std::string where = CLinkAddress::Tcp(host, port);
    const int found = ::getaddrinfo(host.c_str(), service.c_str(), &hints, &res);
    if (found != 0)
        return Failed("cannot resolve '" + host + "': " + ::gai_strerror(found));
    int fd = -1;
    int error = 0;
    for (addrinfo* ai = res; ai; ai = ai->ai_next) {
        fd = ::socket(ai->ai_family, ai->ai_socktype | SOCK_CLOEXEC, ai->ai_protocol);
        if (fd < 0) {
            error = errno;
            continue;
        }
        if (::connect(fd, ai->ai_addr, ai->ai_addrlen) == 0)
            break;
        error = errno;
        ::close(fd);
        fd = -1;
    }
    ::freeaddrinfo(res);
    if (fd < 0)
        return Failed("cannot connect to " + where, error);
    int one = 1;
    ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);  // frames are small
    return Attach(fd);
}

bool CStreamSocket::ConnectUnix(const std::string& path) {
    sockaddr_un addr;
    const std::string bad = Internal::UnixAddress(path, addr);
    if (!bad.empty())
        return Failed(bad);
    int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return Failed("cannot create a socket", errno);
    if (::connect(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0) {
        const int error = errno;
        ::close(fd);
        return Failed("cannot connect to unix:" + path, error);
    }
    return Attach(fd);
}

bool CStreamSocket::ParseBaud(unsigned int baud, unsigned int& speed) {
    switch (baud) {
#define KT_BAUD(n)    \
    case n:           \
        speed = B##n; \
        return true;
        KT_BAUD(1200)
        KT_BAUD(2400)
        KT_BAUD(4800)
        KT_BAUD(9600)
        KT_BAUD(19200)
        KT_BAUD(38400)
        KT_BAUD(57600)
        KT_BAUD(115200)
        KT_BAUD(230400)
        KT_BAUD(460800)
        KT_BAUD(921600)
#undef KT_BAUD
        default:
            return false;
    }
}

bool CStreamSocket::OpenSerial(const std::string& device, unsigned int baud) {
    unsigned int speed = 0;
    if (!ParseBaud(baud, speed))
        return Failed("unsupported baud rate '" + std::to_string(baud) + "'");
    int fd = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (fd < 0)
        return Failed("cannot open " + device, errno);
    termios tio{};
    if (::tcgetattr(fd, &tio) != 0) {
        const int error = errno;
        ::close(fd);
        return Failed(device + " is not a serial line", error);
    }
    ::cfmakeraw(&tio);
    tio.c_cflag |= CLOCAL | CREAD;
    tio.c_cflag &= ~(CSTOPB | CRTSCTS);
    tio.c_cc[VMIN] = 1;
    tio.c_cc[VTIME] = 0;
    if (::cfsetispeed(&tio, speed) != 0 || ::cfsetospeed(&tio, speed) != 0 ||
        ::tcsetattr(fd, TCSANOW, &tio) != 0) {
        const int error = errno;
        ::close(fd);
        return Failed("cannot set up " + device, error);
    }
    return Attach(fd);
}

int CStreamSocket::Read(CSlice<unsigned char>& buffer) {
    if (fd_ < 0 || buffer.Empty() || shutdown_.load())
        return 0;
    pollfd fds[3];
    nfds_t n = 0;
    fds[n++] = {fd_, POLLIN, 0};
    if (wakeFd_ >= 0)
        fds[n++] = {wakeFd_, POLLIN, 0};
    int cancelFd = CThread::CurrentCancelFd();
    if (cancelFd >= 0)
        fds[n++] = {cancelFd, POLLIN, 0};
    for (;;) {
        int r = ::poll(fds, n, -1);
        if (r < 0) {
            if (errno == EINTR)
                continue;
            return 0;
        }
        for (nfds_t i = 1; i < n; ++i)
            if (fds[i].revents)
                return 0;  // shut down or cancelled
        if (shutdown_.load())
            return 0;
        if (fds[0].revents & POLLNVAL)
            return 0;
        if (!fds[0].revents)
            continue;
        ssize_t got = ::read(fd_, buffer.Data(), buffer.Length());
        if (got > 0)
            return static_cast<int>(got);
        if (got < 0 && (errno == EINTR || errno == EAGAIN))
            continue;
        return 0;  // end of stream or error
    }
}

bool CStreamSocket::Write(const CSlice<unsigned char>& data) {
    return Write(data.Data(), data.Length());
}

bool CStreamSocket::Write(const void* data, size_t length) {
    std::lock_guard<std::mutex> lock(writeMutex_);
    if (fd_ < 0 || shutdown_.load())
        return false;
    const unsigned char* p = static_cast<const unsigned char*>(data);
    while (length > 0) {
        ssize_t n = isSocket_ ? ::send(fd_, p, length, MSG_NOSIGNAL) : ::write(fd_, p, length);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            if (errno == EAGAIN) {
                pollfd pfd{fd_, POLLOUT, 0};
                ::poll(&pfd, 1, 100);
                continue;
            }
            return false;
        }
        p += n;
        length -= static_cast<size_t>(n);
    }
    return true;
}

void CStreamSocket::Shutdown() {
    if (shutdown_.exchange(true))
        return;
    if (fd_ >= 0 && isSocket_)
        ::shutdown(fd_, SHUT_RDWR);
    if (wakeFd_ >= 0) {
        uint64_t one = 1;
        ssize_t r = ::write(wakeFd_, &one, sizeof one);
        (void)r;
    }
}

void CStreamSocket::Close() {
    Shutdown();
    std::lock_guard<std::mutex> lock(writeMutex_);
    if (fd_ >= 0)
        ::close(fd_);
    fd_ = -1;
}

}  // namespace KT
