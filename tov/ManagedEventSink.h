#pragma once

#include <string>

#include "tov/Oid.h"
#include "tov/Param.h"

namespace TOV {

// Receives change events of the variables it is registered on.
class IManagedEventSink {
public:
    explicit IManagedEventSink(const std::string& sinkName = "<CNotSet>") : sinkName_(sinkName) {}
    virtual ~IManagedEventSink() = default;

    const std::string& GetSinkName() const { return sinkName_; }

    // name: the variable; oid: its instance; user: who wrote it; value: the
    // new value; param: a tree with "old" and "new" values.
    virtual void HandleEvent(const std::string& name, const COid& oid, const std::string& user,
                             const std::string& value, const CParam& param) = 0;

private:
    std::string sinkName_;
};

}  // namespace TOV
