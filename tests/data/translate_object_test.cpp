#include "veltrane/data/translate_object.hpp"

#include "support/drawing.hpp"
#include "veltrane/ent/curves.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/algo/wire_repair.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

using kernel::ShapeKind;

struct NoTranslator : Typed<NoTranslator, DxfData_TranslateObject> {
    static constexpr const char* kTypeName = "NoTranslator";
    Ref<DxfData_GeometrySequence> MakeGeometry(DxfData_TransferContext&, const Ref<DxfSection_Object>&,
                                               double&, kernel::Vector&) const override {
        return make<DxfData_GeometrySequence>();
    }
};
struct OwnRecord : Typed<OwnRecord, DxfSection_Entity> {
    static constexpr const char* kTypeName = "OwnRecord";
};
struct DerivedRecord : Typed<DerivedRecord, OwnRecord> {
    static constexpr const char* kTypeName = "DerivedRecord";
};

TEST(TranslatorRegistry, TheNearestTypeCounts) {
    using Tool = DxfData_TranslateObject;
    const auto first = make<NoTranslator>();
    const auto second = make<NoTranslator>();
    EXPECT_TRUE(Tool::RegisterTool(OwnRecord::type(), first));
    EXPECT_EQ(Tool::FindTool(DerivedRecord::type(), true), first);
    EXPECT_EQ(Tool::FindTool(DerivedRecord::type(), false), nullptr);
    EXPECT_FALSE(Tool::RegisterTool(OwnRecord::type(), second));
    EXPECT_EQ(Tool::FindTool(OwnRecord::type(), false), second);
    EXPECT_EQ(Tool::FindTool(Transient::type(), true), nullptr);
    EXPECT_TRUE(Tool::UnRegisterTool(OwnRecord::type()));
    EXPECT_FALSE(Tool::UnRegisterTool(OwnRecord::type()));
}

Ref<Transient> point(double x) {
    return make<kernel::FreePoint>(kernel::Point(x, 0, 0));
}
Ref<Transient> segment(double from, double to) {
    return kernel::make_segment({from, 0, 0}, {to, 0, 0});
}
Ref<DxfData_GeometrySequence> list(std::vector<Ref<Transient>> items) {
    return make<DxfData_GeometrySequence>(std::move(items));
}

TEST(GeomToShape, KindsAndMeasures) {
    struct Row {
        const char* what;
        std::vector<Ref<Transient>> items;
        double thickness;
        ShapeKind kind;
        double length;
        double area;
    };
    const Row rows[] = {
        {"a point", {point(1)}, 0, ShapeKind::Vertex, 0, 0},
        {"a thin point", {point(1)}, 1e-6, ShapeKind::Vertex, 0, 0},
        {"a thick point", {point(1)}, -2, ShapeKind::Edge, 2, 0},
        {"points", {point(1), point(2)}, 0, ShapeKind::Compound, 0, 0},
        {"a curve", {segment(0, 3)}, 0, ShapeKind::Edge, 3, 0},
        {"a thick curve", {segment(0, 3)}, 2, ShapeKind::Face, 10, 6},
        {"a chain out of order", {segment(2, 3), segment(0, 1), segment(1, 2)}, 0, ShapeKind::Wire, 3, 0},
        {"a thick chain", {segment(2, 3), segment(0, 1), segment(1, 2)}, 2, ShapeKind::Shell, 14, 6},
        {"a point among curves", {segment(0, 3), point(9), segment(3, 4)}, 0, ShapeKind::Compound, 4, 0},
        {"other objects", {make<ReadProcess>(), segment(0, 3)}, 0, ShapeKind::Edge, 3, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const auto shape = DxfData_TranslateObject::GeomToShape(list(row.items), row.thickness, {0, 0, 1});
        ASSERT_TRUE(shape.is(row.kind));
        EXPECT_NEAR(kernel::length(shape), row.length, 1e-12);
        EXPECT_NEAR(kernel::area(shape), row.area, 1e-12);
    }
}

TEST(GeomToShape, NothingGivesNothing) {
    EXPECT_TRUE(DxfData_TranslateObject::GeomToShape(nullptr, 0, {0, 0, 1}).is_null());
    EXPECT_TRUE(DxfData_TranslateObject::GeomToShape(list({}), 0, {0, 0, 1}).is_null());
    EXPECT_TRUE(DxfData_TranslateObject::GeomToShape(list({make<ReadProcess>()}), 0, {0, 0, 1}).is_null());
}

TEST(GeomToShape, PointsComeFirst) {
    const auto shape = DxfData_TranslateObject::GeomToShape(list({segment(0, 3), point(9)}), 0, {0, 0, 1});
    EXPECT_TRUE(kernel::child(shape, 0).is(ShapeKind::Vertex));
    EXPECT_TRUE(kernel::child(shape, 1).is(ShapeKind::Edge));
}

TEST(MakeShape, AFailIsReportedOnceHoweverOftenARecordIsReached) {
    test::Import import("LINE 10 1 20 0 30 0 11 1 21 0 31 0");
    EXPECT_EQ(import.message(), "Geometry are not translated");
    import.transfer();
    EXPECT_EQ(import.messages().size(), 1u);
    EXPECT_TRUE(import.shape.is_null());
}

TEST(MakeShape, WhatCannotBeSweptIsAFailOfTheTopology) {
    const test::Import import("LINE 39 5 10 0 20 0 30 0 11 0 21 0 31 1\nLINE 10 0 11 1 210 0 220 0 230 0");
    EXPECT_EQ(import.messages(),
              std::vector<std::string>(2, "Exception is raised in the createtion of topology"));
}

}  // namespace
}  // namespace veltrane
