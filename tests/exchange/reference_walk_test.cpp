#include "veltrane/exchange/reference_walk.hpp"

#include "exchange/test_norm.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

std::vector<std::string> names(const TestModel& model) {
    std::vector<std::string> list;
    for (const auto& record : model.records()) list.push_back(as<TestRecord>(record)->name);
    return list;
}

Ref<TestRecord> record(const char* name, std::vector<Ref<TestRecord>> children = {}) {
    return make<TestRecord>(name, std::move(children));
}

TEST(ReferenceWalk, ContainersStandBeforeTheirContents) {
    test_norm();
    auto shared = record("shared");
    auto root = record("root", {record("a", {record("a1"), nullptr, shared}), record("b", {shared})});
    auto model = make<TestModel>();
    ReferenceWalk(*model).Add(root);
    EXPECT_EQ(names(*model), (std::vector<std::string>{"root", "a", "a1", "shared", "b"}));
}

TEST(ReferenceWalk, ListedRecordsKeepTheirPlacesAndTheirNewContentsAreFound) {
    test_norm();
    auto root = record("root", {record("a")});
    auto model = make<TestModel>();
    ReferenceWalk(*model).Add(root);
    root->children.insert(root->children.begin(), record("new", {record("below")}));
    ReferenceWalk(*model).Add(root);
    EXPECT_EQ(names(*model), (std::vector<std::string>{"root", "a", "new", "below"}));
}

TEST(ReferenceWalk, CyclesAndGreatDepthsEnd) {
    test_norm();
    auto root = record("root");
    auto last = root;
    for (int depth = 0; depth < 200'000; ++depth) {
        last->children.push_back(record("below"));
        last = last->children.front();
    }
    last->children.push_back(root);
    auto model = make<TestModel>();
    ReferenceWalk walk(*model);
    walk.Add(root);
    walk.Add(root);
    EXPECT_EQ(model->NbEntities(), 200'001);
    for (const auto& each : model->records()) as<TestRecord>(each)->children.clear();
}

TEST(ReferenceWalk, AModelOfNoNormTakesTheRootAlone) {
    auto model = make<OtherModel>();
    ReferenceWalk(*model).Add(record("root", {record("a")}));
    EXPECT_EQ(model->NbEntities(), 1);
}

TEST(ShareTool, ListsWhatARecordShares) {
    test_norm();
    const ShareTool shares(make<TestModel>());
    auto root = record("root", {record("a", {record("a1")}), nullptr, record("b")});
    EXPECT_EQ(shares.Shareds(root.get()).NbEntities(), 2);
    EXPECT_EQ(ShareTool().Shareds(root.get()).NbEntities(), 0);
}

}  // namespace
}  // namespace veltrane
