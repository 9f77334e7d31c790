#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tov/Request.h"

namespace TOV {

// Writes applied together: either every one is accepted and stored, or none.
// Later writes of the same variable and instance win.
class CTxn {
public:
    void Add(const CRequest& request) { requests_.push_back(request); }
    void Add(const std::string& name, const COid& oid, const std::string& data) {
        requests_.emplace_back(name, oid, data);
    }
    size_t Length() const { return requests_.size(); }
    bool Empty() const { return requests_.empty(); }
    void Clear() { requests_.clear(); }
    const std::vector<CRequest>& GetRequests() const { return requests_; }

private:
    std::vector<CRequest> requests_;
};

}  // namespace TOV
