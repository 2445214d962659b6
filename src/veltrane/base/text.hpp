// Shared immutable text, eight bytes wide, and the pool from which a reader makes many of them.
#pragma once

#include "veltrane/base/chunk_pool.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace veltrane {

/// Shared immutable text of 8-bit characters. It is null (never set), or holds zero or more characters.
/// Up to seven characters stand in the object itself; longer ones are shared by use count, so a copy
/// never copies characters. view() stays valid while this very object lives and is not assigned to.
class Text {
public:
    Text() noexcept = default;
    Text(std::string_view characters);
    Text(const char* characters) : Text(std::string_view(characters)) {}
    Text(const std::string& characters) : Text(std::string_view(characters)) {}
    Text(const Text& other) noexcept : word_(other.word_) { retain(); }
    Text(Text&& other) noexcept : word_(std::exchange(other.word_, 0)) {}
    ~Text() { release(); }
    Text& operator=(const Text& other) noexcept {
        other.retain();
        release();
        word_ = other.word_;
        return *this;
    }
    Text& operator=(Text&& other) noexcept {
        std::swap(word_, other.word_);
        return *this;
    }

    bool is_null() const { return word_ == 0; }
    bool empty() const { return view().empty(); }
    /// The characters; empty for a null text.
    std::string_view view() const {
        if (is_inline()) return {reinterpret_cast<const char*>(&word_) + 1, inline_length()};
        return word_ ? shared()->view() : std::string_view();
    }
    operator std::string_view() const { return view(); }
    std::string str() const { return std::string(view()); }

    friend bool operator==(const Text& a, const Text& b) {
        return a.word_ == b.word_ || a.same_characters(b);
    }
    friend bool operator==(const Text& a, std::string_view b) { return !a.is_null() && a.view() == b; }
    friend bool operator==(const Text& a, const char* b) { return a == std::string_view(b); }
    friend std::ostream& operator<<(std::ostream& out, const Text& text) { return out << text.view(); }

    static constexpr std::size_t kInlineLength = 7;

private:
    friend class TextPool;
    static_assert(std::endian::native == std::endian::little && sizeof(void*) == 8,
                  "the tag bit is kept in the lowest byte of a pointer");

    /// Stands in a chunk before its characters.
    struct Shared {
        std::uint32_t offset;  // from the chunk to here
        std::uint32_t length;
        char* characters() { return reinterpret_cast<char*>(this + 1); }
        std::string_view view() const { return {reinterpret_cast<const char*>(this + 1), length}; }
        Chunk* chunk() { return reinterpret_cast<Chunk*>(reinterpret_cast<char*>(this) - offset); }
    };

    /// Lays a text out in a chunk that has room for it there; takes over one use of the chunk.
    static Shared* place(Chunk* chunk, char* room, std::string_view characters);
    static constexpr std::size_t shared_size(std::size_t length) {
        return (sizeof(Shared) + length + alignof(Shared) - 1) / alignof(Shared) * alignof(Shared);
    }

    explicit Text(Shared* shared) : word_(reinterpret_cast<std::uintptr_t>(shared)) {}
    void set_inline(std::string_view characters) {
        char bytes[8] = {static_cast<char>(characters.size() << 1 | 1)};
        std::memcpy(bytes + 1, characters.data(), characters.size());
        std::memcpy(&word_, bytes, sizeof word_);
    }
    bool is_inline() const { return word_ & 1; }
    std::size_t inline_length() const { return (word_ & 0xFF) >> 1; }
    Shared* shared() const { return reinterpret_cast<Shared*>(word_); }
    bool is_shared() const { return word_ && !is_inline(); }
    bool same_characters(const Text& other) const {
        return is_shared() && other.is_shared() && view() == other.view();
    }
    void retain() const noexcept {
        if (is_shared()) shared()->chunk()->retain();
    }
    void release() noexcept {
        if (is_shared()) shared()->chunk()->release();
    }

    std::uintptr_t word_ = 0;
};

/// Makes many texts cheaply: long ones stand in chunks, and shared() hands out again what it has lately
/// handed out. One thread at a time.
class TextPool {
public:
    /// `memory` outlives the pool.
    explicit TextPool(ChunkPool& memory) : memory_(memory) {}
    TextPool(const TextPool&) = delete;
    TextPool& operator=(const TextPool&) = delete;

    /// A text of its own, for values that seldom repeat (numbers).
    Text unique(std::string_view characters);
    /// A text that may be shared with an equal one made before (names, markers).
    Text shared(std::string_view characters);

private:
    ChunkPool& memory_;
    Text recent_[256];  // by hash of the characters
};

}  // namespace veltrane

template <>
struct std::hash<veltrane::Text> {
    std::size_t operator()(const veltrane::Text& text) const noexcept {
        return std::hash<std::string_view>()(text.view());
    }
};
