#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace TOV {

// A value, or a tree of children that are named (a map in insertion order) or
// unnamed (a list). A parameter may carry both a value and children. The type
// is a tag for the application; the engine builds type 0 everywhere.
class CParam {
public:
    CParam() = default;
    explicit CParam(const std::string& value, int type = 0);

    // Drops value and children and sets the type.
    void Clear(int type = 0);
    int GetType() const { return type_; }

    // Sets the value; children are kept.
    void Assign(const std::string& value);
    void Assign(const char* value);
    const std::string& GetValue() const { return value_; }

    // Appends an unnamed child.
    void AddParam(const CParam& child);
    // Adds a named child, or replaces the child already under that key.
    void AddParam(const std::string& key, const CParam& child);
    bool Has(const std::string& key) const;
    bool Empty() const { return value_.empty() && children_.empty(); }

    // Number of children.
    size_t Length() const { return children_.size(); }
    // Key of child i; empty for an unnamed child or an index out of range.
    std::string GetKey(size_t i) const;

    // Lookup by key: the const form answers an empty parameter when the key is
    // absent, the other form adds it.
    const CParam& operator[](const std::string& key) const;
    CParam& operator[](const std::string& key);
    const CParam& operator[](const char* key) const { return (*this)[std::string(key)]; }
    CParam& operator[](const char* key) { return (*this)[std::string(key)]; }
    // Lookup by position: out of range answers an empty parameter (const) or
    // grows the list with unnamed children (non-const).
    const CParam& operator[](size_t i) const;
    CParam& operator[](size_t i);
    const CParam& operator[](int i) const { return (*this)[static_cast<size_t>(i)]; }
    CParam& operator[](int i) { return (*this)[static_cast<size_t>(i)]; }

    // A leaf renders as its bare value. A tree renders one child per line,
    // "key: value" (or "- value" when unnamed), nested trees indented by two
    // more spaces, each line starting with indent.
    std::string ToString(const std::string& indent) const;

    bool operator==(const CParam& other) const;
    bool operator!=(const CParam& other) const { return !(*this == other); }

private:
    int Find(const std::string& key) const;

    int type_ = 0;
    std::string value_;
    std::vector<std::string> keys_;
    std::vector<CParam> children_;
};

}  // namespace TOV
