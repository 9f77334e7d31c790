#pragma once

#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <tuple>

#include "tov/DataEngine.h"
#include "tov/DataStore.h"
#include "tov/EventDispatcher.h"
#include "tov/ManagedEventSink.h"
#include "tov/Oid.h"
#include "tov/Param.h"
#include "tov/Ret.h"
#include "tov/Txn.h"

namespace TOV {

/// A connection of the application to a data store. Events of the sinks it
/// registers arrive either on the engine's delivery thread or, in queued
/// mode, on whichever thread calls DeliverEvents (for single-threaded
/// applications).
/// Threads: every operation from any thread. Borrows: the store, which must
/// outlive the client, and the registered sinks, which must stay alive until
/// removed or until the client is destroyed.
class CTovClient : public CDataEngine {
public:
    /// Where the events of this client's sinks are delivered.
    enum Delivery_e { DELIVER_ON_ENGINE_THREAD, DELIVER_QUEUED };

    /// A client of store, delivering its events as delivery says.
    explicit CTovClient(CDataStore& store, Delivery_e delivery = DELIVER_ON_ENGINE_THREAD);
    /// Unregisters every sink still registered through this client.
    ~CTovClient() override;
    CTovClient(const CTovClient&) = delete;
    CTovClient& operator=(const CTovClient&) = delete;

    /// Attaches the calling thread; fails if it is already attached.
    CRet AttachThread() override;
    /// Detaches the calling thread; fails if it is not attached.
    CRet DetachThread() override;

    /// Writes data to name/oid as user.
    CRet SendOp(const std::string& user, const std::string& name, const COid& oid,
                const std::string& data) const;
    /// Applies all writes of txn as user, or none.
    CRet SendTxn(const std::string& user, const CTxn& txn) const;
    /// The value of name/instance.
    CRet GetVal(const std::string& name, const std::string& instance) const;
    /// One variable: current true reads its value, false its declared default.
    CRet GetVar(const std::string& user, const std::string& name, const COid& oid,
                bool current) const;
    /// The variables of the groups listed in request (see CDataStore::Groups).
    CRet GetGroups(const std::string& user, const CParam& request, const COid& oid,
                   bool recursive) const;
    /// A variable set ("name" + "instance" entries), keyed by name, instances
    /// as sub-keys.
    CRet GetVars(const std::string& user, const CParam& request) const;
    /// The same, keeping only the instances whose value equals value.
    CRet GetVarsByValue(const std::string& user, const CParam& request,
                        const std::string& value) const;

    /// Calls sink for every accepted change of name/instance. Registering the
    /// same sink twice for a variable is refused. Borrows the sink.
    CRet AddManagedEventHandler(const std::string& name, IManagedEventSink* sink,
                                const std::string& instance);
    /// Ends a registration; fails when it does not exist. Once it returns,
    /// the sink is not called again for that variable (unless it is the
    /// caller, removing itself from within its own HandleEvent).
    CRet RemoveManagedEventHandler(const std::string& name, IManagedEventSink* sink,
                                   const std::string& instance);

    /// Queued mode: calls the sinks of pending events on the calling thread
    /// and answers how many were called (always 0 in the other mode).
    size_t DeliverEvents();
    /// Queued mode: waits up to ms for an event; false on timeout and
    /// always in the other mode.
    bool WaitEvents(unsigned int ms);
    /// Queued mode: ends every WaitEvents in progress at once (it answers as
    /// for a timeout), so a waiting thread can be stopped without a short
    /// polling period.
    void WakeEventWaiters();

    /// The delivery mode chosen at construction.
    Delivery_e GetDelivery() const { return delivery_; }
    /// The store this client talks to.
    CDataStore& GetStore() const { return store_; }

private:
    CEventDispatcher* Dispatcher();

    CDataStore& store_;
    const Delivery_e delivery_;
    std::unique_ptr<CEventDispatcher> queue_;
    std::mutex mutex_;
    std::set<std::thread::id> attached_;
    std::set<std::tuple<std::string, std::string, IManagedEventSink*>> registered_;
};

}  // namespace TOV
