#pragma once

#include "tov/Ret.h"

namespace TOV {

/// The thread attachment of a data-engine client: every thread that uses a
/// client attaches once before its first call and detaches when it is done.
/// Threads: each thread attaches and detaches itself.
class CDataEngine {
public:
    virtual ~CDataEngine() = default;
    /// Registers the calling thread; fails if it is already attached.
    virtual CRet AttachThread() = 0;
    /// Forgets the calling thread; fails if it was not attached.
    virtual CRet DetachThread() = 0;
};

}  // namespace TOV
