#pragma once

#include "tov/Ret.h"

namespace TOV {

// Thread attachment: each thread that uses a client attaches once before its
// first call and detaches when it is done.
class CDataEngine {
public:
    virtual ~CDataEngine() = default;
    virtual CRet AttachThread() = 0;
    virtual CRet DetachThread() = 0;
};

}  // namespace TOV
