#include "veltrane/exchange/read_process.hpp"

#include "exchange/test_norm.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

struct ReadProcessTest : testing::Test {
    Ref<TestRecord> listed() {
        auto record = make<TestRecord>();
        model->AddEntity(record);
        return record;
    }

    Ref<TestModel> model = make<TestModel>();
    Ref<ReadProcess> process = [this] {
        auto made = make<ReadProcess>();
        made->SetModel(model);
        return made;
    }();
};

TEST_F(ReadProcessTest, ResultsAreFoundInsideAndOutsideTheModel) {
    const auto inside = listed();
    const auto unbound = listed();
    const auto outside = make<TestRecord>();
    const auto first = make<SimpleBinder>();
    const auto second = make<SimpleBinder>();
    process->Bind(inside, first);
    process->Bind(outside, second);
    EXPECT_EQ(process->Find(inside.get()), first);
    EXPECT_EQ(process->Find(outside.get()), second);
    EXPECT_EQ(process->Find(unbound.get()), nullptr);
    EXPECT_EQ(process->Find(nullptr), nullptr);

    process->Bind(inside, second);
    EXPECT_EQ(process->Find(inside.get()), second);
}

TEST_F(ReadProcessTest, ARecordThatJoinsTheModelLaterKeepsItsResult) {
    const auto record = make<TestRecord>();
    const auto before = make<SimpleBinder>();
    process->Bind(record, before);
    model->AddEntity(record);
    EXPECT_EQ(process->Find(record.get()), before);
    const auto after = make<SimpleBinder>();
    process->Bind(record, after);
    EXPECT_EQ(process->Find(record.get()), after);
}

TEST_F(ReadProcessTest, TwoProcessesAndTwoModelsDoNotMix) {
    const auto record = listed();
    auto other_model = make<TestModel>();
    other_model->AddEntity(make<TestRecord>());
    other_model->AddEntity(record);  // another number there
    auto other = make<ReadProcess>();
    other->SetModel(other_model);
    const auto mine = make<SimpleBinder>();
    const auto theirs = make<SimpleBinder>();
    process->Bind(record, mine);
    other->Bind(record, theirs);
    EXPECT_EQ(process->Find(record.get()), mine);
    EXPECT_EQ(other->Find(record.get()), theirs);
}

TEST_F(ReadProcessTest, ReportsStandInOrderOfTheirFirstMessage) {
    const auto a = listed();
    const auto b = listed();
    process->AddFail(b, "no geometry");
    process->AddWarning(a, Message::own("odd value: 7"));
    process->AddFail(b, "no shape");
    ASSERT_EQ(process->Reports().size(), 2u);
    EXPECT_EQ(process->Reports()[0].Record, b);
    EXPECT_EQ(process->Reports()[0].Messages.Fails().size(), 2u);
    EXPECT_EQ(process->CheckOf(a.get())->Warnings().at(0).text(), "odd value: 7");
    EXPECT_EQ(process->CheckOf(model.get()), nullptr);

    process->SetModel(make<TestModel>());
    EXPECT_TRUE(process->Reports().empty());
}

TEST(TransferBinder, LongChainsAreReleasedWithoutRecursion) {
    Ref<TransferBinder> chain = make<SimpleBinder>();
    for (int i = 0; i < 300'000; ++i) {
        Ref<TransferBinder> longer = make<SimpleBinder>();
        longer->AddResult(chain);
        chain = longer;
    }
    auto heir = make<SimpleBinder>();
    heir->Merge(*chain);
    EXPECT_EQ(heir->NextResult(), chain->NextResult());
}

}  // namespace
}  // namespace veltrane
