#include "veltrane/data/translate_faces.hpp"

#include "data/measures.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

using kernel::Point;
using test::Import;

/// The four corners from groups 10 on, as "x y z" four times.
std::string corners(const std::string& numbers) {
    std::istringstream in(numbers);
    std::string text, number;
    for (int i = 0; in >> number; ++i) {
        text += " " + std::to_string(10 * (i % 3 + 1) + i / 3) + " " + number;
    }
    return text;
}

const std::string kPair = " 10 0 20 0 30 0";

TEST(TranslateFaces, Measures) {
    const std::string face = "3DFACE", solid = "SOLID", trace = "TRACE";
    const std::string square = corners("0 0 0 1 0 0 0 1 0 1 1 0");  // row by row
    const double bow = 1 + std::sqrt(2);                            // sides of one of its two triangles
    const test::MeasureRow rows[] = {
        {face + corners("0 0 0 3 0 0 3 4 0 0 4 0"), "face: 4 edges", 14, 12, {0, 0, 0}, {3, 4, 0}},
        {face + corners("0 0 0 3 0 0 3 4 0 3 4 0"), "face: 3 edges", 12, 6, {0, 0, 0}, {3, 4, 0}},
        {face + corners("0 0 0 0 0 0 3 0 0 3 4 0"), "face: 3 edges", 12, 6, {0, 0, 0}, {3, 4, 0}},
        {face + corners("0 0 0 3 0 0 3 4 5 3 4 5") + " 70 15",
         "face: 3 edges",
         3 + std::sqrt(41) + std::sqrt(50),
         1.5 * std::sqrt(41),
         {0, 0, 0},
         {3, 4, 5}},
        {face + corners("1 0 0 5 0 0 3 0 0 4 0 0"), "edge", 4, 0, {1, 0, 0}, {5, 0, 0}},
        {face + corners("1 2 3 1 2 3 1 2 3 1 2 3"), "vertex", 0, 0, {1, 2, 3}, {1, 2, 3}},
        // Concave, then crossed at the first and third side, then at the second and fourth.
        {face + corners("0 0 0 4 0 0 1 1 0 0 4 0"),
         "face: 4 edges",
         8 + 2 * std::sqrt(10),
         4,
         {0, 0, 0},
         {4, 4, 0}},
        {face + corners("0 0 0 1 1 0 1 0 0 0 1 0"),
         "compound: 2 faces, 6 edges, 5 vertices",
         2 * bow,
         0.5,
         {0, 0, 0},
         {1, 1, 0}},
        {face + corners("0 0 0 1 0 0 0 1 0 1 1 0"),
         "compound: 2 faces, 6 edges, 5 vertices",
         2 * bow,
         0.5,
         {0, 0, 0},
         {1, 1, 0}},
        {solid + square, "face: 4 edges", 4, 1, {0, 0, 0}, {1, 1, 0}},
        {solid + square + " 38 5", "face: 4 edges", 4, 1, {0, 0, 5}, {1, 1, 5}},
        {solid + square + " 39 2", "solid: 6 faces, 12 edges, 8 vertices", 16, 10, {0, 0, 0}, {1, 1, 2}},
        {solid + square + " 39 -2", "solid: 6 faces, 12 edges, 8 vertices", 16, 10, {0, 0, -2}, {1, 1, 0}},
        {solid + square + " 39 0.0000001", "face: 4 edges", 4, 1, {0, 0, 0}, {1, 1, 0}},
        {trace + square + " 210 0 220 0 230 -1 38 5 39 1",
         "solid: 6 faces, 12 edges, 8 vertices",
         12,
         6,
         {-1, 0, -6},
         {0, 1, -5}},
        {solid + corners("0 0 0 1 0 0 1 1 0 0 1 0") + " 39 2",
         "compound: 2 solids, 10 faces",
         4 * bow + 12,
         1 + 4 * bow,
         {0, 0, 0},
         {1, 1, 2}},
        {solid + corners("0 0 0 3 0 0 3 0 0 3 0 0") + " 39 2", "face: 4 edges", 10, 6, {0, 0, 0}, {3, 0, 2}},
        {solid + kPair + " 39 2", "edge", 2, 0, {0, 0, 0}, {0, 0, 2}},
    };
    test::expect_measures(rows);
}

TEST(TranslateFaces, AFourthCornerOffThePlaneBendsTheFace) {
    const Import import("3DFACE" + corners("0 0 0 1 0 0 1 1 0 0 1 0.1"));
    ASSERT_EQ(test::described(import.shape, "face: 4 edges"), "face: 4 edges");
    const auto surface = kernel::face_surface(import.shape);
    EXPECT_EQ(surface->kind(), kernel::SurfaceKind::BSpline);
    for (const double u : {0.0, 0.3, 1.0}) {
        for (const double v : {0.0, 0.6, 1.0}) {
            EXPECT_LT((surface->value(u, v) - Point(v, u, 0.1 * u * (1 - v))).norm(), 1e-9);
        }
    }
    // The integral of sqrt(1 + 0.01 (u^2 + (1 - v)^2)) over the square.
    EXPECT_NEAR(kernel::area(import.shape), 1.0033256, 1e-7);
}

TEST(TranslateFaces, WhatGivesNoShape) {
    for (const std::string& record : {"3DFACE" + corners("1e200 0 0 0 1 0 0 0 1 2 2 2"),
                                      "SOLID 210 0 220 0 230 0" + corners("0 0 0 1 0 0 0 1 0 1 1 0")}) {
        const Import import(record);
        EXPECT_TRUE(import.shape.is_null()) << record;
        EXPECT_EQ(import.message(), "Shape is not created") << record;
    }
    // The sweep runs within the face.
    const Import flat("SOLID 39 1" + corners("0 0 0 1 0 0 0 0 1 1 0 1"));
    EXPECT_EQ(test::described(flat.shape, "face: 4 edges"), "face: 4 edges");
    EXPECT_EQ(flat.message(), "Exception is raised in the creation of prism");
}

TEST(TranslateFaces, EveryLengthIsScaled) {
    test::expect_scaled_by_inch("3DFACE" + corners("0 0 0 3 0 0 3 4 1 0 4 0"));
    test::expect_scaled_by_inch("SOLID 38 1 39 2" + corners("0 0 1 3 0 1 0 4 1 3 4 1"));
}

}  // namespace
}  // namespace veltrane
