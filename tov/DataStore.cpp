#include "tov/DataStore.h"

#include <algorithm>

#include "tov/internal/SqliteFile.h"

namespace TOV {

namespace {

CParam Leaf(const std::string& value) {
    CParam p;
    p.Assign(value);
    return p;
}

bool HasInstance(const CVarDecl& decl, const std::string& instance) {
    const auto& list = decl.GetInstances();
    return std::find(list.begin(), list.end(), instance) != list.end();
}

}  // namespace

CDataStore::CDataStore() : dispatcher_(true) {}

CDataStore::~CDataStore() = default;

CRet CDataStore::Open(const std::string& path) {
    std::lock_guard<std::mutex> lock(mutex_);
    if (file_)
        return CRet::Fail("Data file '" + file_->GetPath() + "' is already open");
    auto file = std::make_unique<CSqliteFile>();
    std::string err = file->Open(path);
    if (!err.empty())
        return CRet::Fail(err);
    file_ = std::move(file);
    for (auto& entry : vars_)
        LoadStored(entry.second);
    return CRet::Ok();
}

bool CDataStore::IsDurable() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return file_ != nullptr;
}

void CDataStore::LoadStored(Var_t& var) {
    if (!file_ || !var.decl.IsPersistent())
        return;
    for (const auto& row : file_->Load(var.decl.GetName())) {
        auto it = var.values.find(row.first);
        // Rows of instances no longer declared, or values the current
        // validator refuses, stay in the file but are not used.
        if (it != var.values.end() &&
            var.decl.GetValidator().Check(var.decl.GetName(), row.second).empty())
            it->second = row.second;
    }
}

CRet CDataStore::Declare(const CVarDecl& decl) {
    const std::string& name = decl.GetName();
    if (name.empty())
        return CRet::Fail("A variable needs a name");
    if (decl.GetInstances().empty())
        return CRet::Fail("Variable " + name + " has no instances");
    std::string msg = decl.GetValidator().Check(name, decl.GetDefault());
    if (!msg.empty())
        return CRet::Fail("Default refused: " + msg);
    std::lock_guard<std::mutex> lock(mutex_);
    if (vars_.count(name))
        return CRet::Fail("Variable " + name + " is already declared");
    Var_t var{decl, {}};
    for (const std::string& i : decl.GetInstances())
        var.values[i] = decl.GetDefault();
    LoadStored(var);
    vars_.emplace(name, std::move(var));
    return CRet::Ok();
}

const CDataStore::Var_t* CDataStore::Find(const std::string& name) const {
    auto it = vars_.find(name);
    return it == vars_.end() ? nullptr : &it->second;
}

CRet CDataStore::Write(const std::string& user, const std::string& name, const COid& oid,
                       const std::string& value) {
    std::lock_guard<std::mutex> lock(mutex_);
    return ApplyLocked(user, {CRequest(name, oid, value)});
}

CRet CDataStore::Apply(const std::string& user, const CTxn& txn) {
    std::lock_guard<std::mutex> lock(mutex_);
    return ApplyLocked(user, txn.GetRequests());
}

void CDataStore::RefuseNextWrite(const std::string& reason) {
    std::lock_guard<std::mutex> lock(mutex_);
    refuseNext_ = reason.empty() ? std::string("Refused") : reason;
}

CRet CDataStore::ApplyLocked(const std::string& user, const std::vector<CRequest>& requests) {
    if (!refuseNext_.empty()) {
        std::string reason;
        reason.swap(refuseNext_);
        return CRet::Fail(reason);
    }
    // Check everything first: a refusal must leave memory and file untouched.
    for (const CRequest& r : requests) {
        const Var_t* var = Find(r.GetName());
        if (!var)
            return CRet::Fail("Unknown variable " + r.GetName());
        if (!var->values.count(r.GetOid().Instance()))
            return CRet::Fail("Unknown instance '" + r.GetOid().ToString() + "' of " + r.GetName());
        std::string msg = var->decl.GetValidator().Check(r.GetName(), r.GetData());
        if (!msg.empty())
            return CRet::Fail(msg);
    }
    std::vector<CSqliteFile::Row_t> rows;
    for (const CRequest& r : requests)
        if (Find(r.GetName())->decl.IsPersistent())
            rows.push_back({r.GetName(), r.GetOid().Instance(), r.GetData()});
    if (file_) {
        std::string err = file_->Save(rows);
        if (!err.empty())
            return CRet::Fail(err);
    }
    for (const CRequest& r : requests) {
        std::string instance = r.GetOid().Instance();
        std::string& slot = vars_.find(r.GetName())->second.values[instance];
        std::string old = slot;
        slot = r.GetData();
        auto subs = subs_.find({r.GetName(), instance});
        if (subs == subs_.end())
            continue;
        CEventDispatcher::Event_t ev;
        ev.name = r.GetName();
        ev.oid = COid(instance);
        ev.user = user;
        ev.value = r.GetData();
        ev.param.AddParam("old", Leaf(old));
        ev.param.AddParam("new", Leaf(r.GetData()));
        for (const Sub_t& s : subs->second) {
            ev.sink = s.sink;
            s.dispatcher->Post(ev);
        }
    }
    return CRet::Ok();
}

