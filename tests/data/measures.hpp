// What tests of translators look at: kinds and numbers of sub-shapes, length, area and box.
#pragma once

#include "support/drawing.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/algo/check.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <gtest/gtest.h>

#include <span>
#include <string>

namespace veltrane::test {

/// "edge", or "shell: 4 faces, 12 edges": the kind, and how many different sub-shapes it has of the kinds
/// that the expected text names.
inline std::string described(const kernel::Shape& shape, const std::string& expected) {
    using kernel::ShapeKind;
    if (shape.is_null()) return "null";
    std::string text(kernel::name_of(shape.kind()));
    std::string list;
    for (const ShapeKind kind : {ShapeKind::Solid, ShapeKind::Shell, ShapeKind::Face, ShapeKind::Wire,
                                 ShapeKind::Edge, ShapeKind::Vertex}) {
        const std::string plural = kind == ShapeKind::Vertex ? "vertices" : std::string(name_of(kind)) + "s";
        if (expected.find(" " + plural) == std::string::npos) continue;
        const std::size_t count = kernel::distinct_sub_shapes(shape, kind).size();
        list += (list.empty() ? ": " : ", ") + std::to_string(count) + " " + plural;
    }
    return text + list;
}

/// A drawing and what comes of it. Edges shared by faces count once in the length.
struct MeasureRow {
    std::string record;
    std::string kind;
    double length;
    double area;
    kernel::Point min;
    kernel::Point max;
    std::string message = {};
    std::string blocks = {};
};

/// The length of every different edge, also of those that faces of a compound share.
inline double length_of_edges(const kernel::Shape& shape) {
    double sum = 0;
    for (const kernel::Shape& edge : kernel::distinct_sub_shapes(shape, kernel::ShapeKind::Edge)) {
        sum += kernel::length(edge);
    }
    return sum;
}

/// Shapes are sound; only the wire of parallel lines may be in pieces.
inline void expect_measures(std::span<const MeasureRow> rows, bool is_whole = true) {
    for (const MeasureRow& row : rows) {
        SCOPED_TRACE(row.blocks + row.record);
        const Import import(row.record, {}, row.blocks);
        EXPECT_EQ(import.message(), row.message);
        EXPECT_EQ(described(import.shape, row.kind), row.kind);
        if (import.shape.is_null()) continue;
        for (const kernel::Finding& finding : kernel::check(import.shape)) {
            if (is_whole || finding.flaw != kernel::Flaw::BrokenWire) ADD_FAILURE() << message(finding.flaw);
        }
        EXPECT_NEAR(length_of_edges(import.shape), row.length, 1e-7);
        EXPECT_NEAR(kernel::area(import.shape), row.area, 1e-7);
        const kernel::Box box = kernel::bounding_box(import.shape);
        EXPECT_LT((box.min() - row.min).norm(), 1e-6) << box.min().transpose();
        EXPECT_LT((box.max() - row.max).norm(), 1e-6) << box.max().transpose();
    }
}

/// A drawing in inches gives the shape of a drawing without units, 25.4 times as large.
inline void expect_scaled_by_inch(const std::string& record, const std::string& blocks = {}) {
    SCOPED_TRACE(record);
    const Import plain(record, {}, blocks);
    const Import inch(record, "$INSUNITS 70 1", blocks);
    ASSERT_FALSE(plain.shape.is_null());
    EXPECT_NEAR(25.4 * length_of_edges(plain.shape), length_of_edges(inch.shape), 1e-6);
    const kernel::Box small = kernel::bounding_box(plain.shape);
    const kernel::Box large = kernel::bounding_box(inch.shape);
    EXPECT_LT((25.4 * small.min() - large.min()).norm(), 1e-5);
    EXPECT_LT((25.4 * small.max() - large.max()).norm(), 1e-5);
}

}  // namespace veltrane::test
