// A shared, growing list: a std::vector behind a Ref, with access by 1-based number.
#pragma once

#include "veltrane/base/ref.hpp"

#include <initializer_list>
#include <vector>

namespace veltrane {

/// Shared list. A list field of a record is a Ref<Sequence<T>> that stays null until its first element.
template <class T>
class Sequence : public Typed<Sequence<T>, Transient> {
public:
    static constexpr const char* kTypeName = "Sequence";

    Sequence() = default;
    explicit Sequence(std::vector<T> items) : items_(std::move(items)) {}
    Sequence(std::initializer_list<T> items) : items_(items) {}

    int Length() const { return static_cast<int>(items_.size()); }
    bool IsEmpty() const { return items_.empty(); }
    /// `number` runs from 1 to Length(); anything else throws std::out_of_range.
    const T& Value(int number) const { return items_.at(static_cast<std::size_t>(number) - 1); }
    T& ChangeValue(int number) { return items_.at(static_cast<std::size_t>(number) - 1); }
    void Append(T item) { items_.push_back(std::move(item)); }
    /// Inserts before `number` (1 to Length() + 1).
    void InsertBefore(int number, T item) { items_.insert(items_.begin() + (number - 1), std::move(item)); }
    void Clear() { items_.clear(); }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }
    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    std::vector<T>& items() { return items_; }
    const std::vector<T>& items() const { return items_; }

private:
    std::vector<T> items_;
};

/// Appends to a list that is null until its first element.
template <class T, class U>
void append(Ref<Sequence<T>>& list, U&& item) {
    if (!list) list = make<Sequence<T>>();
    list->Append(std::forward<U>(item));
}

/// Elements of a list that may be null.
template <class T>
int length(const Ref<Sequence<T>>& list) {
    return list ? list->Length() : 0;
}

}  // namespace veltrane
