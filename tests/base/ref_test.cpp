#include "veltrane/base/ref.hpp"

#include "veltrane/base/sequence.hpp"
#include "veltrane/base/undefined.hpp"

#include <gtest/gtest.h>

#include <array>
#include <thread>

namespace veltrane {
namespace {

int alive = 0;

struct Animal : Typed<Animal, Transient> {
    static constexpr const char* kTypeName = "Animal";
    Animal() { ++alive; }
    Animal(const Animal& other) : Typed(other) { ++alive; }
    ~Animal() override { --alive; }
};
struct Dog : Typed<Dog, Animal> {
    static constexpr const char* kTypeName = "Dog";
};
struct Cat : Typed<Cat, Animal> {
    static constexpr const char* kTypeName = "Cat";
};

TEST(Type, NamesAndKinds) {
    const Ref<Animal> dog = make<Dog>();
    EXPECT_EQ(dog->DynamicType().name(), "Dog");
    EXPECT_EQ(dog->DynamicType().parent(), &Animal::type());
    EXPECT_EQ(Animal::type().parent(), &Transient::type());
    EXPECT_TRUE(dog->is_kind(Animal::type()) && dog->is_kind(Transient::type()));
    EXPECT_FALSE(dog->is_kind(Cat::type()));
    EXPECT_EQ(as<Dog>(dog).get(), dog.get());
    EXPECT_EQ(as<Cat>(dog), nullptr);
    EXPECT_EQ(as<Dog>(static_cast<Animal*>(nullptr)), nullptr);
}

TEST(Ref, KeepsAnObjectWhileOneIsLeft) {
    {
        Ref<Animal> a = make<Dog>();
        Ref<Animal> b = a;
        Ref<Transient> c = b;
        EXPECT_EQ(a->use_count(), 3u);
        Ref<Animal>& alias = a;
        a = alias;
        EXPECT_EQ(a->use_count(), 3u);
        a = nullptr;
        b = std::move(a);
        EXPECT_EQ(alive, 1);
        EXPECT_FALSE(b);
        const Animal copy(static_cast<Animal&>(*c));
        EXPECT_EQ(copy.use_count(), 0u);
        EXPECT_EQ(c->use_count(), 1u);
    }
    EXPECT_EQ(alive, 0);
}

TEST(Ref, CountsAcrossThreads) {
    const Ref<Animal> shared = make<Animal>();
    std::array<std::thread, 4> threads;
    for (auto& thread : threads) {
        thread = std::thread([&] {
            for (int i = 0; i < 100'000; ++i) Ref<Animal> copy = shared;
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(shared->use_count(), 1u);
}

TEST(Sequence, NumbersFromOne) {
    Ref<Sequence<int>> list;
    EXPECT_EQ(length(list), 0);
    append(list, 20);
    list->InsertBefore(1, 10);
    list->InsertBefore(3, 30);
    list->ChangeValue(2) = 21;
    EXPECT_EQ(list->items(), (std::vector<int>{10, 21, 30}));
    EXPECT_THROW(list->Value(0), std::out_of_range);
    EXPECT_THROW(list->Value(4), std::out_of_range);
    EXPECT_THROW(list->Value(-1), std::out_of_range);
}

TEST(Undefined, APointIsUndefinedWhenEveryCoordinateIs) {
    EXPECT_TRUE(all_undefined(std::array<double, 2>{-1e100, -1e100}));
    EXPECT_FALSE(all_undefined(std::array<double, 3>{-1e100, -1e100, 0}));
    EXPECT_FALSE(is_undefined(1e100));
    EXPECT_TRUE(is_undefined(-1));
}

}  // namespace
}  // namespace veltrane
