#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "tov/EventDispatcher.h"
#include "tov/Param.h"
#include "tov/Ret.h"
#include "tov/Txn.h"
#include "tov/VarDecl.h"

namespace TOV {

class CSqliteFile;

/// The embedded data engine: the variables the application declares, their
/// values, their validators, durable storage of the persistent ones and the
/// change events. Clients (CTovClient) are its interface for the library.
///
/// Variable sets (GetVars) are CParam lists of entries "name" + "instance"
/// without separator. An entry resolves to the longest declared name that
/// begins it and whose remainder is one of that variable's instances;
/// failing that, an entry that is exactly a declared name stands for all its
/// instances. Results are keyed by name with instances as sub-keys.
///
/// Threads: every operation from any thread; events are delivered on the
/// store's delivery thread or a client's queue, never with the store's lock
/// held. Owns: the variables, the SQLite file and the delivery thread.
/// Borrows: subscribed sinks and dispatchers. Clients must be destroyed
/// before the store.
class CDataStore {
public:
    /// An empty store, in memory.
    CDataStore();
    /// Closes the file; pending events are dropped.
    ~CDataStore();
    CDataStore(const CDataStore&) = delete;
    CDataStore& operator=(const CDataStore&) = delete;

    /// Keeps persistent variables in the SQLite file at path (created when
    /// missing). A corrupt, unreadable or foreign file fails with the reason
    /// and is left untouched; the store then stays in memory. Values already
    /// stored replace the defaults of declared variables.
    CRet Open(const std::string& path);
    /// True once a file is open, so accepted writes of persistent variables
    /// are on disk when they return.
    bool IsDurable() const;

    /// Declares a variable, or fails if the name is taken, empty, has no
    /// instances or its default is refused by its validator. A stored value
    /// that the validator refuses is ignored in favour of the default.
    CRet Declare(const CVarDecl& decl);

    /// Writes one value as user; fails with the reason and changes nothing
    /// when the variable or instance is not declared or the validator
    /// refuses. An accepted change raises an event for its subscribers.
    CRet Write(const std::string& user, const std::string& name, const COid& oid,
               const std::string& value);
    /// Applies every write of txn as user, or none (and says why).
    CRet Apply(const std::string& user, const CTxn& txn);
    /// For tests: the next Write or Apply fails with reason and changes
    /// nothing, as if a validator had refused it; later ones are checked as usual.
    void RefuseNextWrite(const std::string& reason);

    /// The value of one instance (current, or the declared default).
    CRet Read(const std::string& name, const COid& oid, bool current = true) const;
    /// Values of a variable set; fails (naming the entries) when an entry
    /// does not resolve, but answers the entries that do.
    CRet Query(const CParam& request) const;
    /// The same, keeping only the instances whose value equals value.
    CRet QueryByValue(const CParam& request, const std::string& value) const;
    /// Groups are dotted name prefixes: for every entry of request, the
    /// variables named "entry.<rest>" (with recursive false, rest has no
    /// further dot), keyed by name with instances as sub-keys. An oid other
    /// than "" or "*" keeps only that instance (".0" is instance "0").
    CRet Groups(const CParam& request, const COid& oid, bool recursive) const;

    /// Events of name/instance are posted to dispatcher for sink. Borrows
    /// both; they must outlive the subscription.
    void Subscribe(const std::string& name, const std::string& instance, IManagedEventSink* sink,
                   CEventDispatcher* dispatcher);
    /// Ends a subscription; answers the dispatcher it used, or null if there
    /// was none. Events already queued are not withdrawn here.
    CEventDispatcher* Unsubscribe(const std::string& name, const std::string& instance,
                                  IManagedEventSink* sink);

    /// The dispatcher behind the engine's own delivery thread; the store
    /// keeps ownership.
    CEventDispatcher& GetDispatcher() { return dispatcher_; }

private:
    struct Var_t {
        CVarDecl decl;
        std::map<std::string, std::string> values;
    };
    struct Sub_t {
        IManagedEventSink* sink;
        CEventDispatcher* dispatcher;
    };

    CRet ApplyLocked(const std::string& user, const std::vector<CRequest>& requests);
    void LoadStored(Var_t& var);
    const Var_t* Find(const std::string& name) const;
    bool Resolve(const std::string& entry, std::string& name, std::string& instance) const;
    CRet Collect(const CParam& request, const std::string* value) const;

    mutable std::mutex mutex_;
    std::map<std::string, Var_t> vars_;
    std::string refuseNext_;  // guarded by mutex_; empty: nothing armed
    std::unique_ptr<CSqliteFile> file_;
    std::map<std::pair<std::string, std::string>, std::vector<Sub_t>> subs_;
    CEventDispatcher dispatcher_;
};

}  // namespace TOV
