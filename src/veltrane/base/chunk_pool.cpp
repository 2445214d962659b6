#include "veltrane/base/chunk_pool.hpp"

#include <algorithm>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace veltrane {

namespace {

constexpr std::size_t kHugePage = 2 * 1024 * 1024;
constexpr std::size_t kGrowth = 8;  // a chunk is this part of those before it

std::align_val_t alignment(std::size_t size) {
    if (size == kHugePage) return std::align_val_t(kHugePage);
    return std::align_val_t(size % Chunk::kBlock == 0 ? Chunk::kBlock : alignof(std::max_align_t));
}

}  // namespace

Chunk* Chunk::create(std::size_t size) {
    void* bytes = ::operator new(size, alignment(size));
#if defined(MADV_HUGEPAGE)
    // On pages of the usual size the system takes a quarter of the time in which a large drawing is read.
    if (size == kHugePage) (void)::madvise(bytes, size, MADV_HUGEPAGE);
#endif
    return new (bytes) Chunk(size);
}

void Chunk::destroy() noexcept {
    const std::align_val_t aligned = alignment(size_);
    this->~Chunk();
    ::operator delete(this, aligned);
}

void ChunkPool::open_block() {
    if (chunk_ && end_ != chunk_->end()) {
        at_ = reinterpret_cast<char*>(new (end_) Chunk*(chunk_) + 1);
        end_ += Chunk::kBlock;
        return;
    }
    const std::size_t size = std::clamp(total_ / kGrowth, Chunk::kBlock, kHugePage) & ~(Chunk::kBlock - 1);
    Chunk* const chunk = Chunk::create(size);
    if (chunk_) chunk_->release();
    chunk_ = chunk;
    at_ = chunk->bytes();
    end_ = reinterpret_cast<char*>(chunk) + Chunk::kBlock;
    total_ += size;
}

}  // namespace veltrane
