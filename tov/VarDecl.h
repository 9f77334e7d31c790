#pragma once

#include <string>
#include <vector>

#include "tov/Validator.h"

namespace TOV {

// Declaration of one variable of the application: name, instances, default
// value, validator and whether it is kept on disk. Setters chain:
//   CVarDecl("brightness").Default("5").Check(CValidator::Integer(0, 10)).Persistent()
class CVarDecl {
public:
    explicit CVarDecl(const std::string& name) : name_(name) {}

    // The instances; by default only the unit's own, "0".
    CVarDecl& Instances(const std::vector<std::string>& instances) {
        instances_ = instances;
        return *this;
    }
    CVarDecl& Default(const std::string& value) {
        default_ = value;
        return *this;
    }
    CVarDecl& Check(const CValidator& validator) {
        validator_ = validator;
        return *this;
    }
    CVarDecl& Persistent(bool on = true) {
        persistent_ = on;
        return *this;
    }

    const std::string& GetName() const { return name_; }
    const std::vector<std::string>& GetInstances() const { return instances_; }
    const std::string& GetDefault() const { return default_; }
    const CValidator& GetValidator() const { return validator_; }
    bool IsPersistent() const { return persistent_; }

private:
    std::string name_;
    std::vector<std::string> instances_{"0"};
    std::string default_;
    CValidator validator_;
    bool persistent_ = false;
};

}  // namespace TOV
