#include "veltrane/data/translate_insert.hpp"

#include "data/measures.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/dxf_file.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace veltrane {
namespace {

using kernel::Point;
using kernel::ShapeKind;
using std::numbers::pi;
using test::Import;

std::string block(const std::string& name, const std::string& entities, const std::string& more = "") {
    return "BLOCK 2 " + name + " 70 0 " + more + "\n" + entities + "\nENDBLK\n";
}
std::string insert(const std::string& name, const std::string& more = "") {
    return "INSERT 2 " + name + " " + more + "\n";
}

const std::string kLine = block("L", "LINE 10 1 20 0 30 0 11 3 21 0 31 0");
const std::string kCorner =
    block("C", "LINE 10 1 20 2 30 0 11 4 21 2 31 0\nLINE 10 1 20 2 30 0 11 1 21 6 31 0", "10 1 20 2 30 0");
const std::string kCircle = block("O", "CIRCLE 10 0 20 0 30 0 40 1");
const std::string kUneven = "41 1 42 2 43 1";

TEST(TranslateInsert, Measures) {
    const test::MeasureRow rows[] = {
        {insert("L"), "compound: 1 edges", 2, 0, {1, 0, 0}, {3, 0, 0}, "", kLine},
        {insert("L", "10 10 20 0 30 0 50 90"), "compound: 1 edges", 2, 0, {10, 1, 0}, {10, 3, 0}, "", kLine},
        {insert("L", "10 10 20 0 30 5 210 0 220 0 230 -1"),
         "compound: 1 edges",
         2,
         0,
         {-13, 0, -5},
         {-11, 0, -5},
         "",
         kLine},
        {insert("L", "41 2 42 2 43 2 10 1 20 0 30 0"),
         "compound: 1 edges",
         4,
         0,
         {3, 0, 0},
         {7, 0, 0},
         "",
         kLine},
        {insert("L", "41 -1"), "compound: 1 edges", 2, 0, {-3, 0, 0}, {-1, 0, 0}, "", kLine},
        {insert("L", "41 -2 42 -2 43 2"), "compound: 1 edges", 4, 0, {-6, 0, 0}, {-2, 0, 0}, "", kLine},
        // The base point comes to the insertion point, whatever the factors.
        {insert("C", "10 7 20 8 30 9"), "compound: 2 edges", 7, 0, {7, 8, 9}, {10, 12, 9}, "", kCorner},
        {insert("C", "10 7 20 8 30 9 41 2 42 2 43 2 50 90"),
         "compound: 2 edges",
         14,
         0,
         {-1, 8, 9},
         {7, 14, 9},
         "",
         kCorner},
        {insert("C", "10 7 20 8 30 9 42 -1"), "compound: 2 edges", 7, 0, {7, 4, 9}, {10, 8, 9}, "", kCorner},
        {insert("C", "10 7 20 8 30 9 50 90 " + kUneven),
         "compound: 2 edges",
         11,
         0,
         {-1, 8, 9},
         {7, 11, 9},
         "",
         kCorner},
        // Flattened along z, which a plane block does not mind.
        {insert("L", "41 1 42 1 43 0"), "compound: 1 edges", 2, 0, {1, 0, 0}, {3, 0, 0}, "", kLine},
        {insert("L", "70 3 71 2 44 10 45 5"), "compound: 6 edges", 12, 0, {1, 0, 0}, {23, 5, 0}, "", kLine},
        {insert("L", "70 3 71 1 44 10 50 90"), "compound: 3 edges", 6, 0, {0, 1, 0}, {0, 23, 0}, "", kLine},
        {insert("L", "70 2 44 10 41 -2 42 2 43 2"),
         "compound: 2 edges",
         8,
         0,
         {-16, 0, 0},
         {-2, 0, 0},
         "",
         kLine},
        {insert("L", "70 2 71 2 44 10 45 5 " + kUneven),
         "compound: 4 edges",
         8,
         0,
         {1, 0, 0},
         {13, 10, 0},
         "",
         kLine},
        {insert("L", "70 0 71 0 44 10 45 5"), "compound: 1 edges", 2, 0, {1, 0, 0}, {3, 0, 0}, "", kLine},
        // Scaled inside and outside.
        {insert("P", "41 3 42 3 43 3"),
         "compound: 1 edges",
         12,
         0,
         {6, 0, 0},
         {18, 0, 0},
         "",
         kLine + block("P", insert("L", "41 2 42 2 43 2"))},
        {insert("P", kUneven),
         "compound: 1 edges",
         4,
         0,
         {0, 2, 0},
         {0, 6, 0},
         "",
         kLine + block("P", insert("L", "50 90"))},
        {insert("L", "66 1") + "ATTRIB 10 0 20 0 30 0 40 1 1 x 2 y\nSEQEND",
         "compound: 1 edges",
         2,
         0,
         {1, 0, 0},
         {3, 0, 0},
         "The attributes of the insert are not translated",
         kLine},
        {insert("L", "70 32000 71 32000 44 10 45 5"),
         "compound: 1 edges",
         2,
         0,
         {1, 0, 0},
         {3, 0, 0},
         "32000 rows of 32000 copies are too many: only the first one is made",
         kLine},
    };
    test::expect_measures(rows);
}

TEST(TranslateInsert, AStretchedCircleIsAnEllipse) {
    const Import import(insert("O", kUneven), {}, kCircle);
    const kernel::Box box = kernel::bounding_box(import.shape);
    EXPECT_LT((box.max() - Point(1, 2, 0)).norm(), 1e-9) << box.max().transpose();
    const auto edge = kernel::distinct_sub_shapes(import.shape, ShapeKind::Edge).front();
    EXPECT_EQ(kernel::edge_geometry(edge).curve->kind(), kernel::CurveKind::Ellipse);
}

TEST(TranslateInsert, InsertsShareWhatTheyPlace) {
    for (const std::string scale : {"", "41 2 42 2 43 2", "41 -1", "41 1 42 2"}) {
        SCOPED_TRACE(scale);
        const Import import(insert("O", "10 5 20 0 30 0 50 30 " + scale) + insert("O", scale), {}, kCircle);
        const auto members = kernel::own_children(import.shape);
        ASSERT_EQ(members.size(), 2u);
        EXPECT_TRUE(kernel::is_partner(members[0], members[1]));
        EXPECT_FALSE(kernel::is_same(members[0], members[1]));
    }
    // A block that is placed as it is keeps its own shape, bound to its record.
    const Import import(insert("O", "10 5 20 0 30 0"), {}, kCircle);
    const auto bound = shape_result(import.process->Find(import.model->FindBlock("O").get()).get());
    EXPECT_TRUE(kernel::is_partner(bound, import.shape));
}

TEST(TranslateInsert, WhatGivesNoShape) {
    const std::string line = "LINE 10 0 20 0 30 0 11 1 21 0 31 0\n";
    const struct {
        std::string blocks, entities, message;
        std::size_t edges;
    } rows[] = {
        {kLine, insert("l") + line, "There is no block \"l\"", 1},
        {block("A", line + insert("A")), insert("A") + line, "The block is inserted into itself", 2},
        {block("A", line + insert("B")) + block("B", line + insert("A", "10 0 20 9 30 0")),
         insert("A") + insert("B"), "The block is inserted into itself", 3},
        {block("A", ""), insert("A") + line, "", 1},
        {kLine, insert("L", "41 0 42 0 43 0") + line,
         "The block cannot be placed: A matrix is not a rotation or mirror with one scale", 1},
        {kLine, insert("L", "41 1e200") + line, "The block cannot be placed: A scale factor is out of range",
         1},
        {block("A", "LINE 10 0 20 0 30 0 11 0 21 0 31 1\n" + line), insert("A", "43 0") + line,
         "1 shapes of the block cannot be scaled", 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.blocks + row.entities);
        const Import import(row.entities, {}, row.blocks);
        EXPECT_EQ(import.message(), row.message);
        EXPECT_EQ(kernel::sub_shapes(import.shape, ShapeKind::Edge).size(), row.edges);
    }
}

TEST(TranslateInsert, AFactorThatIsAlmostOneIsRefused) {
    const std::string almost = "41 1.00000001 42 1.00000001 43 1.00000001";
    try {
        const Import import(insert("L", almost), {}, kLine);
        FAIL();
    } catch (const kernel::DomainError& error) {
        EXPECT_STREQ(error.what(), "Moving with scaling transformation is forbidden");
    }
}

TEST(TranslateInsert, AnonymousBlocksFollowTheirParameter) {
    const std::string blocks = "BLOCK 2 *U1 70 1\nCIRCLE 10 0 20 0 30 0 40 1\nENDBLK\n" +
                               block("A", insert("*U1") + "POINT 10 0 20 0 30 0");
    DxfFile::Init();  // registers the parameter
    for (const int on : {0, 1}) {
        StaticParameters::SetInteger("read.dxf.anonymous.blocks", on);
        const Import direct(insert("*U1"), {}, blocks);
        const Import nested(insert("A"), {}, blocks);
        EXPECT_EQ(direct.shape.is_null(), on == 0);
        EXPECT_EQ(direct.message() + nested.message(), "");
        EXPECT_EQ(kernel::sub_shapes(nested.shape, ShapeKind::Edge).size(), on ? 1u : 0u);
    }
}

TEST(TranslateInsert, BlocksNestTenThousandDeep) {
    std::string blocks;
    for (int depth = 0; depth < 10000; ++depth) {
        const std::string next = depth + 1 < 10000 ? insert("B" + std::to_string(depth + 1), "10 1 20 0 30 0")
                                                   : "CIRCLE 10 0 20 0 30 0 40 1\n";
        blocks += block("B" + std::to_string(depth), next);
    }
    const Import import(insert("B0"), {}, blocks);
    EXPECT_EQ(import.message(), "");
    EXPECT_NEAR(kernel::bounding_box(import.shape).max().x(), 10000, 1e-6);
    // Scaled at every level: the sum of all images is more than a drawing of this size may ask for.
    std::string scaled = blocks;
    for (std::size_t at = 0; (at = scaled.find("10 1 20 0 30 0", at)) != std::string::npos; at += 20) {
        scaled.replace(at, 14, "41 -1 42 1 43 1");
    }
    EXPECT_NE(Import(insert("B0"), {}, scaled).message(), "");
}

TEST(TranslateInsert, BlocksThatDoubleAtEveryLevelStayShared) {
    std::string blocks;
    for (int depth = 0; depth < 40; ++depth) {
        const std::string next = "B" + std::to_string(depth + 1);
        blocks += block("B" + std::to_string(depth), insert(next) + insert(next, "10 1 20 1 30 0 50 10"));
    }
    blocks += block("B40", "CIRCLE 10 0 20 0 30 0 40 1");
    const Import import(insert("B0"), {}, blocks);
    EXPECT_NEAR(kernel::length(import.shape), std::exp2(40) * 2 * pi, 1e3);
    EXPECT_EQ(Import(insert("B0", "41 2"), {}, blocks).message(), "The block is too large to be scaled");
}

TEST(TranslateInsert, EveryLengthIsScaled) {
    test::expect_scaled_by_inch(insert("C", "10 7 20 8 30 9 41 2 70 2 44 10 50 30"), kCorner);
}

}  // namespace
}  // namespace veltrane
