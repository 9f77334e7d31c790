#pragma once

#include <atomic>
#include <mutex>
#include <string>

#include "kt/Slice.h"

namespace KT {

/// A blocking, connected byte stream: TCP, a Unix-domain socket, one end of a
/// socket pair, or a serial tty in raw mode.
///
/// Addresses for Open(): "tcp:HOST:PORT", "unix:PATH", "serial:DEVICE[@BAUD]".
/// Threads: Read from one thread at a time; Write from any; Shutdown from any to
/// wake a blocked Read. Open, Close and Attach from the owning thread only.
/// Owns: its descriptor.
class CStreamSocket {
public:
    CStreamSocket();
    /// Takes ownership of fd, a connected descriptor.
    explicit CStreamSocket(int fd);  // takes ownership of a connected descriptor
    ~CStreamSocket();
    CStreamSocket(const CStreamSocket&) = delete;
    CStreamSocket& operator=(const CStreamSocket&) = delete;

    /// Connects a and b to each other through a fresh socket pair.
    static bool CreatePair(CStreamSocket& a, CStreamSocket& b);

    /// Connects to address (see CLinkAddress); false on failure, see LastError().
    bool Open(const std::string& address);
    /// Connects to host:port over TCP with Nagle's delay off.
    bool ConnectTcp(const std::string& host, unsigned short port);
    /// Connects to the Unix-domain socket at path.
    bool ConnectUnix(const std::string& path);
    /// Opens a tty in raw mode (8N1, no flow control) at the given baud rate.
    bool OpenSerial(const std::string& device, unsigned int baud);
    /// Takes ownership of a connected descriptor, closing any held before.
    bool Attach(int fd);

    /// Waits for data, then reads whatever is there, up to buffer.Length()
    /// bytes. Returns the number read; 0 on end of
    /// stream, error, Shutdown(), or cancellation of the calling CThread.
    int Read(CSlice<unsigned char>& buffer);
    /// Writes the whole slice; false on error. Concurrent writers never
    /// interleave inside one slice.
    bool Write(const CSlice<unsigned char>& data);
    /// As above, for length bytes at data.
    bool Write(const void* data, size_t length);

    /// Wakes every blocked Read (which then returns 0) and refuses further I/O.
    /// The descriptor stays open until Close() or destruction.
    void Shutdown();
    /// Shutdown(), then closes the descriptor. Must not race with a Read.
    void Close();

    /// True while there is a descriptor and Shutdown() was not called.
    bool IsOpen() const { return fd_ >= 0 && !shutdown_.load(); }
    /// The descriptor, or -1.
    int GetFd() const { return fd_; }
    /// True when the descriptor is a socket (not a tty).
    bool IsSocket() const { return isSocket_; }

    /// Maps a baud rate to the terminal speed constant; false for rates the line
    /// cannot be set to.
    static bool ParseBaud(unsigned int baud, unsigned int& speedConstant);

    /// Why the last Open, Connect* or OpenSerial failed, e.g. "cannot connect
    /// to tcp:127.0.0.1:7070: Connection refused". Not cleared on success.
    const std::string& LastError() const { return lastError_; }

private:
    // Record why an open failed (with errno's text when given) and return false.
    bool Failed(const std::string& reason);
    bool Failed(const std::string& what, int error);

    std::string lastError_;
    int fd_ = -1;
    int wakeFd_ = -1;
    bool isSocket_ = false;
    std::atomic<bool> shutdown_{false};
    std::mutex writeMutex_;
};

}  // namespace KT
