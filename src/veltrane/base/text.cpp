#include "veltrane/base/text.hpp"

#include <new>
#include <stdexcept>

namespace veltrane {

namespace {

constexpr std::size_t kChunkSize = 64 * 1024 - 64;  // with the allocator's own bytes, 64 KiB
constexpr std::size_t kLongestPooled = 4096;        // longer ones would waste the ends of chunks

std::size_t slot_of(std::string_view characters, std::size_t slots) {
    // Cheap and good enough for a cache: both ends and the length tell names apart.
    std::uint64_t head = 0, tail = 0;
    std::memcpy(&head, characters.data(), 8);
    std::memcpy(&tail, characters.data() + characters.size() - 8, 8);
    const std::uint64_t mixed =
        (head * 0x9E3779B97F4A7C15u) ^ (tail * 0xC2B2AE3D27D4EB4Fu) ^ characters.size();
    return (mixed * 0x9E3779B97F4A7C15u >> 32) % slots;
}

}  // namespace

Text::Chunk* Text::Chunk::create(std::size_t size) {
    auto* chunk = new (::operator new(sizeof(Chunk) + size)) Chunk;
    chunk->size = static_cast<std::uint32_t>(size);
    chunk->uses.increment();
    return chunk;
}

void Text::Chunk::release() noexcept {
    if (!uses.decrement()) return;
    this->~Chunk();
    ::operator delete(this);
}

Text::Shared* Text::place(Chunk* chunk, std::size_t offset, std::string_view characters) {
    auto* shared = new (chunk->bytes() + offset) Shared;
    shared->offset = static_cast<std::uint32_t>(sizeof(Chunk) + offset);
    shared->length = static_cast<std::uint32_t>(characters.size());
    std::memcpy(shared->characters(), characters.data(), characters.size());
    return shared;
}

Text::Text(std::string_view characters) {
    if (characters.size() <= kInlineLength) {
        set_inline(characters.empty() ? "" : characters);  // an empty view may point nowhere
        return;
    }
    if (characters.size() >= UINT32_MAX - sizeof(Shared)) throw std::length_error("text longer than 4 GiB");
    Chunk* chunk = Chunk::create(shared_size(characters.size()));
    word_ = reinterpret_cast<std::uintptr_t>(place(chunk, 0, characters));
}

TextPool::~TextPool() {
    if (chunk_) chunk_->release();
}

Text TextPool::unique(std::string_view characters) {
    if (characters.size() <= Text::kInlineLength || characters.size() > kLongestPooled)
        return Text(characters);
    const std::size_t size = Text::shared_size(characters.size());
    if (!chunk_ || used_ + size > chunk_->size) {
        if (chunk_) chunk_->release();
        chunk_ = Text::Chunk::create(kChunkSize);
        used_ = 0;
    }
    chunk_->uses.increment();
    Text::Shared* shared = Text::place(chunk_, used_, characters);
    used_ += size;
    return Text(shared);
}

Text TextPool::shared(std::string_view characters) {
    if (characters.size() <= Text::kInlineLength) return Text(characters);
    Text& recent = recent_[slot_of(characters, std::size(recent_))];
    if (recent.view() != characters) recent = unique(characters);
    return recent;
}

}  // namespace veltrane