CRet CDataStore::Read(const std::string& name, const COid& oid, bool current) const {
    std::lock_guard<std::mutex> lock(mutex_);
    const Var_t* var = Find(name);
    if (!var)
        return CRet::Fail("Unknown variable " + name);
    auto it = var->values.find(oid.Instance());
    if (it == var->values.end())
        return CRet::Fail("Unknown instance '" + oid.ToString() + "' of " + name);
    return CRet::Ok(Leaf(current ? it->second : var->decl.GetDefault()));
}

bool CDataStore::Resolve(const std::string& entry, std::string& name, std::string& instance) const {
    // Entries are name + instance, so a split with a declared instance wins,
    // longest name first: "port12" is port1/"2" when both port (instance "12")
    // and port1 (instance "2") exist. Only then is a bare name taken whole.
    for (size_t len = entry.size(); len > 0; --len) {
        const Var_t* var = Find(entry.substr(0, len));
        if (var && len < entry.size() && HasInstance(var->decl, entry.substr(len))) {
            name = entry.substr(0, len);
            instance = entry.substr(len);
            return true;
        }
    }
    if (!Find(entry))
        return false;
    name = entry;
    instance.clear();
    return true;
}

CRet CDataStore::Collect(const CParam& request, const std::string* value) const {
    std::lock_guard<std::mutex> lock(mutex_);
    CParam out;
    // A flag of its own: an empty entry fails too but leaves the list empty.
    bool failed = false;
    std::string unresolved;
    auto add = [&](const std::string& name, const std::string& instance, const std::string& v) {
        if (value && v != *value)
            return;
        out[name].AddParam(instance, Leaf(v));
    };
    for (size_t i = 0; i < request.Length(); ++i) {
        const std::string& entry = request[i].GetValue();
        std::string name, instance;
        if (!Resolve(entry, name, instance)) {
            unresolved += (failed ? ", " : "") + entry;
            failed = true;
            continue;
        }
        const Var_t* var = Find(name);
        if (instance.empty()) {
            for (const std::string& inst : var->decl.GetInstances())
                add(name, inst, var->values.at(inst));
        } else {
            add(name, instance, var->values.at(instance));
        }
    }
    if (failed)
        return CRet(false, "Unknown variables: " + unresolved, out);
    return CRet::Ok(out);
}

CRet CDataStore::Query(const CParam& request) const {
    return Collect(request, nullptr);
}

CRet CDataStore::QueryByValue(const CParam& request, const std::string& value) const {
    return Collect(request, &value);
}

CRet CDataStore::Groups(const CParam& request, const COid& oid, bool recursive) const {
    std::lock_guard<std::mutex> lock(mutex_);
    const std::string only = oid.ToString() == "*" ? "" : oid.Instance();
    CParam out;
    for (size_t i = 0; i < request.Length(); ++i) {
        const std::string prefix = request[i].GetValue() + ".";
        for (const auto& entry : vars_) {
            const std::string& name = entry.first;
            if (name.compare(0, prefix.size(), prefix) != 0 || name.size() == prefix.size())
                continue;
            if (!recursive && name.find('.', prefix.size()) != std::string::npos)
                continue;
            for (const auto& v : entry.second.values)
                if (only.empty() || v.first == only)
                    out[name].AddParam(v.first, Leaf(v.second));
        }
    }
    return CRet::Ok(out);
}

void CDataStore::Subscribe(const std::string& name, const std::string& instance,
                           IManagedEventSink* sink, CEventDispatcher* dispatcher) {
    std::lock_guard<std::mutex> lock(mutex_);
    subs_[{name, instance}].push_back({sink, dispatcher});
}

CEventDispatcher* CDataStore::Unsubscribe(const std::string& name, const std::string& instance,
                                          IManagedEventSink* sink) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = subs_.find({name, instance});
    if (it == subs_.end())
        return nullptr;
    auto& list = it->second;
    for (auto s = list.begin(); s != list.end(); ++s) {
        if (s->sink == sink) {
            CEventDispatcher* d = s->dispatcher;
            list.erase(s);
            if (list.empty())
                subs_.erase(it);
            return d;
        }
    }
    return nullptr;
}

}  // namespace TOV
