#pragma once

#include <string>

#include "tov/Oid.h"

namespace TOV {

/// One write: a variable name, the instance and the new value as text.
/// Threads: a value type; one thread at a time per object.
class CRequest {
public:
    /// An empty write, to be assigned.
    CRequest() = default;
    /// The write of data to name at instance oid; all copied.
    CRequest(const std::string& name, const COid& oid, const std::string& data)
        : name_(name), oid_(oid), data_(data) {}

    /// The variable written.
    const std::string& GetName() const { return name_; }
    /// The instance written.
    const COid& GetOid() const { return oid_; }
    /// The new value.
    const std::string& GetData() const { return data_; }

private:
    std::string name_;
    COid oid_;
    std::string data_;
};

}  // namespace TOV
