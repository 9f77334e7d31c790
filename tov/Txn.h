#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tov/Request.h"

namespace TOV {

/// Writes applied together: either every one is accepted and stored, or
/// none. Later writes of the same variable and instance win.
/// Threads: a value type; one thread at a time per object. Owns: copies of
/// the writes added.
class CTxn {
public:
    /// Appends a copy of request.
    void Add(const CRequest& request) { requests_.push_back(request); }
    /// Appends the write of data to name at instance oid.
    void Add(const std::string& name, const COid& oid, const std::string& data) {
        requests_.emplace_back(name, oid, data);
    }
    /// Number of writes added.
    size_t Length() const { return requests_.size(); }
    /// True when no write was added.
    bool Empty() const { return requests_.empty(); }
    /// Drops every write, so the object can be reused.
    void Clear() { requests_.clear(); }
    /// The writes in the order they were added.
    const std::vector<CRequest>& GetRequests() const { return requests_; }

private:
    std::vector<CRequest> requests_;
};

}  // namespace TOV
