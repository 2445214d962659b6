#include "veltrane/base/text.hpp"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace veltrane {
namespace {

TEST(Text, NullIsNotEmpty) {
    const Text null, empty("");
    EXPECT_TRUE(null.is_null());
    EXPECT_TRUE(null.empty());
    EXPECT_FALSE(empty.is_null());
    EXPECT_TRUE(empty.empty());
    EXPECT_FALSE(null == empty);
    EXPECT_FALSE(null == "");
    EXPECT_TRUE(empty == "");
}

TEST(Text, HoldsEveryLengthAndByte) {
    ChunkPool memory;
    TextPool pool(memory);
    for (std::size_t length : {0u, 1u, 6u, 7u, 8u, 9u, 63u, 4095u, 4096u, 4097u, 100'000u}) {
        std::string characters(length, '\0');
        for (std::size_t i = 0; i < length; ++i) characters[i] = static_cast<char>(i * 37);
        const Text own(characters), unique = pool.unique(characters), shared = pool.shared(characters);
        for (const Text* text : {&own, &unique, &shared}) EXPECT_EQ(text->str(), characters) << length;
        EXPECT_TRUE(own == unique && unique == shared) << length;
        characters += 'x';
        EXPECT_FALSE(own == Text(characters)) << length;
    }
}

TEST(Text, CopiesAndAssignments) {
    for (const char* characters : {"short", "longer than seven"}) {
        Text a(characters);
        Text b = a;
        Text& alias = a;
        a = alias;
        EXPECT_TRUE(a == b);
        Text c = std::move(a);
        a = Text("something else altogether");
        a = std::move(c);
        b = Text();
        EXPECT_EQ(a.str(), characters);
        EXPECT_TRUE(b.is_null());
        EXPECT_EQ(std::hash<Text>()(a), std::hash<std::string_view>()(characters));
    }
}

TEST(TextPool, TextsOutliveThePoolAndEachOther) {
    std::mt19937 random(1);
    std::vector<std::pair<Text, std::string>> kept;
    {
        ChunkPool memory;
        TextPool pool(memory);
        for (int i = 0; i < 20'000; ++i) {
            const std::string characters(random() % 40, static_cast<char>('a' + random() % 26));
            const Text text = i % 2 ? pool.unique(characters) : pool.shared(characters);
            if (random() % 10 == 0) kept.emplace_back(text, characters);
        }
    }
    for (const auto& [text, characters] : kept) ASSERT_EQ(text.str(), characters);
}

TEST(TextPool, GivesEqualTextsOutAgain) {
    ChunkPool memory;
    TextPool pool(memory);
    const Text first = pool.shared("AcDbEntity"), again = pool.shared("AcDbEntity");
    EXPECT_EQ(first.view().data(), again.view().data());
    EXPECT_NE(first.view().data(), pool.unique("AcDbEntity").view().data());
}

}  // namespace
}  // namespace veltrane
