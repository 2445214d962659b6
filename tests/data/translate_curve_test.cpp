#include "veltrane/data/translate_curve.hpp"

#include "support/drawing.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/geom/bspline_curve.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <gtest/gtest.h>

#include <numbers>

namespace veltrane {
namespace {

using kernel::Point;
using kernel::ShapeKind;
using std::numbers::pi;
using test::Import;

constexpr const char* kNothing = "Geometry are not translated";
constexpr const char* kException = "Exception is raised in the createtion of geometry";
const std::string kSpline = "SPLINE 70 0 71 3 ";
const std::string kCubicPoles = "10 0 20 0 30 0 10 1 20 2 30 0 10 3 20 2 30 0 10 4 20 0 30 0";

Point start_of(const kernel::Shape& edge) {
    return kernel::vertex_point(kernel::first_vertex(edge));
}
Point end_of(const kernel::Shape& edge) {
    return kernel::vertex_point(kernel::last_vertex(edge));
}

TEST(TranslateCurve, EdgesFromEndToEnd) {
    struct Row {
        std::string record;
        double length;
        Point start;
        Point end;
    };
    const Row rows[] = {
        {"LINE 10 1 20 2 30 3 11 4 21 6 31 3", 5, {1, 2, 3}, {4, 6, 3}},
        {"LINE 10 1 20 2 30 3 11 4 21 6 31 3 210 0 220 0 230 -1", 5, {1, 2, 3}, {4, 6, 3}},  // no OCS
        {"LINE 38 10 10 0 20 0 30 0 11 1 21 0 31 0", 1, {0, 0, 10}, {1, 0, 10}},
        {"LINE 38 0.00000001 10 0 20 0 30 0 11 1 21 0 31 0", 1, {0, 0, 0}, {1, 0, 0}},
        {"ARC 10 0 20 0 30 0 40 2 50 0 51 90", pi, {2, 0, 0}, {0, 2, 0}},
        {"ARC 10 0 20 0 30 0 40 2 50 270 51 90", 2 * pi, {0, -2, 0}, {0, 2, 0}},
        {"ARC 10 0 20 0 30 0 40 2 50 -90 51 450", 2 * pi, {0, -2, 0}, {0, 2, 0}},
        {"ARC 10 0 20 0 30 0 40 2 50 90 51 450", 4 * pi, {0, 2, 0}, {0, 2, 0}},
        {"ARC 10 0 20 0 30 0 40 2 50 90 51 90", 4 * pi, {2, 0, 0}, {2, 0, 0}},  // the full circle
        {"ARC 10 0 20 0 30 0 40 2 50 90 51 810.000001", 4 * pi, {0, 2, 0}, {0, 2, 0}},
        {"ARC 10 5 20 0 30 1 40 2 50 0 51 90 210 0 220 0 230 -1", pi, {-7, 0, -1}, {-5, 2, -1}},
        {"ARC 10 0 20 0 30 0 40 1 50 0 51 90 210 1 220 0 230 0", pi / 2, {0, 1, 0}, {0, 0, 1}},
        {"CIRCLE 10 1 20 2 30 3 40 1 210 0 220 0 230 -1", 2 * pi, {-2, 2, -3}, {-2, 2, -3}},
        {"ELLIPSE 10 1 20 0 30 0 11 0 21 2 31 0 40 1 41 0 42 1.5707963267948966", pi, {1, 2, 0}, {-1, 0, 0}},
        {"ELLIPSE 10 0 20 0 30 0 11 2 21 0 31 0 40 1 41 4.71238898038469 42 1.5707963267948966",
         2 * pi,
         {0, -2, 0},
         {0, 2, 0}},
        {"ELLIPSE 10 0 20 0 30 0 11 2 21 0 31 0 40 1 41 0 42 6.283185307179586",
         4 * pi,
         {2, 0, 0},
         {2, 0, 0}},
        {kSpline + "40 0 40 0 40 0 40 0 40 1 40 1 40 1 40 1 10 0 20 0 30 0 10 1 20 0 30 0 10 2 20 0 30 0 "
                   "10 3 20 0 30 0",
         3,
         {0, 0, 0},
         {3, 0, 0}},
        // An interior knot as often as degree + 1 whose two poles are one.
        {"SPLINE 70 0 71 1 40 0 40 0 40 1 40 1 40 2 40 2 10 0 20 0 30 0 10 1 20 0 30 0 10 1 20 0 30 0 "
         "10 1 20 1 30 0",
         2,
         {0, 0, 0},
         {1, 1, 0}},
        // Weights act only when the record says that it is rational.
        {"SPLINE 70 4 71 2 40 0 40 0 40 0 40 1 40 1 40 1 41 1 41 0.7071067811865476 41 1 10 1 20 0 30 0 "
         "10 1 20 1 30 0 10 0 20 1 30 0",
         pi / 2,
         {1, 0, 0},
         {0, 1, 0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.record);
        const Import import(row.record);
        EXPECT_EQ(import.message(), "");
        ASSERT_TRUE(import.shape.is(ShapeKind::Edge));
        EXPECT_NEAR(kernel::length(import.shape), row.length, 1e-7);
        EXPECT_LT((start_of(import.shape) - row.start).norm(), 1e-7) << start_of(import.shape).transpose();
        EXPECT_LT((end_of(import.shape) - row.end).norm(), 1e-7) << end_of(import.shape).transpose();
    }
}

TEST(TranslateCurve, ACircleSeenFromBelowRunsClockwise) {
    const Import import("CIRCLE 10 1 20 2 30 3 40 1 210 0 220 0 230 -1");
    const auto geometry = kernel::edge_geometry(import.shape);
    EXPECT_LT((geometry.curve->value(pi / 2) - Point(-1, 3, -3)).norm(), 1e-12);
}

TEST(TranslateCurve, Sweeps) {
    struct Row {
        std::string record;
        ShapeKind kind;
        double area;
        Point top;  // of the bounding box
    };
    const Row rows[] = {
        {"POINT 10 1 20 2 30 3", ShapeKind::Vertex, 0, {1, 2, 3}},
        {"POINT 10 1 20 2 30 3 39 2", ShapeKind::Edge, 0, {1, 2, 5}},
        {"POINT 10 1 20 2 30 3 39 2 210 4 220 0 230 0", ShapeKind::Edge, 0, {3, 2, 3}},
        {"LINE 39 5 10 0 20 0 30 0 11 3 21 4 31 0", ShapeKind::Face, 25, {3, 4, 5}},
        {"LINE 39 -5 10 0 20 0 30 0 11 3 21 4 31 0", ShapeKind::Face, 25, {3, 4, 0}},
        {"CIRCLE 39 5 10 0 20 0 30 0 40 2", ShapeKind::Face, 20 * pi, {2, 2, 5}},
        {"ARC 39 5 10 0 20 0 30 0 40 2 50 0 51 90", ShapeKind::Face, 5 * pi, {2, 2, 5}},
        {"ELLIPSE 39 5 10 0 20 0 30 0 11 2 21 0 31 0 40 0.5", ShapeKind::Edge, 0, {2, 1, 0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.record);
        const Import import(row.record);
        ASSERT_TRUE(import.shape.is(row.kind));
        EXPECT_NEAR(kernel::area(import.shape), row.area, 1e-7);
        const kernel::Box box = kernel::bounding_box(import.shape);
        EXPECT_LT((box.max() - row.top).norm(), 1e-7) << box.max().transpose();
    }
}

TEST(TranslateCurve, WhatGivesNoShape) {
    struct Row {
        std::string record;
        const char* message;
    };
    const std::string fits = "11 0 21 0 31 0 11 1 21 1 31 0 ";
    const Row rows[] = {
        {"LINE 10 0 20 0 30 0 11 0.0000001 21 0 31 0", kNothing},
        {"LINE 10 1e300 20 0 30 0 11 0 21 0 31 0", kException},
        {"CIRCLE 10 0 20 0 30 0 40 0.0000001", kNothing},
        {"CIRCLE 10 0 20 0 30 0 40 -5", kNothing},
        {"CIRCLE 10 0 20 0 30 0 40 1e300", kException},
        {"ELLIPSE 10 0 20 0 30 0 11 2 21 0 31 0 40 1.5 41 0 42 1", kNothing},
        {"ELLIPSE 10 0 20 0 30 0 11 2 21 0 31 0 40 -0.5 41 0 42 1", kNothing},
        {"ELLIPSE 10 0 20 0 30 0 11 0 21 0 31 0 40 0.5", kException},
        {"ELLIPSE 10 0 20 0 30 0 11 0 21 0 31 2 40 0.5", kException},  // axis along the normal
        {"RAY 10 0 20 0 30 0 11 0 21 0 31 0", kException},
        {"XLINE 10 0 20 0 30 0 11 0 21 0 31 0", kException},
        {kSpline + fits, kNothing},
        {kSpline + "40 0 40 0 40 0 40 0 40 1 40 1 40 1 40 1", kNothing},
        {kSpline + kCubicPoles, kNothing},
        {kSpline + "40 0 40 0 40 1 40 1 40 1 40 1 " + kCubicPoles, kNothing},  // six knots for four poles
        {kSpline + "40 0 40 0 40 0 40 0 40 1 40 1 40 1 40 1 40 1 " + kCubicPoles, kException},
        {kSpline + "40 0 40 0 40 0 40 0 40 1 40 0.5 40 1 40 1 " + kCubicPoles, kException},
        {"SPLINE 70 0 71 0 40 0 40 1 " + kCubicPoles, kException},
        {"SPLINE 70 0 71 2000000000 40 0 40 1 " + kCubicPoles, kException},
        {"SPLINE 70 0 71 -5 40 0 40 1 " + kCubicPoles, kException},
        {"SPLINE 70 2 71 3 40 0 40 0 40 0 40 0 40 1 40 1 40 1 40 1 " + kCubicPoles, kException},  // open
        {"SPLINE 70 4 71 3 40 0 40 0 40 0 40 0 40 1 40 1 40 1 40 1 41 1 " + kCubicPoles, kException},
        // An interior knot as often as degree + 1 where the curve jumps.
        {"SPLINE 70 0 71 1 40 0 40 0 40 1 40 1 40 2 40 2 10 0 20 0 30 0 10 1 20 0 30 0 10 5 20 0 30 0 "
         "10 6 20 1 30 0",
         kNothing},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.record);
        const Import import(row.record);
        EXPECT_TRUE(import.shape.is_null());
        EXPECT_EQ(import.message(), row.message);
    }
}

TEST(TranslateCurve, RaysAndConstructionLines) {
    const Import ray("RAY 10 1 20 2 30 3 11 0 21 5 31 0");
    ASSERT_TRUE(ray.shape.is(ShapeKind::Edge));
    EXPECT_LT((start_of(ray.shape) - Point(1, 2, 3)).norm(), 1e-12);
    EXPECT_EQ(kernel::edge_geometry(ray.shape).range, (kernel::Interval{0, 2e100}));

    const Import line("XLINE 10 1 20 2 30 3 11 0 21 5 31 0");
    ASSERT_TRUE(line.shape.is(ShapeKind::Edge));
    EXPECT_EQ(kernel::edge_geometry(line.shape).range, (kernel::Interval{-2e100, 2e100}));
    EXPECT_LT((kernel::edge_geometry(line.shape).curve->value(2) - Point(1, 4, 3)).norm(), 1e-12);
}

TEST(TranslateCurve, PeriodicSplines) {
    const std::string square = "10 0 20 0 30 0 10 2 20 0 30 0 10 2 20 2 30 0 10 0 20 2 30 0 ";
    const std::string clamped =
        "40 0 40 0 40 0 40 0 40 1 40 2 40 2 40 2 40 2 10 0 20 0 30 0 10 2 20 0 30 0 "
        "10 2 20 2 30 0 10 0 20 2 30 0 10 0 20 0 30 0";
    struct Row {
        const char* what;
        std::string record;
        int poles;
        int first_multiplicity;
    };
    const Row rows[] = {
        {"as many knots as poles and one", "SPLINE 70 0 71 2 40 0 40 1 40 2 40 3 40 4 " + square, 4, 1},
        {"as many knots as poles, the last pole doubled",
         "SPLINE 70 0 71 2 40 0 40 1 40 2 40 3 40 4 " + square + "10 0 20 0 30 0", 4, 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const Import import(row.record);
        EXPECT_EQ(import.message(), "");
        ASSERT_TRUE(import.shape.is(ShapeKind::Edge));
        const auto curve = as<const kernel::BSplineCurve>(kernel::edge_geometry(import.shape).curve);
        ASSERT_TRUE(curve && curve->is_periodic());
        EXPECT_EQ(curve->poles().size(), static_cast<std::size_t>(row.poles));
        EXPECT_EQ(curve->multiplicities().front(), row.first_multiplicity);
    }

    // The periodic bit closes a clamped curve whose ends meet, and leaves it where it was.
    const Import open("SPLINE 70 0 71 3 " + clamped);
    const Import closed("SPLINE 70 2 71 3 " + clamped);
    const auto before = kernel::edge_geometry(open.shape).curve;
    const auto after = as<const kernel::BSplineCurve>(kernel::edge_geometry(closed.shape).curve);
    ASSERT_TRUE(after && after->is_periodic());
    for (double t = 0; t <= 2; t += 0.25) {
        EXPECT_LT((before->value(t) - after->value(t)).norm(), 1e-6) << t;
    }
}

TEST(TranslateCurve, EveryLengthIsScaled) {
    const std::string inch = "$INSUNITS 70 1";
    struct Row {
        const char* record;
        double length;  // in drawing units
    };
    for (const Row& row :
         {Row{"LINE 38 1 10 0 20 0 30 0 11 2 21 0 31 0", 2}, Row{"CIRCLE 10 7 20 0 30 0 40 1", 2 * pi},
          Row{"POINT 10 1 20 0 30 0 39 3", 3},
          Row{"ELLIPSE 10 0 20 0 30 0 11 2 21 0 31 0 40 1 41 0 42 6.283185307179586", 4 * pi},
          Row{"SPLINE 70 0 71 1 40 0 40 0 40 1 40 1 10 0 20 0 30 0 10 3 20 0 30 0", 3}}) {
        const Import plain(row.record);
        const Import scaled(row.record, inch);
        EXPECT_NEAR(kernel::length(plain.shape), row.length, 1e-7) << row.record;
        EXPECT_NEAR(kernel::length(scaled.shape), 25.4 * row.length, 1e-5) << row.record;
        const kernel::Box small = kernel::bounding_box(plain.shape);
        const kernel::Box large = kernel::bounding_box(scaled.shape);
        EXPECT_LT((25.4 * small.max() - large.max()).norm(), 1e-5) << row.record;
    }
}

}  // namespace
}  // namespace veltrane
