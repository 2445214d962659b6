#include "veltrane/base/text.hpp"

#include <new>
#include <stdexcept>

namespace veltrane {

namespace {

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

Text::Shared* Text::place(Chunk* chunk, char* room, std::string_view characters) {
    auto* shared = new (room) Shared;
    shared->offset = static_cast<std::uint32_t>(room - reinterpret_cast<char*>(chunk));
    shared->length = static_cast<std::uint32_t>(characters.size());
    std::memcpy(shared->characters(), characters.data(), characters.size());
    return shared;
}

Text::Text(std::string_view characters) {
    if (characters.size() <= kInlineLength) {
        set_inline(characters.empty() ? "" : characters);  // an empty view may point nowhere
        return;
    }
    const std::size_t size = sizeof(Chunk) + shared_size(characters.size());
    if (size > UINT32_MAX) throw std::length_error("text longer than 4 GiB");
    Chunk* chunk = Chunk::create(size);
    word_ = reinterpret_cast<std::uintptr_t>(place(chunk, chunk->bytes(), characters));
}

Text TextPool::unique(std::string_view characters) {
    const std::size_t size = Text::shared_size(characters.size());
    if (characters.size() <= Text::kInlineLength || size > ChunkPool::kLargestPiece) return Text(characters);
    char* const room = memory_.room(size);
    return Text(Text::place(memory_.take(size), room, characters));
}

Text TextPool::shared(std::string_view characters) {
    if (characters.size() <= Text::kInlineLength) return Text(characters);
    Text& recent = recent_[slot_of(characters, std::size(recent_))];
    if (recent.view() != characters) recent = unique(characters);
    return recent;
}

}  // namespace veltrane
