#include "fp/client/FpClient.h"

#include <cstdio>
#include <log4cpp/Category.hh>
#include <utility>

#include "fp/core/Names.h"
#include "kt/Thread.h"

namespace FP {

namespace {
// The unit's own instance of a variable.
const std::string kUnitInstance = "0";
}  // namespace

FpClient::FpClient(TOV::CTovClient* client)
    : client_(client),
      timer_(KT::CThread::GetPriority()),
      log_(log4cpp::Category::getInstance("fp.client")) {}

FpClient::~FpClient() = default;

std::string FpClient::GetUnitDbInstance() const {
    return kUnitInstance;
}

void FpClient::Attach() {
    static_cast<TOV::CDataEngine*>(client_)->AttachThread();
}

void FpClient::Detach() {
    static_cast<TOV::CDataEngine*>(client_)->DetachThread();
}

TOV::CRet FpClient::SendOp(std::string const& user, std::string const& name, TOV::COid const& oid,
                           std::string const& data) const {
    return client_->SendOp(user, name, oid, data);
}

TOV::CRet FpClient::SendTxn(std::string const& name, TOV::CTxn const& txn) {
    return client_->SendTxn(name, txn);
}

TOV::CRet FpClient::GetVal(std::string const& name, std::string const& instance) {
    return client_->GetVal(name, instance);
}

TOV::CRet FpClient::GetVars(std::string const& user, TOV::CParam const& request) {
    return client_->GetVars(user, request);
}

TOV::CRet FpClient::GetVarsByValue(std::string const& user, TOV::CParam const& request,
                                   std::string const& value) {
    return client_->GetVarsByValue(user, request, value);
}

TOV::CRet FpClient::AddManagedEventHandler(std::string const& name, TOV::IManagedEventSink* sink,
                                           std::string const& instance) {
    return client_->AddManagedEventHandler(name, sink, instance);
}

TOV::CRet FpClient::RemoveManagedEventHandler(std::string const& name, TOV::IManagedEventSink* sink,
                                              std::string const& instance) {
    return client_->RemoveManagedEventHandler(name, sink, instance);
}

bool FpClient::ExistsInDb(std::string const& name, std::string const& instance) {
    return client_->GetVal(name, instance).Success();
}

std::string FpClient::GetData(std::string const& name, std::string const& instance) {
    if (name.empty() || instance.empty()) {
        std::printf("GetData Error2: Name: %s, Instance: %s\n", name.c_str(), instance.c_str());
        std::fflush(stdout);
        return "";
    }
    return client_->GetVar(FPUSER, name, TOV::COid(instance), true).Val().ToString("");
}

std::string FpClient::GetData(char* name, char const* instance) {
    if (!name || !instance || name[0] == '\0' || instance[0] == '\0') {
        std::printf("GetData Error1: Name: %s, Instance: %s\n", name ? name : "",
                    instance ? instance : "");
        std::fflush(stdout);
        return "";
    }
    return client_->GetVar(FPUSER, name, TOV::COid(instance), true).Val().ToString("");
}

TOV::CParam FpClient::GetGroups(std::string const& name) {
    TOV::CParam request;
    request.Clear(0);
    TOV::CParam entry;
    entry.Clear(0);
    entry.Assign(name);
    request.AddParam(entry);
    return client_->GetGroups(FPUSER, request, TOV::COid(".0"), false).Val();
}

bool FpClient::SendData(std::string const& name, std::string const& instance,
                        std::string const& value) {
    if (name.empty() || instance.empty()) {
        log_.debug("SendData Error: %s, Instance: %s", name.c_str(), instance.c_str());
        return false;
    }
    (void)Write(__func__, name, instance, value);  // fire and forget; a refusal is reported
    return true;
}

bool FpClient::SendDataWait(std::string const& name, std::string const& instance,
                            std::string const& value) {
    return Write(__func__, name, instance, value).Success();
}

std::string FpClient::SendDataWaitMsg(std::string const& name, std::string const& instance,
                                      std::string const& value) {
    return Write(__func__, name, instance, value).Msg();
}

TOV::CRet FpClient::Write(const char* caller, std::string const& name, std::string const& instance,
                          std::string const& value) {
    TOV::CRet ret = client_->SendOp(FPUSER, name, TOV::COid(instance), value);
    if (!ret.Success()) {
        ++refusals_;
        log_.warn("%s() %s/%s refused \"%s\": %s", caller, name.c_str(), instance.c_str(),
                  value.c_str(), ret.Msg().c_str());
        if (refusalListener_)
            refusalListener_(Refusal_t{name, instance, value, ret.Msg()});
    }
    return ret;
}

}  // namespace FP
