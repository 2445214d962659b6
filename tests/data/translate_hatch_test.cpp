#include "veltrane/data/translate_hatch.hpp"

#include "data/measures.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/dxf_file.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace veltrane {
namespace {

using std::numbers::pi;
using test::Import;

std::string hatch(const std::string& loops, const std::string& plane = "10 0 20 0 30 0 210 0 220 0 230 1",
                  int solid = 1) {
    const auto count = std::count(loops.begin(), loops.end(), '=');
    std::string text = "HATCH " + plane + " 2 P 70 " + std::to_string(solid) + " 71 0 91 " +
                       std::to_string(count) + " " + loops + " 75 0 76 1 98 0";
    for (std::size_t at; (at = text.find('=')) != std::string::npos;) text.replace(at, 1, "92");
    return text;
}
std::string sources(const std::string& handles) {
    std::istringstream in(handles);
    std::string text, handle;
    int count = 0;
    for (; in >> handle; ++count) text += " 330 " + handle;
    return "= 1 93 0 97 " + std::to_string(count) + text + " ";
}
std::string circle(const char* radius) {
    return std::string("= 1 93 1 72 2 10 1 20 2 40 ") + radius + " 50 0 51 360 73 1 97 0 ";
}

const std::string kSquare =
    "= 1 93 4 72 1 10 0 20 0 11 4 21 0 72 1 10 4 20 0 11 4 21 4 72 1 10 4 20 4 11 0 21 4 72 1 10 0 20 4 11 0 "
    "21 0 97 0 ";
const std::string kHalfDisk = "= 1 93 2 72 2 10 0 20 0 40 2 50 0 51 180 73 1 72 1 10 -2 20 0 11 2 21 0 97 0 ";
const std::string kHalfEllipse =
    "= 1 93 2 72 3 10 0 20 0 11 0 21 2 40 0.5 50 0 51 180 73 1 72 1 10 0 20 -2 11 0 21 2 97 0 ";
const std::string kPolyline = "= 3 72 1 73 1 93 2 10 0 20 0 42 1 10 2 20 0 42 1 97 0 ";
const std::string kSpline =
    "= 1 93 2 72 4 94 1 73 0 74 0 95 5 96 3 40 0 40 0 40 1 40 2 40 2 10 0 20 0 10 4 20 0 10 4 20 4 72 1 10 4 "
    "20 4 11 0 21 0 97 0 ";

const std::string kRings =
    "CIRCLE 5 A1 10 0 20 0 30 0 40 3\nCIRCLE 5 A2 10 0 20 0 30 0 40 2\nCIRCLE 5 A3 10 0 20 0 30 0 40 1\n"
    "LINE 5 A4 10 0 20 0 30 0 11 3 21 0 31 0\nLINE 5 A5 10 0 20 0 30 0 11 0 21 4 31 0\n"
    "LINE 5 A6 10 0 20 4 30 0 11 3 21 0 31 0\n";

/// The shape of the last record, which must be the drawing's hatch.
kernel::Shape last_shape(const Import& import) {
    const auto record = import.record(import.section()->Objects->Length());
    return shape_result(import.process->Find(record.get()).get());
}

TEST(TranslateHatch, Measures) {
    const test::MeasureRow rows[] = {
        {hatch(circle("3")), "face", 6 * pi, 9 * pi, {-2, -1, 0}, {4, 5, 0}},
        {hatch(circle("3"), "10 0 20 0 30 5 210 0 220 0 230 -2"),
         "face",
         6 * pi,
         9 * pi,
         {-4, -1, 5},
         {2, 5, 5}},
        {hatch(kSquare), "wire: 4 edges", 16, 0, {0, 0, 0}, {4, 4, 0}},
        {hatch(kHalfEllipse), "wire: 2 edges", 4 + 4.8442241102738377, 0, {-1, -2, 0}, {0, 2, 0}},
        {hatch(circle("3") + circle("2")), "face", 10 * pi, 5 * pi, {-2, -1, 0}, {4, 5, 0}},
        {hatch(circle("1") + circle("3") + circle("2")),
         "compound: 2 faces",
         12 * pi,
         6 * pi,
         {-2, -1, 0},
         {4, 5, 0}},
        {hatch(kHalfDisk + circle("6")), "face: 3 edges", 4 + 14 * pi, 34 * pi, {-5, -4, 0}, {7, 8, 0}},
        {hatch(circle("3"), "10 0 20 0 30 0 210 0 220 0 230 1", 0),
         "null",
         0,
         0,
         {},
         {},
         "A hatch that is not solid is not translated"},
        {hatch(kPolyline), "null", 0, 0, {}, {}, "1 parts of the hatch's boundary are not translated"},
        {hatch(sources("77 78")), "null", 0, 0, {}, {}, "1 parts of the hatch's boundary are not translated"},
        {hatch(circle("3"), "10 0 20 0 30 0 210 0 220 0 230 0"),
         "null",
         0,
         0,
         {},
         {},
         "The hatch is not translated: A direction has zero length"},
    };
    test::expect_measures(rows);
    EXPECT_NEAR(kernel::area(Import(hatch(circle("3")), "$INSUNITS 70 1").shape), 9 * pi, 1e-9);  // as stored
}

TEST(TranslateHatch, LoopsOfEntities) {
    const struct {
        std::string loops;
        std::string kind;
        double area;
        std::string message;
    } rows[] = {
        {sources("A1"), "face", 9 * pi, ""},
        {sources("A1") + sources("A2"), "face", 5 * pi, ""},
        {sources("A3") + sources("A2") + sources("A1"), "compound: 2 faces", 6 * pi, ""},
        {sources("A4 A5 A6"), "face: 3 edges", 6, ""},
        {sources("A4 A5"), "null", 0, "A loop of the hatch bounds no face: The wire is not closed"},
        {sources("A1") + sources("A4"), "face", 9 * pi,
         "A loop of the hatch bounds no face: The wire is not closed"},
        {sources("A7"), "null", 0, "1 parts of the hatch's boundary are not translated"},  // itself
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.loops);
        const Import import(kRings + "HATCH 5 A7" + hatch(row.loops).substr(5));
        EXPECT_EQ(import.message(), row.message);
        EXPECT_EQ(test::described(last_shape(import), row.kind), row.kind);
        EXPECT_NEAR(last_shape(import).is_null() ? 0 : kernel::area(last_shape(import)), row.area, 1e-7);
    }
}

