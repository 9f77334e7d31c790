#include "tov/Param.h"

namespace TOV {

namespace {
const CParam& EmptyParam() {
    static const CParam empty;
    return empty;
}
}  // namespace

CParam::CParam(const std::string& value, int type) : type_(type), value_(value) {}

void CParam::Clear(int type) {
    type_ = type;
    value_.clear();
    keys_.clear();
    children_.clear();
}

void CParam::Assign(const std::string& value) {
    value_ = value;
}

void CParam::Assign(const char* value) {
    value_ = value ? value : "";
}

void CParam::AddParam(const CParam& child) {
    keys_.emplace_back();
    children_.push_back(child);
}

void CParam::AddParam(const std::string& key, const CParam& child) {
    int i = Find(key);
    if (i >= 0) {
        children_[i] = child;
        return;
    }
    keys_.push_back(key);
    children_.push_back(child);
}

bool CParam::Has(const std::string& key) const {
    return Find(key) >= 0;
}

std::string CParam::GetKey(size_t i) const {
    return i < keys_.size() ? keys_[i] : std::string();
}

int CParam::Find(const std::string& key) const {
    if (key.empty())
        return -1;  // unnamed children are reached by index only
    for (size_t i = 0; i < keys_.size(); ++i)
        if (keys_[i] == key)
            return static_cast<int>(i);
    return -1;
}

const CParam& CParam::operator[](const std::string& key) const {
    int i = Find(key);
    return i >= 0 ? children_[i] : EmptyParam();
}

CParam& CParam::operator[](const std::string& key) {
    int i = Find(key);
    if (i >= 0)
        return children_[i];
    keys_.push_back(key);
    children_.emplace_back();
    return children_.back();
}

const CParam& CParam::operator[](size_t i) const {
    return i < children_.size() ? children_[i] : EmptyParam();
}

CParam& CParam::operator[](size_t i) {
    while (children_.size() <= i)
        AddParam(CParam());
    return children_[i];
}

std::string CParam::ToString(const std::string& indent) const {
    if (children_.empty())
        return value_;
    std::string out;
    for (size_t i = 0; i < children_.size(); ++i) {
        const CParam& child = children_[i];
        if (!out.empty())
            out += '\n';
        out += indent + (keys_[i].empty() ? std::string("-") : keys_[i] + ":");
        if (!child.value_.empty())
            out += " " + child.value_;
        if (!child.children_.empty())
            out += "\n" + child.ToString(indent + "  ");
    }
    return out;
}

bool CParam::operator==(const CParam& other) const {
    return type_ == other.type_ && value_ == other.value_ && keys_ == other.keys_ &&
           children_ == other.children_;
}

}  // namespace TOV
