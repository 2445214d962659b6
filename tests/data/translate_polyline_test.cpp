#include "veltrane/data/translate_polyline.hpp"

#include "data/measures.hpp"
#include "support/drawing.hpp"

#include <gtest/gtest.h>

#include <numbers>

namespace veltrane {
namespace {

using std::numbers::pi;
using test::Import;

const std::string kOpen = "LWPOLYLINE 90 2 70 0 ";
const std::string kClosed = "LWPOLYLINE 90 4 70 1 ";
const std::string kSquare = "10 0 20 0 10 4 20 0 10 4 20 4 10 0 20 4";
const std::string kEnd = "\nSEQEND";

/// VERTEX records of points given as "x y z".
std::string vertices(std::initializer_list<const char*> points, const std::string& more = "") {
    std::string text;
    for (const char* point : points) {
        std::istringstream in(point);
        std::string x, y, z;
        in >> x >> y >> z;
        text += "\nVERTEX 10 " + x + " 20 " + y + " 30 " + z + more;
    }
    return text;
}

std::string face(const char* corners) {
    std::istringstream in(corners);
    std::string text = "\nVERTEX 10 0 20 0 30 0 70 128", corner;
    for (int code = 71; in >> corner; ++code) text += " " + std::to_string(code) + " " + corner;
    return text;
}

TEST(TranslatePolyline, Measures) {
    const std::string three = vertices({"0 0 1", "3 0 1", "3 4 1"});
    const test::MeasureRow rows[] = {
        {kOpen + "10 0 20 0 10 3 20 4", "edge", 5, 0, {0, 0, 0}, {3, 4, 0}},
        {kOpen + "10 0 20 0 42 1 10 2 20 0", "edge", pi, 0, {0, -1, 0}, {2, 0, 0}},
        {kOpen + "10 0 20 0 42 -1 10 2 20 0", "edge", pi, 0, {0, 0, 0}, {2, 1, 0}},
        // Three quarters of a turn: tan(3 pi / 8).
        {kOpen + "10 0 20 0 42 2.414213562373095 10 2 20 0",
         "edge",
         1.5 * pi * std::sqrt(2),
         0,
         {1 - std::sqrt(2), -1 - std::sqrt(2), 0},
         {1 + std::sqrt(2), 0, 0}},
        {kOpen + "10 0 20 0 42 0.0000001 10 2 20 0", "edge", 2, 0, {0, 0, 0}, {2, 0, 0}},
        {kOpen + "10 0 20 0 42 1 10 0.0000003 20 0", "edge", pi / 2 * 3e-7, 0, {0, 0, 0}, {0, 0, 0}},
        {kClosed + kSquare, "wire: 4 edges", 16, 0, {0, 0, 0}, {4, 4, 0}},
        {kClosed + "40 1 41 2 " + kSquare, "wire: 4 edges", 16, 0, {0, 0, 0}, {4, 4, 0}},
        {kClosed + "39 2 " + kSquare, "shell: 4 faces, 12 edges", 40, 32, {0, 0, 0}, {4, 4, 2}},
        {kClosed + "38 5 " + kSquare, "wire: 4 edges", 16, 0, {0, 0, 5}, {4, 4, 5}},
        {kClosed + "38 5 39 1 210 0 220 0 230 -2 " + kSquare,
         "shell: 4 faces, 12 edges",
         36,
         16,
         {-4, 0, -6},
         {0, 4, -5}},
        {kClosed + "38 1 210 1 220 0 230 0 " + kSquare, "wire: 4 edges", 16, 0, {1, 0, 0}, {1, 4, 4}},
        {"LWPOLYLINE 70 1 10 0 20 0 42 1 10 2 20 0 42 1", "wire: 2 edges", 2 * pi, 0, {0, -1, 0}, {2, 1, 0}},
        {"LWPOLYLINE 70 1 10 0 20 0 10 0 20 0 10 1 20 0", "wire: 2 edges", 2, 0, {0, 0, 0}, {1, 0, 0}},

        {"POLYLINE 66 1 30 1" + three + kEnd, "wire: 2 edges", 7, 0, {0, 0, 1}, {3, 4, 1}},
        {"POLYLINE 66 1 70 1 30 1" + three + kEnd, "wire: 3 edges", 12, 0, {0, 0, 1}, {3, 4, 1}},
        {"POLYLINE 66 1 39 2" + three + kEnd, "shell: 2 faces, 7 edges", 20, 14, {0, 0, 1}, {3, 4, 3}},
        {"POLYLINE 66 1 210 0 220 0 230 -1" + three + kEnd, "wire: 2 edges", 7, 0, {-3, 0, -1}, {0, 4, -1}},
        {"POLYLINE 66 1 70 8 210 0 220 0 230 -1" + three + kEnd, "wire: 2 edges", 7, 0, {0, 0, 1}, {3, 4, 1}},
        {"POLYLINE 66 1 70 9" + vertices({"0 0 0", "3 0 0", "3 4 5", "0 0 0"}) + kEnd,
         "wire: 3 edges",
         3 + std::sqrt(41) + std::sqrt(50),
         0,
         {0, 0, 0},
         {3, 4, 5}},
        {"POLYLINE 66 1 70 1" + vertices({"0 0 0", "2 0 0"}, " 42 1") + kEnd,
         "wire: 2 edges",
         2 * pi,
         0,
         {0, -1, 0},
         {2, 1, 0}},
        {"POLYLINE 66 1" + vertices({"1 2 3", "1 2 3", "1 2 3"}) + kEnd,
         "vertex",
         0,
         0,
         {1, 2, 3},
         {1, 2, 3}},
        {"POLYLINE 66 1" + vertices({"1 2 3"}) + kEnd, "vertex", 0, 0, {1, 2, 3}, {1, 2, 3}},
    };
    test::expect_measures(rows);
}

TEST(TranslatePolyline, Meshes) {
    const std::string grid = vertices({"0 0 0", "0 1 0", "0 2 0", "0 3 0", "1 0 0", "1 1 0", "1 2 0", "1 3 0",
                                       "2 0 0", "2 1 0", "2 2 0", "2 3 0"},
                                      " 70 64");
    const std::string tube =
        vertices({"0 0 0", "4 0 0", "4 4 0", "0 4 0", "0 0 5", "4 0 5", "4 4 5", "0 4 5"});
    const std::string points = vertices({"0 0 0", "1 0 0", "1 1 0", "0 1 0", "2 0 0", "1 0 0"}, " 70 192");
    const test::MeasureRow rows[] = {
        {"POLYLINE 66 1 70 16 71 3 72 4" + grid + kEnd,
         "compound: 6 faces, 17 edges, 12 vertices",
         17,
         6,
         {0, 0, 0},
         {2, 3, 0}},
        {"POLYLINE 66 1 70 48 71 2 72 4" + tube + kEnd,
         "compound: 4 faces, 12 edges, 8 vertices",
         52,
         80,
         {0, 0, 0},
         {4, 4, 5}},
        // Two rows closed in both directions: every cell is there twice, over the same edges.
        {"POLYLINE 66 1 70 49 71 2 72 4" + tube + kEnd,
         "compound: 8 faces, 12 edges, 8 vertices",
         52,
         160,
         {0, 0, 0},
         {4, 4, 5}},
        {"POLYLINE 66 1 70 64" + points + face("1 2 3 4") + face("-2 5 -3 0") + kEnd,
         "compound: 2 faces, 6 edges, 5 vertices",
         5 + std::sqrt(2),
         1.5,
         {0, 0, 0},
         {2, 1, 0}},
        // Corners at one place are one corner.
        {"POLYLINE 66 1 70 64" + points + face("1 2 3 4") + face("6 5 3") + kEnd,
         "compound: 2 faces, 6 edges, 5 vertices",
         5 + std::sqrt(2),
         1.5,
         {0, 0, 0},
         {2, 1, 0}},
        {"POLYLINE 66 1 70 64" + points + face("1 2 0 0") + face("1 1 1 1") + face("1 2 9 3") + kEnd,
         "compound: 1 edges, 2 vertices",
         1,
         0,
         {0, 0, 0},
         {1, 0, 0}},
        {"POLYLINE 66 1 70 64" + points + face("1 2 3 9") + kEnd,
         "compound: 1 faces, 3 edges, 3 vertices",
         2 + std::sqrt(2),
         0.5,
         {0, 0, 0},
         {1, 1, 0}},
    };
    test::expect_measures(rows);
}

TEST(TranslatePolyline, WhatGivesNoShape) {
    const std::string point = vertices({"0 0 0"}, " 70 192");
    const struct {
        std::string record;
        const char* message;
    } rows[] = {
        {"LWPOLYLINE 90 0 70 0", "Vertices are missing"},
        {"LWPOLYLINE 90 1 70 1 10 0 20 0", "Geometry are not translated"},
        {kOpen + "10 0 20 0 42 1e200 10 1 20 0", "Exception is raised in the createtion of topology"},
        {kOpen + "210 0 220 0 230 0 10 0 20 0 10 1 20 0",
         "Exception is raised in the createtion of topology"},
        {"POLYLINE 66 1 70 0" + kEnd, "Vertices in the Polyline are absent"},
        {"POLYLINE 66 1 70 64" + kEnd, "Vertices in the Polyline are absent"},
        {"POLYLINE 66 1 70 64" + point + kEnd, "Invalid parameters of polyline for mesh"},
        {"POLYLINE 66 1 70 64" + point + face("2147483647 -2147483648 1") + kEnd,
         "Invalid parameters of polyline for mesh"},
        {"POLYLINE 66 1 70 64" + point + face("1 1 1") + kEnd, "Geometry are not translated"},
        {"POLYLINE 66 1 70 16 71 2 72 2" + point + point + point + kEnd,
         "Invalid parameters of polyline for mesh"},
        {"POLYLINE 66 1 70 16 71 -1 72 -1" + point + kEnd, "Invalid parameters of polyline for mesh"},
        {"POLYLINE 66 1 70 49 71 2000000000 72 2000000000" + point + kEnd,
         "Invalid parameters of polyline for mesh"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.record);
        const Import import(row.record);
        EXPECT_TRUE(import.shape.is_null());
        EXPECT_EQ(import.message(), row.message);
    }
}

TEST(TranslatePolyline, EveryLengthIsScaled) {
    for (const std::string& record :
         {kClosed + "38 1 39 2 " + kSquare,
          "POLYLINE 66 1 30 1 39 2" + vertices({"0 0 1", "3 0 1"}, " 42 0.5") + kEnd,
          "POLYLINE 66 1 70 16 71 2 72 2" + vertices({"1 0 0", "2 0 0", "1 2 0", "2 2 0"}) + kEnd}) {
        test::expect_scaled_by_inch(record);
    }
}

}  // namespace
}  // namespace veltrane