TEST(TranslateHatch, TheParameterAsksForAllFaces) {
    DxfFile::Init();  // registers the parameter
    StaticParameters::SetInteger("read.dxf.hatchentities", 1);
    const std::string clockwise =
        "= 1 93 2 72 2 10 0 20 0 40 2 50 270 51 360 73 0 72 1 10 0 20 2 11 2 21 0 97 0 ";
    const std::string slice =  // of an ellipse, up to where its points have equal co-ordinates
        "= 1 93 3 72 3 10 0 20 0 11 4 21 0 40 0.5 50 0 51 45 73 1 72 1 10 1.7888543819998318 20 "
        "1.7888543819998317 11 0 21 0 72 1 10 0 20 0 11 4 21 0 97 0 ";
    const test::MeasureRow rows[] = {
        {hatch(kSquare), "face: 4 edges", 16, 16, {0, 0, 0}, {4, 4, 0}},
        {hatch(kPolyline, "10 0 20 0 30 1 210 0 220 0 230 1", 0), "face", 2 * pi, pi, {0, -1, 1}, {2, 1, 1}},
        {hatch(kSquare, "10 0 20 0 30 3 210 0 220 -1 230 0"),
         "face: 4 edges",
         16,
         16,
         {0, -3, 0},
         {4, -3, 4}},
        {hatch(kSpline), "face: 2 edges", 8 + 4 * std::sqrt(2), 8, {0, 0, 0}, {4, 4, 0}},
        {hatch(clockwise), "face: 2 edges", pi + 2 * std::sqrt(2), pi - 2, {0, 0, 0}, {2, 2, 0}},
        {hatch(slice),
         "face: 3 edges",
         9.568342750980289,
         4 * std::atan(2),
         {0, 0, 0},
         {4, 1.7888543819998317, 0}},
        {hatch(kSquare + sources("A1")), "face: 4 edges", 16, 16, {0, 0, 0}, {4, 4, 0}},
    };
    test::expect_measures(rows);
    test::expect_scaled_by_inch(rows[1].record);
    StaticParameters::SetInteger("read.dxf.hatchentities", 0);
}

}  // namespace
}  // namespace veltrane
