// Reference-counted objects with a run-time type: Transient, its smart pointer Ref<T>, and Typed,
// which gives a class its descriptor in one line.
#pragma once

#include "veltrane/base/ref_count.hpp"
#include "veltrane/base/type.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>
#include <utility>

namespace veltrane {

/// Root of every object that is shared through Ref<T>. The use count is inside the object; an object
/// on the stack is legal as long as no Ref points to it.
class Transient {
public:
    static constexpr const char* kTypeName = "Transient";

    Transient() = default;
    Transient(const Transient&) noexcept {}  // a copy starts unshared
    Transient& operator=(const Transient&) noexcept { return *this; }
    virtual ~Transient() = default;

    static constexpr const Type& type() { return kType; }
    virtual const Type& DynamicType() const { return kType; }
    bool is_kind(const Type& type) const { return DynamicType().is_a(type); }

    void retain() const noexcept { uses_.increment(); }
    void release() const noexcept {
        if (uses_.decrement()) dispose();
    }
    std::uint32_t use_count() const noexcept { return uses_.value(); }

    /// A place for one number, up to kLargestSlot, set by the container that numbers this object. It is a
    /// hint: whoever reads it checks it against the container.
    static constexpr std::uint32_t kLargestSlot = INT32_MAX;
    void set_slot(std::uint32_t slot) const noexcept { slot_ = slot & kLargestSlot; }
    std::uint32_t slot() const noexcept { return slot_; }

    /// For make_in() alone: says that the object stands in a chunk and has a use of it.
    void set_in_chunk() noexcept { in_chunk_ = 1; }

protected:
    inline static constexpr Type kType{kTypeName, nullptr};

private:
    void dispose() const noexcept;

    mutable RefCount uses_;
    mutable std::uint32_t slot_ : 31 = 0;
    std::uint32_t in_chunk_ : 1 = 0;
};

/// Derive from Typed<Self, Base> and declare `static constexpr const char* kTypeName = "Self";`.
template <class Self, class Base>
class Typed : public Base {
public:
    using Base::Base;
    static constexpr const Type& type() { return kType; }
    const Type& DynamicType() const override { return kType; }

private:
    static const Type kType;
};

template <class Self, class Base>
constinit const Type Typed<Self, Base>::kType{Self::kTypeName, &Base::type()};

/// Intrusive shared pointer. Null by default; compares by identity.
template <class T>
class Ref {
public:
    Ref() = default;
    Ref(std::nullptr_t) {}
    Ref(T* object) : object_(object) { retain(); }
    Ref(const Ref& other) : object_(other.object_) { retain(); }
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    Ref(const Ref<U>& other) : object_(other.get()) {
        retain();
    }
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    Ref(Ref<U>&& other) noexcept : object_(other.detach()) {}
    ~Ref() { release(); }

    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    T* get() const { return object_; }
    T& operator*() const { return *object_; }
    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// Gives up the object without releasing it.
    T* detach() noexcept { return std::exchange(object_, nullptr); }

    template <class U>
    friend bool operator==(const Ref& a, const Ref<U>& b) {
        return a.get() == b.get();
    }
    friend bool operator==(const Ref& a, std::nullptr_t) { return a.get() == nullptr; }

private:
    void retain() const {
        if (object_) object_->retain();
    }
    void release() const {
        if (object_) object_->release();
    }

    T* object_ = nullptr;
};

template <class T, class... Args>
Ref<T> make(Args&&... args) {
    return Ref<T>(new T(std::forward<Args>(args)...));
}

/// The object as a T, or null when it is none. Only the run-time descriptor decides.
template <class T, class U>
T* as(U* object) {
    using Plain = std::remove_const_t<T>;
    return object && object->is_kind(Plain::type()) ? static_cast<T*>(object) : nullptr;
}
template <class T, class U>
Ref<T> as(const Ref<U>& object) {
    return Ref<T>(as<T>(object.get()));
}

}  // namespace veltrane

template <class T>
struct std::hash<veltrane::Ref<T>> {
    std::size_t operator()(const veltrane::Ref<T>& ref) const noexcept { return std::hash<T*>()(ref.get()); }
};
