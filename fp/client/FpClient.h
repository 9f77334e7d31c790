#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <utility>

#include "kt/WakeUpTimer.h"
#include "tov/ManagedEventSink.h"
#include "tov/Oid.h"
#include "tov/Param.h"
#include "tov/Ret.h"
#include "tov/TovClient.h"
#include "tov/Txn.h"

namespace log4cpp {
class Category;
}

namespace FP {

/// The panel's door to the data engine: reads and writes variables by name and
/// instance as text under the panel's own user, passes the richer queries and
/// event registration through, and holds a wake-up timer for the application.
/// Threads: any thread the engine client allows; a thread that is not the
/// engine's must Attach() before its first call and Detach() after its last.
/// Borrows: the engine client, which must outlive this object. Owns: the timer.
class FpClient {
public:
    /// A write the engine turned down: what was written where, and the
    /// engine's reason.
    struct Refusal_t {
        std::string name;      ///< variable written
        std::string instance;  ///< its instance
        std::string value;     ///< the text that was refused
        std::string message;   ///< the engine's reason
    };
    /// Told about each refused write. Threads: runs on the thread that wrote.
    using RefusalListener = std::function<void(const Refusal_t&)>;

    /// Works through client.
    explicit FpClient(TOV::CTovClient* client);
    virtual ~FpClient();
    FpClient(const FpClient&) = delete;
    FpClient& operator=(const FpClient&) = delete;

    /// The engine client given at construction.
    TOV::CTovClient* GetClientObject() const { return client_; }
    /// The timer an application loop may wait on.
    KT::CWakeUpTimer* GetWakeUpTimer() { return &timer_; }
    /// The instance that names the unit's own variables.
    std::string GetUnitDbInstance() const;

    /// Registers the calling thread with the engine.
    void Attach();
    /// Unregisters the calling thread from the engine.
    void Detach();

    /// Writes data to variable name, instance oid, as user.
    TOV::CRet SendOp(std::string const& user, std::string const& name, TOV::COid const& oid,
                     std::string const& data) const;
    /// Commits txn as one atomic write; name labels it in logs.
    TOV::CRet SendTxn(std::string const& name, TOV::CTxn const& txn);
    /// Reads one variable.
    TOV::CRet GetVal(std::string const& name, std::string const& instance);
    /// Reads the variables named in request, as user.
    TOV::CRet GetVars(std::string const& user, TOV::CParam const& request);
    /// As GetVars, keeping only instances whose value is value.
    TOV::CRet GetVarsByValue(std::string const& user, TOV::CParam const& request,
                             std::string const& value);
    /// Has sink called on every accepted change of name, instance.
    TOV::CRet AddManagedEventHandler(std::string const& name, TOV::IManagedEventSink* sink,
                                     std::string const& instance);
    /// Stops the calls set up by AddManagedEventHandler.
    TOV::CRet RemoveManagedEventHandler(std::string const& name, TOV::IManagedEventSink* sink,
                                        std::string const& instance);

    /// True when the engine knows name, instance.
    bool ExistsInDb(std::string const& name, std::string const& instance);
    /// The value of name, instance as text; empty when unknown or not given.
    std::string GetData(std::string const& name, std::string const& instance);
    /// As above, for C strings.
    std::string GetData(char* name, char const* instance);
    /// The instances (groups) the engine holds for name.
    TOV::CParam GetGroups(std::string const& name);
    /// Fire and forget: true whenever the write was issued.
    bool SendData(std::string const& name, std::string const& instance, std::string const& value);
    /// Writes and waits: true when the engine accepted the value.
    bool SendDataWait(std::string const& name, std::string const& instance,
                      std::string const& value);
    /// The engine's message: empty on success, the reason of a refusal.
    std::string SendDataWaitMsg(std::string const& name, std::string const& instance,
                                std::string const& value);

    /// Replaces the listener told about refused SendData, SendDataWait and
    /// SendDataWaitMsg writes (an empty one tells nobody). Every refusal is
    /// also logged at warn level. Threads: set it before writes start.
    void SetRefusalListener(RefusalListener listener) { refusalListener_ = std::move(listener); }
    /// Refused writes so far; a screen compares it across a key press to
    /// know whether its rows must be read again.
    unsigned long GetRefusalCount() const { return refusals_.load(); }

private:
    // Writes under the panel's user and reports a refusal; caller is the
    // public operation's name, for the log line.
    TOV::CRet Write(const char* caller, std::string const& name, std::string const& instance,
                    std::string const& value);

    TOV::CTovClient* client_;
    KT::CWakeUpTimer timer_;
    log4cpp::Category& log_;
    RefusalListener refusalListener_;
    std::atomic<unsigned long> refusals_{0};  // writers bump, screens read
};

}  // namespace FP
