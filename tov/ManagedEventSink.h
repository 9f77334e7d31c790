#pragma once

#include <string>

#include "tov/Oid.h"
#include "tov/Param.h"

namespace TOV {

/// Receives the change events of the variables it is registered on
/// (CTovClient::AddManagedEventHandler). Implemented by the application.
/// Threads: HandleEvent runs on the engine's delivery thread, or, for a
/// client in queued mode, on the thread that calls DeliverEvents. The
/// registration only borrows the sink, which must stay alive until it is
/// removed.
class IManagedEventSink {
public:
    /// sinkName labels the sink, for the application's own diagnostics.
    explicit IManagedEventSink(const std::string& sinkName = "<CNotSet>") : sinkName_(sinkName) {}
    virtual ~IManagedEventSink() = default;

    /// The label given at construction.
    const std::string& GetSinkName() const { return sinkName_; }

    /// One accepted change. name: the variable; oid: its instance; user: who
    /// wrote it; value: the new value; param: a tree with "old" and "new"
    /// values. The arguments are valid for the call only.
    virtual void HandleEvent(const std::string& name, const COid& oid, const std::string& user,
                             const std::string& value, const CParam& param) = 0;

private:
    std::string sinkName_;
};

}  // namespace TOV
