#pragma once

#include "kt/Functor.h"
#include "kt/Slice.h"

namespace FP {

/// The framed link to the panel controller, as the command layer sees it.
/// Threads: see the implementation (FpAdapter).
class IFpAdapter {
public:
    /// The bytes of a frame after its operation byte.
    using Payload = KT::CSlice<unsigned char>;
    /// Called with the payload of an unsolicited frame.
    using Handler = KT::CFunctor<void(Payload const&)>;

    virtual ~IFpAdapter() = default;
    /// Handler for unsolicited frames with this operation byte (replaces any).
    virtual void SetResponseHandler(unsigned char op, Handler const& handler) = 0;
    /// Sends one frame that expects no answer.
    virtual bool SendCommand(unsigned char op, Payload const& payload) = 0;
    /// Sends one frame and waits for the answer; an empty slice when none came.
    virtual Payload SendRequest(unsigned char op, Payload const& payload) = 0;
    /// As above, waiting at most timeoutMs.
    virtual Payload SendRequest(unsigned char op, Payload const& payload,
                                unsigned int timeoutMs) = 0;
};

}  // namespace FP
