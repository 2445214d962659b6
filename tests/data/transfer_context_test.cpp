#include "veltrane/data/transfer_context.hpp"

#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

using Status = DxfData_Status;

TEST(TransferContext, StatusFlags) {
    DxfData_TransferContext context;
    EXPECT_TRUE(context.Status(Status::Ok));
    context.AddStatus(Status::Done2);
    context.AddStatus(Status::Fail8);
    EXPECT_TRUE(context.Status(Status::Done) && context.Status(Status::Fail) &&
                context.Status(Status::Fail8));
    EXPECT_FALSE(context.Status(Status::Done1) || context.Status(Status::Ok) ||
                 context.Status(Status::Fail7));
    context.SetStatus(Status::Done1);
    EXPECT_FALSE(context.Status(Status::Fail) || context.Status(Status::Done2));
    context.AddStatus(Status::Fail);
    EXPECT_TRUE(context.Status(Status::Fail3));
}

TEST(TransferContext, ResultsOfARecordGather) {
    DxfData_TransferContext context;
    const auto record = make<DxfSection_Object>();
    const kernel::Shape a = kernel::make_vertex({1, 0, 0});
    const kernel::Shape b = kernel::make_vertex({2, 0, 0});
    kernel::Shape found;
    EXPECT_FALSE(context.HasTranslated(record, found));

    context.SetTransferResult(record, {});  // translated, and nothing came of it
    EXPECT_TRUE(context.HasTranslated(record, found));
    EXPECT_TRUE(found.is_null());

    for (int time = 0; time < 2; ++time) {
        context.SetTransferResult(record, a);
        ASSERT_TRUE(context.HasTranslated(record, found));
        EXPECT_TRUE(kernel::is_equal(found, a));
    }
    context.SetTransferResult(record, b);
    context.SetTransferResult(record, a.reversed());
    ASSERT_TRUE(context.HasTranslated(record, found));
    ASSERT_EQ(kernel::child_count(found), 3u);
    EXPECT_TRUE(kernel::is_equal(kernel::child(found, 1), b));
}

TEST(TransferContext, RecordsOfAShape) {
    DxfData_TransferContext context;
    const auto first = make<DxfSection_Object>();
    const auto second = make<DxfSection_Object>();
    const kernel::Shape shape = kernel::make_vertex({1, 0, 0});
    Ref<DxfSection_Object> found;
    EXPECT_FALSE(context.HasTranslated(shape, found));
    context.AddTransferResult(shape, first);
    context.AddTransferResult(shape, second);
    EXPECT_TRUE(context.HasTranslated(shape, found));
    EXPECT_EQ(found, first);
    EXPECT_EQ(as<SimpleBinder>(context.GetWriteProcess()->Find(shape)->NextResult())->Result(), second);
    context.SetTransferResult(shape, second);
    EXPECT_TRUE(context.HasTranslated(shape, found));
    EXPECT_EQ(found, second);
    EXPECT_FALSE(context.HasTranslated(shape.reversed(), found));
    EXPECT_FALSE(context.HasTranslated(kernel::make_vertex({1, 0, 0}), found));
}

TEST(TransferContext, AContextOfOneSideLeavesTheOtherAlone) {
    DxfData_TransferContext context{Ref<ReadProcess>()};
    const auto record = make<DxfSection_Object>();
    Ref<DxfSection_Object> found_record;
    kernel::Shape found;
    context.SetTransferResult(record, kernel::make_vertex({0, 0, 0}));
    context.SetTransferResult(kernel::make_vertex({0, 0, 0}), record);
    context.AddFail(record, "lost");
    EXPECT_FALSE(context.HasTranslated(record, found));
    EXPECT_FALSE(context.HasTranslated(found, found_record));
}

TEST(TransferContext, SatVersionFollowsTheDrawing) {
    struct Row {
        int dxf;
        int sat;
    };
    DxfData_TransferContext context;
    EXPECT_EQ(context.GetSATVersion(), 21200);
    for (const Row& row : {Row{1009, 106}, Row{1014, 106}, Row{1015, 400}, Row{1018, 20800}, Row{1021, 21200},
                           Row{1024, 21500}, Row{1027, 106}}) {
        context.SetDxfVersion(row.dxf);
        EXPECT_EQ(context.GetSATVersion(), row.sat) << row.dxf;
    }
}

}  // namespace
}  // namespace veltrane
