#include "veltrane/kernel/topo/shape.hpp"

#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <gtest/gtest.h>

#include <unordered_set>

namespace veltrane::kernel {
namespace {

const Transform kMove = Transform::translation({1, 2, 3});

TEST(Shape, IsSmall) {
    EXPECT_LE(sizeof(Shape), 24u);
}

TEST(Shape, ComparesByDefinitionPlacementAndOrientation) {
    const Shape edge = make_edge({0, 0, 0}, {1, 0, 0});
    struct Row {
        const char* what;
        Shape other;
        bool partner, same, equal;
    };
    const Row rows[] = {
        {"itself", edge, true, true, true},
        {"reversed", edge.reversed(), true, true, false},
        {"reversed twice", edge.reversed().reversed(), true, true, true},
        {"moved", moved(edge, kMove), true, false, false},
        {"moved there and back", moved(moved(edge, kMove), kMove.inverse()), true, true, true},
        {"placed at the identity", located(edge, Transform()), true, true, true},
        {"an equal edge", make_edge({0, 0, 0}, {1, 0, 0}), false, false, false},
        {"null", Shape(), false, false, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(is_partner(edge, row.other), row.partner);
        EXPECT_EQ(is_same(edge, row.other), row.same);
        EXPECT_EQ(is_equal(edge, row.other), row.equal);
        if (row.same) {
            EXPECT_EQ(SameShapeHash()(edge), SameShapeHash()(row.other));
        }
        if (row.partner) {
            EXPECT_EQ(PartnerShapeHash()(edge), PartnerShapeHash()(row.other));
        }
    }
}

TEST(Shape, PlacementsMadeApartAreTheSameWhenTheyMoveAlike) {
    const Shape edge = make_edge({0, 0, 0}, {1, 0, 0});
    const Shape a = moved(edge, kMove), b = located(edge, kMove);
    EXPECT_NE(a.placement(), b.placement());
    EXPECT_TRUE(is_equal(a, b));
    std::unordered_set<Shape, SameShapeHash, SameShape> set{a, b, b.reversed()};
    EXPECT_EQ(set.size(), 1u);
}

TEST(Shape, LocatedReplacesAndMovedAdds) {
    const Shape vertex = moved(make_vertex({1, 0, 0}), kMove);
    const Transform turn = Transform::rotation({0, 0, 0}, {0, 0, 1}, std::numbers::pi / 2);
    EXPECT_LT(distance(vertex_point(located(vertex, turn)), {0, 1, 0}), 1e-15);
    EXPECT_LT(distance(vertex_point(moved(vertex, turn)), {-2, 2, 3}), 1e-15);
}

TEST(Shape, PlacementsCarryNoScale) {
    const Point origin(0, 0, 0);
    const struct {
        Transform transform;
        bool allowed;
    } rows[] = {
        {Transform::rotation(origin, {1, 1, 1}, 1), true},
        {Transform::scaling(origin, 1 + 4e-15), true},
        {Transform::scaling(origin, 1 - 2e-14), false},
        {Transform::scaling(origin, 1 + 2e-14), false},
        {Transform::scaling(origin, 2), false},
        {Transform::mirror_in_plane(origin, {1, 0, 0}), false},
        {Transform::mirror_in_point(origin), false},
        {Transform::mirror_in_axis(origin, {1, 0, 0}), true},
    };
    const auto message = [](auto&& action) -> std::string {
        try {
            action();
        } catch (const DomainError& error) {
            return error.what();
        }
        return {};
    };
    const Shape vertex = make_vertex({1, 2, 3});
    for (const auto& row : rows) {
        SCOPED_TRACE(row.transform.scale_factor());
        EXPECT_EQ(message([&] { located(vertex, row.transform); }),
                  row.allowed ? "" : "Location with scaling transformation is forbidden");
        EXPECT_EQ(message([&] { moved(vertex, row.transform); }),
                  row.allowed ? "" : "Moving with scaling transformation is forbidden");
    }
}

TEST(Definition, RefusesWhatDoesNotFit) {
    const Shape vertex = make_vertex({0, 0, 0});
    const Shape edge = make_edge({0, 0, 0}, {1, 0, 0});
    const Shape wire = make_wire(std::span(&edge, 1));
    const Ref<Curve> line = edge_definition(edge).curve();
    EXPECT_THROW(make_group(ShapeKind::Wire, {vertex}), KernelError);
    EXPECT_THROW(make_group(ShapeKind::Shell, {edge}), KernelError);
    EXPECT_THROW(make_group(ShapeKind::Edge, {vertex}), KernelError);
    EXPECT_THROW(make_group(ShapeKind::Compound, {Shape()}), KernelError);
    EXPECT_NO_THROW(make_group(ShapeKind::Compound, {vertex, edge, wire}));
    EXPECT_THROW(make<EdgeDefinition>(nullptr, Interval{0, 1}, nullptr, nullptr), KernelError);
    EXPECT_THROW(make<EdgeDefinition>(line, Interval{1, 1}, nullptr, nullptr), KernelError);
    EXPECT_THROW(make<EdgeDefinition>(line, Interval{0, std::nan("")}, nullptr, nullptr), KernelError);
    EXPECT_THROW(make<FaceDefinition>(nullptr, std::vector<Loop>()), KernelError);
    EXPECT_THROW(edge_definition(vertex), KernelError);
    EXPECT_THROW(group_definition(Shape()), KernelError);
    EXPECT_THROW(Shape().kind(), KernelError);
}

}  // namespace
}  // namespace veltrane::kernel
