#pragma once

#include <string>

#include "kt/StreamSocket.h"

namespace KT {

/// A listening TCP or Unix-domain socket that hands out connected
/// CStreamSockets. Addresses: "tcp:HOST:PORT" (port 0 picks a free one) or
/// "unix:PATH".
/// Threads: the owning thread only. Owns: its descriptor (and the socket file of
/// a Unix address, removed on Close()).
class CListenSocket {
public:
    CListenSocket() = default;
    ~CListenSocket();
    CListenSocket(const CListenSocket&) = delete;
    CListenSocket& operator=(const CListenSocket&) = delete;

    /// Starts listening on address (see CLinkAddress); false on failure, see LastError().
    bool Listen(const std::string& address);
    /// Waits up to timeoutMs (-1: no limit) for a connection. False on timeout
    /// or error.
    bool Accept(CStreamSocket& out, int timeoutMs = -1);
    /// Stops listening.
    void Close();

    /// True while listening.
    bool IsOpen() const { return fd_ >= 0; }
    unsigned short GetPort() const { return port_; }  ///< TCP only
    /// The address a client passes to CStreamSocket::Open to reach this socket.
    std::string GetAddress() const { return address_; }
    /// Why the last Listen failed, e.g. "cannot listen on tcp:0.0.0.0:80:
    /// Permission denied". Not cleared on success.
    const std::string& LastError() const { return lastError_; }

private:
    bool ListenTcp(const std::string& host, unsigned short port);
    bool ListenUnix(const std::string& path);
    // Record why listening failed (with errno's text when given) and return false.
    bool Failed(const std::string& reason);
    bool Failed(const std::string& what, int error);

    std::string lastError_;
    int fd_ = -1;
    unsigned short port_ = 0;
    std::string unixPath_;
    std::string address_;
};

}  // namespace KT
