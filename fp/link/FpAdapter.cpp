#include "fp/link/FpAdapter.h"

#include <log4cpp/Category.hh>
#include <log4cpp/CategoryStream.hh>

#include "kt/StreamSocket.h"

namespace FP {

FpAdapter::FpAdapter(KT::CStreamSocket& socket)
    : log_(&log4cpp::Category::getInstance("fpcontrol")),
      socket_(socket),
      thread_("TOV-FpAdapter", KT::CThread::GetPriority(),
              KT::CThread::Body(this, &FpAdapter::ReadThreadLoop)),
      requestMutex_(),
      responseSem_(0) {
    thread_.Run();
}

FpAdapter::~FpAdapter() {
    // The reader must be gone before the state it works on goes away.
    thread_.Cancel();
}

bool FpAdapter::IsFrameByte(unsigned char byte) {
    return byte == kFrameStart || byte == kFrameEscape || byte == kFrameEnd;
}

void FpAdapter::SetResponseHandler(unsigned char op, Handler const& handler) {
    KT::CMutexLock lock(handlersMutex_);
    handlers_[op] = handler;
}

bool FpAdapter::SendCommand(unsigned char op, Payload const& payload) {
    unsigned char frame[kFrameBufferSize];
    size_t n = 0;
    frame[n++] = kFrameStart;
    frame[n++] = op;
    for (size_t i = 0; i < payload.Length(); ++i) {
        unsigned char b = payload[i];
        size_t need = IsFrameByte(b) ? 2 : 1;
        if (n - 2 + need > kMaxEscapedPayload) {
            log_->error("%s() Payload of %zu bytes for 0x%02x does not fit in a frame; not sent",
                        "SendCommand", payload.Length(), op);
            return false;
        }
        if (need == 2) {
            frame[n++] = kFrameEscape;
            frame[n++] = static_cast<unsigned char>(b ^ kEscapeXor);
        } else {
            frame[n++] = b;
        }
    }
    frame[n++] = kFrameEnd;
    return socket_.Write(frame, n);
}

bool FpAdapter::SendRequestCommand(unsigned char op, Payload const& payload) {
    KT::CMutexLock lock(requestMutex_);
    pending_.emplace_back(op, Payload());
    if (SendCommand(op, payload))
        return true;
    // Nothing went out, so no answer can come: keep the queue aligned with
    // what the controller has actually been asked. The mutex was held
    // throughout, so the back entry is still ours.
    pending_.pop_back();
    return false;
}

IFpAdapter::Payload FpAdapter::SendRequest(unsigned char op, Payload const& payload) {
    if (!SendRequestCommand(op, payload))
        return Payload();
    if (!responseSem_.Wait())
        return Payload();
    return ReceiveRequestResponse(op);
}

IFpAdapter::Payload FpAdapter::SendRequest(unsigned char op, Payload const& payload,
                                           unsigned int timeoutMs) {
    if (!SendRequestCommand(op, payload))
        return Payload();
    if (!responseSem_.Wait(timeoutMs))
        return Payload();
    return ReceiveRequestResponse(op);
}

IFpAdapter::Payload FpAdapter::ReceiveRequestResponse(unsigned char op) {
    KT::CMutexLock lock(requestMutex_);
    if (pending_.empty()) {
        log_->error("%s() Request queue empty waiting for 0x%02x", "ReceiveRequestResponse", op);
        return Payload();
    }
    std::pair<unsigned char, Payload> front = pending_.front();
    if (front.first != op)
        log_->warn("%s() Expected response operation 0x%02x. Actual=0x%02x",
                   "ReceiveRequestResponse", op, front.first);
    pending_.pop_front();
    if (answered_ > 0)
        --answered_;
    return front.second;
}

void FpAdapter::ProcessResponse(Payload const& frame) {
    if (frame.Empty())
        return;
    unsigned char op = frame[0];
    Payload payload = frame.SubSlice(1, frame.Length() - 1);
    bool matched = false;
    {
        KT::CMutexLock lock(requestMutex_);
        // The oldest request still without an answer is the one this can
        // answer. Two answers arriving before the first waiter has run must not
        // land in the same entry, or one of them would be lost.
        if (answered_ < pending_.size() && pending_[answered_].first == op) {
            pending_[answered_].second = payload;
            ++answered_;
            matched = true;
        }
    }
    if (matched) {
        responseSem_.Signal();
        return;
    }
    Handler handler;
    {
        KT::CMutexLock lock(handlersMutex_);
        auto it = handlers_.find(op);
        if (it == handlers_.end())
            return;
        handler = it->second;
    }
    handler(payload);
}

bool FpAdapter::ReadThreadLoop() {
    Payload buffer(kFrameBufferSize);
    for (;;) {
        int n = socket_.Read(buffer);
        if (n <= 0) {
            // A read cut short by our own destructor is no failure worth a line.
            if (!thread_.IsCancelRequested())
                log_->error("Read failed. Pausing thread.");
            return false;
        }
        // A chunk that leaves a frame open is followed by another read right
        // away; the buffer is free again, the parser copied what it needs.
        if (ReceiveBytes(buffer.Data(), static_cast<size_t>(n)))
            return true;
    }
}

void FpAdapter::StartFrame() {
    frame_ = Payload(kFrameBufferSize);
    collected_ = 0;
    escapePending_ = false;
    overflow_ = false;
    state_ = PARSE_IN_FRAME;
}

void FpAdapter::DeliverFrame() {
    if (overflow_) {
        log_->error("%s() Frame longer than %zu bytes dropped", "ReceiveBytes", kFrameBufferSize);
    } else if (collected_ == 0) {
        log_->debug("%s() Empty frame dropped", "ReceiveBytes");
    } else {
        // The handler may keep the slice: the next frame gets a buffer of its own.
        Payload frame = frame_.SubSlice(0, collected_);
        frame_ = Payload();
        ProcessResponse(frame);
    }
    collected_ = 0;
    escapePending_ = false;
    overflow_ = false;
}

bool FpAdapter::ReceiveBytes(const unsigned char* data, size_t length) {
    for (size_t i = 0; i < length; ++i) {
        unsigned char b = data[i];
        if (state_ == PARSE_HUNTING) {
            if (b == kFrameStart)
                StartFrame();
            else
                log_->errorStream() << "Expected Frame Start at " << i;
            continue;
        }
        if (escapePending_) {
            escapePending_ = false;
            b = static_cast<unsigned char>(b ^ kEscapeXor);
        } else if (b == kFrameEscape) {
            escapePending_ = true;
            continue;
        } else if (b == kFrameEnd) {
            DeliverFrame();
            state_ = PARSE_HUNTING;
            continue;
        } else if (b == kFrameStart) {
            // A start inside a frame cuts the open one short and begins anew.
            DeliverFrame();
            StartFrame();
            continue;
        }
        if (overflow_)
            continue;
        if (collected_ >= kFrameBufferSize) {
            // Keep swallowing up to the next frame byte, so one runaway frame
            // costs one line rather than one per byte.
            overflow_ = true;
            continue;
        }
        frame_.Set(collected_++, b);
    }
    return state_ == PARSE_HUNTING;
}

}  // namespace FP
