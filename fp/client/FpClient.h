#pragma once

#include <string>

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

// The panel's door to the data engine: reads and writes variables by name and
// instance as text under the panel's own user, passes the richer queries and
// event registration through, and holds a wake-up timer for the application.
class FpClient {
public:
    explicit FpClient(TOV::CTovClient* client);
    virtual ~FpClient();
    FpClient(const FpClient&) = delete;
    FpClient& operator=(const FpClient&) = delete;

    TOV::CTovClient* GetClientObject() const { return client_; }
    KT::CWakeUpTimer* GetWakeUpTimer() { return &timer_; }
    std::string GetUnitDbInstance() const;

    void Attach();
    void Detach();

    TOV::CRet SendOp(std::string const& user, std::string const& name, TOV::COid const& oid,
                     std::string const& data) const;
    TOV::CRet SendTxn(std::string const& name, TOV::CTxn const& txn);
    TOV::CRet GetVal(std::string const& name, std::string const& instance);
    TOV::CRet GetVars(std::string const& user, TOV::CParam const& request);
    TOV::CRet GetVarsByValue(std::string const& user, TOV::CParam const& request,
                             std::string const& value);
    TOV::CRet AddManagedEventHandler(std::string const& name, TOV::IManagedEventSink* sink,
                                     std::string const& instance);
    TOV::CRet RemoveManagedEventHandler(std::string const& name, TOV::IManagedEventSink* sink,
                                        std::string const& instance);

    bool ExistsInDb(std::string const& name, std::string const& instance);
    std::string GetData(std::string const& name, std::string const& instance);
    std::string GetData(char* name, char const* instance);
    TOV::CParam GetGroups(std::string const& name);
    // Fire and forget: true whenever the write was issued.
    bool SendData(std::string const& name, std::string const& instance, std::string const& value);
    bool SendDataWait(std::string const& name, std::string const& instance,
                      std::string const& value);
    // The engine's message: empty on success, the reason of a refusal.
    std::string SendDataWaitMsg(std::string const& name, std::string const& instance,
                                std::string const& value);

private:
    TOV::CTovClient* client_;
    KT::CWakeUpTimer timer_;
    log4cpp::Category& log_;
};

}  // namespace FP
