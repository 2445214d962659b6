#include "veltrane/base/chunk_pool.hpp"

#include <sys/mman.h>

#include <algorithm>

namespace veltrane {

namespace {

constexpr std::size_t kHugePage = 2 * 1024 * 1024;
constexpr std::size_t kGrowth = 8;  // a chunk is this part of those before it

bool is_made_of_blocks(std::size_t size) {
    return size % Chunk::kBlock == 0;
}

/// Memory of the system's: it goes back to it whole, and aligning it leaves no holes among the allocator's.
void* map(std::size_t size) {
    const std::size_t alignment = size == kHugePage ? kHugePage : Chunk::kBlock;
    void* const mapped =
        ::mmap(nullptr, size + alignment, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) throw std::bad_alloc();
    char* const first = static_cast<char*>(mapped);
    // The last aligned place: systems map downwards, and so the chunks come to stand side by side.
    const std::size_t before = alignment - reinterpret_cast<std::uintptr_t>(first) % alignment;
    ::munmap(first, before);
    if (before < alignment) ::munmap(first + before + size, alignment - before);
#if defined(MADV_HUGEPAGE)
    // On pages of the usual size the system takes a quarter of the time in which a large drawing is read.
    if (size == kHugePage) ::madvise(first + before, size, MADV_HUGEPAGE);
#endif
    return first + before;
}

}  // namespace

Chunk* Chunk::create(std::size_t size) {
    return new (is_made_of_blocks(size) ? map(size) : ::operator new(size)) Chunk(size);
}

void Chunk::destroy() noexcept {
    const std::size_t size = size_;
    this->~Chunk();
    is_made_of_blocks(size) ? (void)::munmap(this, size) : ::operator delete(this);
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
