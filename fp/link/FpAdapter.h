#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <utility>

#include "fp/link/IFpAdapter.h"
#include "kt/Mutex.h"
#include "kt/Semaphore.h"
#include "kt/Thread.h"

namespace KT {
class CStreamSocket;
}
namespace log4cpp {
class Category;
}

namespace FP {

/// The framed link to the panel controller over a stream socket. A read thread,
/// started by the constructor, cuts incoming bytes into frames, completes the
/// oldest pending request whose operation matches and hands every other frame
/// to the handler registered for its operation.
/// Threads: Send* and SetResponseHandler from any thread; handlers run on the
/// read thread ("TOV-FpAdapter"), never with a lock of the adapter held.
/// Owns: the read thread, started here and cancelled by the destructor, before
/// which whatever the handlers call must stay alive.
/// Borrows: the socket (must outlive this object).
class FpAdapter : public IFpAdapter {
public:
    /// Byte that opens a frame.
    static constexpr unsigned char kFrameStart = 0x09;
    /// Byte that marks the next one as escaped.
    static constexpr unsigned char kFrameEscape = 0x7D;
    /// Byte that closes a frame.
    static constexpr unsigned char kFrameEnd = 0x7E;
    /// An escaped byte is sent XORed with this.
    static constexpr unsigned char kEscapeXor = 0x20;
    /// Size of the buffers frames are built and collected in, both ways.
    static constexpr size_t kFrameBufferSize = 512;
    /// Room left for the escaped payload once start, op and end are in.
    static constexpr size_t kMaxEscapedPayload = kFrameBufferSize - 3;

    /// The socket is the application's; it must outlive the adapter.
    explicit FpAdapter(KT::CStreamSocket& socket);
    ~FpAdapter() override;
    FpAdapter(const FpAdapter&) = delete;
    FpAdapter& operator=(const FpAdapter&) = delete;

    void SetResponseHandler(unsigned char op, Handler const& handler) override;
    bool SendCommand(unsigned char op, Payload const& payload) override;
    Payload SendRequest(unsigned char op, Payload const& payload) override;
    Payload SendRequest(unsigned char op, Payload const& payload, unsigned int timeoutMs) override;

    /// Queues a pending request and writes its frame as one step, so the read
    /// thread cannot see the answer before the request is queued. False when the
    /// frame could not be written; the request is then not left queued.
    bool SendRequestCommand(unsigned char op, Payload const& payload);
    /// Takes the oldest pending request's answer (empty when none arrived).
    Payload ReceiveRequestResponse(unsigned char op);
    /// Dispatches one complete frame: operation byte followed by its payload.
    void ProcessResponse(Payload const& frame);
    /// The read thread's body: false once the socket failed.
    bool ReadThreadLoop();
    /// Feeds bytes of one socket read to the frame parser, which keeps its state
    /// between calls. True when no frame is open afterwards. Logged indices of
    /// stray bytes are positions within this chunk.
    bool ReceiveBytes(const unsigned char* data, size_t length);

    /// True for the bytes that must be escaped inside a frame.
    static bool IsFrameByte(unsigned char byte);

private:
    enum ParseState_e { PARSE_HUNTING, PARSE_IN_FRAME };

    void StartFrame();
    void DeliverFrame();

    log4cpp::Category* log_;
    KT::CStreamSocket& socket_;
    KT::CThread thread_;
    std::map<unsigned char, Handler> handlers_;
    // Handlers may be installed while frames flow (a subscription made at run
    // time); the read thread copies the handler out under this lock.
    KT::CMutex handlersMutex_;
    std::deque<std::pair<unsigned char, Payload>> pending_;
    // Answers arrive in request order, so the answered entries are always the
    // first ones of the queue; this counts them.
    size_t answered_ = 0;
    KT::CMutex requestMutex_;
    KT::CSemaphore responseSem_;

    // Parser state; touched only by whoever feeds ReceiveBytes (the read thread).
    ParseState_e state_ = PARSE_HUNTING;
    Payload frame_;
    size_t collected_ = 0;
    bool escapePending_ = false;
    bool overflow_ = false;
};

}  // namespace FP
