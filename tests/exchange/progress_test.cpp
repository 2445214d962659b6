#include "veltrane/exchange/progress.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veltrane {
namespace {

struct Recorder : ProgressListener {
    void Show(double done, std::string_view scope) override {
        shown.push_back(done);
        scopes.emplace_back(scope);
    }
    bool UserBreak() override { return ++asked > patience; }

    std::vector<double> shown;
    std::vector<std::string> scopes;
    int asked = 0;
    int patience = 1'000'000;
};

/// Does `steps` steps; each of them has `inner` steps of its own.
void work(const Progress& progress, int steps, int inner) {
    ProgressScope scope(progress, "outer", std::max(static_cast<double>(steps), 1e-6));
    for (int i = 0; i < steps && !scope.UserBreak(); ++i) {
        ProgressScope below(scope.Next(), "inner", std::max(static_cast<double>(inner), 1e-6));
        for (int k = 0; k < inner && !below.UserBreak(); ++k) below.Next();
    }
}

TEST(Progress, GrowsFromNothingToOneHoweverManySteps) {
    struct Row {
        int steps;
        int inner;
    };
    for (const Row& row : {Row{1, 0}, Row{1, 1}, Row{3, 7}, Row{7, 3}, Row{100000, 1}, Row{1, 100000}}) {
        Recorder recorder;
        work(Progress(recorder), row.steps, row.inner);
        ASSERT_FALSE(recorder.shown.empty());
        for (std::size_t i = 1; i < recorder.shown.size(); ++i) {
            ASSERT_GT(recorder.shown[i], recorder.shown[i - 1]);
        }
        EXPECT_GE(recorder.shown.front(), 0);
        EXPECT_EQ(recorder.shown.back(), 1) << row.steps << " x " << row.inner;
        EXPECT_LE(recorder.shown.size(), 1001u);
    }
}

TEST(Progress, ABreakEndsTheWorkAndIsNotShownAsItsEnd) {
    Recorder recorder;
    recorder.patience = 50;
    work(Progress(recorder), 100, 0);
    EXPECT_EQ(recorder.asked, 51);
    EXPECT_NEAR(recorder.shown.back(), 0.49, 0.011);
}

TEST(Progress, NobodyListens) {
    const Progress none;
    work(none, 10, 10);
    EXPECT_FALSE(none.UserBreak());
}

}  // namespace
}  // namespace veltrane
