#pragma once

#include <string>
#include <vector>

#include "tov/Validator.h"

namespace TOV {

/// The declaration of one variable of the application: name, instances,
/// default value, validator and whether it is kept on disk. Setters chain:
///     CVarDecl("brightness").Default("5").Check(CValidator::Integer(0, 10)).Persistent()
/// Threads: a value type; one thread at a time per object. Owns: copies of
/// everything it is given.
class CVarDecl {
public:
    /// A variable called name, with instance "0", an empty default, no
    /// check, kept in memory only.
    explicit CVarDecl(const std::string& name) : name_(name) {}

    /// Sets the instances; by default only the unit's own, "0".
    CVarDecl& Instances(const std::vector<std::string>& instances) {
        instances_ = instances;
        return *this;
    }
    /// Sets the value every instance starts with.
    CVarDecl& Default(const std::string& value) {
        default_ = value;
        return *this;
    }
    /// Sets the check every write (and the default) must pass.
    CVarDecl& Check(const CValidator& validator) {
        validator_ = validator;
        return *this;
    }
    /// Keeps the values in the store's file, when it has one.
    CVarDecl& Persistent(bool on = true) {
        persistent_ = on;
        return *this;
    }

    /// The variable's name.
    const std::string& GetName() const { return name_; }
    /// The instances declared.
    const std::vector<std::string>& GetInstances() const { return instances_; }
    /// The starting value.
    const std::string& GetDefault() const { return default_; }
    /// The check writes must pass.
    const CValidator& GetValidator() const { return validator_; }
    /// True when the values are kept on disk.
    bool IsPersistent() const { return persistent_; }

private:
    std::string name_;
    std::vector<std::string> instances_{"0"};
    std::string default_;
    CValidator validator_;
    bool persistent_ = false;
};

}  // namespace TOV
