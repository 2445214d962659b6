// One fail or warning: a fixed text with its numbers, formatted when somebody asks for it.
#pragma once

#include "veltrane/base/text.hpp"

#include <string>
#include <string_view>

namespace veltrane {

/// A drawing may earn one message per group, so a message stays small: the fixed text by its address
/// and at most two numbers for its "%d" placeholders. Texts made at run time are kept as they are.
class Message {
public:
    /// `format` is a string literal: it is kept by its address.
    template <std::size_t Size>
    Message(const char (&format)[Size], int first = 0, int second = 0)
        : format_(format), numbers_{first, second} {}
    template <std::size_t Size>
    Message(char (&buffer)[Size], int first = 0, int second = 0) = delete;
    explicit Message(Text own) : own_(std::move(own)) {}
    static Message own(std::string_view text) { return Message(Text(text)); }

    /// The text with its numbers in place.
    std::string text() const;
    /// The text before its numbers are put in: equal for all messages of one kind.
    std::string_view source() const { return format_ ? std::string_view(format_) : own_.view(); }

private:
    const char* format_ = nullptr;
    int numbers_[2] = {0, 0};
    Text own_;
};

}  // namespace veltrane
