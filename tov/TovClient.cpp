#include "tov/TovClient.h"

#include <vector>

namespace TOV {

CTovClient::CTovClient(CDataStore& store, Delivery_e delivery)
    : store_(store), delivery_(delivery) {
    if (delivery_ == DELIVER_QUEUED)
        queue_ = std::make_unique<CEventDispatcher>(false);
}

CTovClient::~CTovClient() {
    std::set<std::tuple<std::string, std::string, IManagedEventSink*>> left;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        left.swap(registered_);
    }
    for (const auto& r : left) {
        CEventDispatcher* d = store_.Unsubscribe(std::get<0>(r), std::get<1>(r), std::get<2>(r));
        if (d)
            d->Forget(std::get<2>(r), std::get<0>(r), std::get<1>(r));
    }
}

CEventDispatcher* CTovClient::Dispatcher() {
    return queue_ ? queue_.get() : &store_.GetDispatcher();
}

CRet CTovClient::AttachThread() {
    std::lock_guard<std::mutex> lock(mutex_);
    if (!attached_.insert(std::this_thread::get_id()).second)
        return CRet::Fail("Thread already attached");
    return CRet::Ok();
}

CRet CTovClient::DetachThread() {
    std::lock_guard<std::mutex> lock(mutex_);
    if (attached_.erase(std::this_thread::get_id()) == 0)
        return CRet::Fail("Thread not attached");
    return CRet::Ok();
}

CRet CTovClient::SendOp(const std::string& user, const std::string& name, const COid& oid,
                        const std::string& data) const {
    return store_.Write(user, name, oid, data);
}

CRet CTovClient::SendTxn(const std::string& user, const CTxn& txn) const {
    return store_.Apply(user, txn);
}

CRet CTovClient::GetVal(const std::string& name, const std::string& instance) const {
    return store_.Read(name, COid(instance), true);
}

CRet CTovClient::GetVar(const std::string& /*user*/, const std::string& name, const COid& oid,
                        bool current) const {
    return store_.Read(name, oid, current);
}

CRet CTovClient::GetGroups(const std::string& /*user*/, const CParam& request, const COid& oid,
                           bool recursive) const {
    return store_.Groups(request, oid, recursive);
}

CRet CTovClient::GetVars(const std::string& /*user*/, const CParam& request) const {
    return store_.Query(request);
}

CRet CTovClient::GetVarsByValue(const std::string& /*user*/, const CParam& request,
                                const std::string& value) const {
    return store_.QueryByValue(request, value);
}

CRet CTovClient::AddManagedEventHandler(const std::string& name, IManagedEventSink* sink,
                                        const std::string& instance) {
    if (!sink)
        return CRet::Fail("No event sink given");
    {
        std::lock_guard<std::mutex> lock(mutex_);
        if (!registered_.insert({name, instance, sink}).second)
            return CRet::Fail("Sink " + sink->GetSinkName() + " already registered on " + name +
                              "/" + instance);
    }
    store_.Subscribe(name, instance, sink, Dispatcher());
    return CRet::Ok();
}

CRet CTovClient::RemoveManagedEventHandler(const std::string& name, IManagedEventSink* sink,
                                           const std::string& instance) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        if (registered_.erase({name, instance, sink}) == 0)
            return CRet::Fail("Sink not registered on " + name + "/" + instance);
    }
    CEventDispatcher* d = store_.Unsubscribe(name, instance, sink);
    if (d)
        d->Forget(sink, name, instance);
    return CRet::Ok();
}

size_t CTovClient::DeliverEvents() {
    return queue_ ? queue_->DeliverPending() : 0;
}

bool CTovClient::WaitEvents(unsigned int ms) {
    return queue_ ? queue_->WaitPending(ms) : false;
}

void CTovClient::WakeEventWaiters() {
    if (queue_)
        queue_->WakeWaiters();
}

}  // namespace TOV
