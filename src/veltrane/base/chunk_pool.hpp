// Memory for many small things that live about equally long: taken in pieces, given back in chunks.
#pragma once

#include "veltrane/base/ref.hpp"

#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

// Under this sanitizer each object has memory of its own, so that a use of one that has gone shows.
#if defined(__SANITIZE_ADDRESS__)
#define VELTRANE_SEPARATE_OBJECTS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VELTRANE_SEPARATE_OBJECTS
#endif
#endif

namespace veltrane {

/// A run of bytes that many things stand in. It lives while one of them does.
class Chunk {
public:
    /// The chunks of a pool are made of blocks: their addresses tell where they begin, and there stands whose
    /// they are.
    static constexpr std::size_t kBlock = 64 * 1024;

    /// Of `size` bytes, these members included, and with one use, which is the caller's. Aligned to a block
    /// if it is made of whole ones. Throws std::bad_alloc.
    static Chunk* create(std::size_t size);
    /// The chunk of a piece of a pool.
    static Chunk* of(const void* piece) {
        return *reinterpret_cast<Chunk* const*>(reinterpret_cast<std::uintptr_t>(piece) & ~(kBlock - 1));
    }

    char* bytes() { return reinterpret_cast<char*>(this + 1); }
    char* end() { return reinterpret_cast<char*>(this) + size_; }
    void retain() noexcept { uses_.increment(); }
    void release() noexcept {
        if (uses_.decrement()) destroy();
    }

private:
    explicit Chunk(std::size_t size) : size_(static_cast<std::uint32_t>(size)) { retain(); }
    void destroy() noexcept;

    [[maybe_unused]] Chunk* self_ = this;  // of the first block, for of()
    RefCount uses_;
    std::uint32_t size_;
};

/// Gives room in chunks. These grow with what is taken, so that a small drawing takes little and a large one
/// costs the system few, large pages. One thread at a time; what stands in a chunk may go in any thread.
class ChunkPool {
public:
    static constexpr std::size_t kLargestPiece = 4096;  // larger ones would waste the ends of blocks

    ChunkPool() = default;
    ChunkPool(const ChunkPool&) = delete;
    ChunkPool& operator=(const ChunkPool&) = delete;
    ~ChunkPool() {
        if (chunk_) chunk_->release();
    }

    /// Room for `size` bytes, a multiple of eight up to kLargestPiece, aligned to eight. It is nobody's until
    /// take() is called with that size.
    char* room(std::size_t size) {
        if (static_cast<std::size_t>(end_ - at_) < size) open_block();
        return at_;
    }
    /// The chunk of the last room, with a use of it for what now stands there.
    Chunk* take(std::size_t size) {
        at_ += size;
        chunk_->retain();
        return chunk_;
    }

private:
    void open_block();

    Chunk* chunk_ = nullptr;
    char* at_ = nullptr;
    char* end_ = nullptr;    // of the block
    std::size_t total_ = 0;  // size of all chunks so far
};

/// As make(): the object stands in a chunk of the pool, which goes with the last object in it.
template <class T, class... Args>
Ref<T> make_in(ChunkPool& pool, Args&&... args) {
#if defined(VELTRANE_SEPARATE_OBJECTS)
    (void)pool;
    return make<T>(std::forward<Args>(args)...);
#else
    static_assert(alignof(T) == alignof(Chunk*) && sizeof(T) <= ChunkPool::kLargestPiece);
    auto* object = new (pool.room(sizeof(T))) T(std::forward<Args>(args)...);
    pool.take(sizeof(T));
    object->set_in_chunk();
    return Ref<T>(object);
#endif
}

}  // namespace veltrane
