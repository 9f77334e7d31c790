#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace TOV {

/// A value, or a tree of children that are named (a map in insertion order)
/// or unnamed (a list). A parameter may carry both a value and children. The
/// type is a tag for the application; the engine builds type 0 everywhere.
/// Threads: a value type; one thread at a time per object, copies are
/// independent. Owns: copies of its children.
class CParam {
public:
    /// An empty parameter: no value, no children, type 0.
    CParam() = default;
    /// A leaf holding value.
    explicit CParam(const std::string& value, int type = 0);

    /// Drops value and children and sets the type.
    void Clear(int type = 0);
    /// The application's tag.
    int GetType() const { return type_; }

    /// Sets the value; children are kept.
    void Assign(const std::string& value);
    /// Sets the value from C text; children are kept.
    void Assign(const char* value);
    /// The value (empty when none was set).
    const std::string& GetValue() const { return value_; }

    /// Appends a copy of child, unnamed.
    void AddParam(const CParam& child);
    /// Adds a copy of child under key, or replaces the child already there.
    void AddParam(const std::string& key, const CParam& child);
    /// True when a child is named key.
    bool Has(const std::string& key) const;
    /// True when there is neither a value nor a child.
    bool Empty() const { return value_.empty() && children_.empty(); }

    /// Number of children.
    size_t Length() const { return children_.size(); }
    /// Key of child i; empty for an unnamed child or an index out of range.
    std::string GetKey(size_t i) const;

    /// Lookup by key: answers an empty parameter when the key is absent.
    const CParam& operator[](const std::string& key) const;
    /// Lookup by key: adds an empty child when the key is absent. The
    /// reference is valid until the next child is added.
    CParam& operator[](const std::string& key);
    /// Lookup by key given as C text; as the string form.
    const CParam& operator[](const char* key) const { return (*this)[std::string(key)]; }
    /// Lookup by key given as C text; as the string form.
    CParam& operator[](const char* key) { return (*this)[std::string(key)]; }
    /// Lookup by position: out of range answers an empty parameter.
    const CParam& operator[](size_t i) const;
    /// Lookup by position: out of range grows the list with unnamed children.
    CParam& operator[](size_t i);
    /// Lookup by position, for int indices; as the size_t form.
    const CParam& operator[](int i) const { return (*this)[static_cast<size_t>(i)]; }
    /// Lookup by position, for int indices; as the size_t form.
    CParam& operator[](int i) { return (*this)[static_cast<size_t>(i)]; }

    /// Text for logs and tests. A leaf renders as its bare value. A tree
    /// renders one child per line, "key: value" (or "- value" when unnamed),
    /// nested trees indented by two more spaces, each line starting with
    /// indent.
    std::string ToString(const std::string& indent) const;

    /// Equal when type, value, keys and children are all equal.
    bool operator==(const CParam& other) const;
    /// The negation of ==.
    bool operator!=(const CParam& other) const { return !(*this == other); }

private:
    int Find(const std::string& key) const;

    int type_ = 0;
    std::string value_;
    std::vector<std::string> keys_;
    std::vector<CParam> children_;
};

}  // namespace TOV
