#include "veltrane/base/chunk_pool.hpp"

#include "veltrane/base/text.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace veltrane {
namespace {

int alive = 0;

template <int Size>
struct Bytes : Typed<Bytes<Size>, Transient> {
    static constexpr const char* kTypeName = "Bytes";

    explicit Bytes(int number) : number(number) {
        if (number < 0) throw number;
        ++alive;
        for (char& byte : bytes) byte = static_cast<char>(number);
    }
    ~Bytes() override { --alive; }
    bool is_whole() const {
        return std::all_of(std::begin(bytes), std::end(bytes),
                           [&](char byte) { return byte == static_cast<char>(number); });
    }

    int number;
    char bytes[Size];
};
using Small = Bytes<20>;
using Large = Bytes<ChunkPool::kLargestPiece - 24>;

TEST(ChunkPool, ObjectsAndTextsOutliveThePoolAndEachOther) {
    std::vector<Ref<Small>> small;
    std::vector<Ref<Large>> large;
    std::vector<Text> texts;
    {
        std::mt19937 random(1);
        ChunkPool memory;
        TextPool pool(memory);
        for (int i = 0; i < 10'000; ++i) {  // chunks of all sizes
            const auto one = make_in<Small>(memory, i);
            const auto other = make_in<Large>(memory, i);
            const Text text = pool.unique("text number " + std::to_string(i));
            ASSERT_EQ(reinterpret_cast<std::uintptr_t>(other.get()) % 8, 0u);
            if (random() % 10 == 0) small.push_back(one);
            if (random() % 1000 == 0) large.push_back(other);
            if (random() % 10 == 0) texts.push_back(text);
        }
    }
    EXPECT_EQ(alive, static_cast<int>(small.size() + large.size()));
    for (const auto& object : small) ASSERT_TRUE(object->is_whole());
    for (const auto& object : large) ASSERT_TRUE(object->is_whole());
    for (const Text& text : texts) ASSERT_EQ(text.view().substr(0, 12), "text number ");
    std::thread([&] { small.clear(); }).join();
    large.clear();
    EXPECT_EQ(alive, 0);
}

TEST(ChunkPool, AnObjectThatFailsLeavesItsRoom) {
    ChunkPool memory;
    const auto first = make_in<Small>(memory, 1);
    EXPECT_THROW(make_in<Small>(memory, -1), int);
    const auto second = make_in<Small>(memory, 2);
    EXPECT_TRUE(first->is_whole() && second->is_whole());
    EXPECT_EQ(alive, 2);
    ++alive;
    const Ref<Small> copy = make<Small>(*second);  // not in a chunk itself
    EXPECT_TRUE(copy->is_whole());
}

}  // namespace
}  // namespace veltrane
