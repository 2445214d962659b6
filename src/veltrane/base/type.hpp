// Run-time type descriptors: a class's name and its parent's descriptor.
#pragma once

#include <string_view>

namespace veltrane {

/// Describes one class at run time. Registries key on name(); kinds are tested by identity.
/// Descriptors are static and live for the process.
class Type {
public:
    constexpr Type(const char* name, const Type* parent) : name_(name), parent_(parent) {}
    Type(const Type&) = delete;
    Type& operator=(const Type&) = delete;

    constexpr std::string_view name() const { return name_; }
    /// The base class's descriptor; null for the root.
    constexpr const Type* parent() const { return parent_; }

    /// True for the type itself and for every type derived from `other`.
    constexpr bool is_a(const Type& other) const {
        for (const Type* type = this; type; type = type->parent_) {
            if (type == &other) return true;
        }
        return false;
    }

private:
    const char* name_;
    const Type* parent_;
};

}  // namespace veltrane
