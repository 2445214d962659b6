#include "veltrane/data/make_insert.hpp"

#include "veltrane/data/insert_placement.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

using kernel::Transform;

TEST(MakeInsert, BlocksAreNumberedByTheRecordsOfTheTransfer) {
    DxfData_TransferContext context;
    const auto first = DxfData::MakeBlock(context);
    EXPECT_EQ(first->BlockName1, "BLK1");
    context.Records().Set(first, first);
    EXPECT_EQ(DxfData::MakeBlock(context)->BlockName1, "BLK2");
    EXPECT_EQ(length(first->Objects), 0);
}

/// The insert puts points where the placement does.
TEST(MakeInsert, InsertsStandWhereTheyAreAskedTo) {
    const Transform turn = Transform::rotation({1, 2, 3}, {1, -2, 0.5}, 0.7);
    const Transform mirror = Transform::mirror_in_plane({1, 0, 0}, {1, 1, 0.3});
    const Transform double_size = Transform::scaling({1, 1, 1}, 2);
    DxfSection_Block block;
    block.BlockName1 = "B";
    for (const Transform& placement :
         {Transform(), Transform::translation({1, 2, 3}), Transform::rotation({0, 0, 0}, {0, 0, 1}, 0.5),
          turn, mirror, mirror * turn, double_size * turn, double_size * mirror, turn * turn,
          Transform::mirror_in_plane({0, 0, 0}, {0, 0, 1}), Transform::mirror_in_point({0, 0, 0})}) {
        const auto insert = DxfData::MakeInsert(block, placement);
        EXPECT_EQ(insert->BlockName, "B");
        const DxfData_InsertPlacement found(*insert, block, 1);
        for (const kernel::Point& p : {kernel::Point(0, 0, 0), kernel::Point(3, -1, 2)}) {
            EXPECT_LT((found.similarity().point(p) - placement.point(p)).norm(), 1e-12);
        }
    }
}

}  // namespace
}  // namespace veltrane
