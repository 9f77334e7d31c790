#pragma once

#include <string>

#include "tov/Oid.h"

namespace TOV {

// One write: a variable name, the instance and the new value as text.
class CRequest {
public:
    CRequest() = default;
    CRequest(const std::string& name, const COid& oid, const std::string& data)
        : name_(name), oid_(oid), data_(data) {}

    const std::string& GetName() const { return name_; }
    const COid& GetOid() const { return oid_; }
    const std::string& GetData() const { return data_; }

private:
    std::string name_;
    COid oid_;
    std::string data_;
};

}  // namespace TOV
