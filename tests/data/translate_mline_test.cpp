#include "veltrane/data/translate_mline.hpp"

#include "data/measures.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace veltrane {
namespace {

/// An MLINE of two lines, with the numbers of both lines at every vertex.
std::string mline(int flags, const std::vector<std::string>& places, const std::string& numbers,
                  const std::string& last_numbers) {
    std::string text = "MLINE 2 STANDARD 40 1 70 0 71 " + std::to_string(flags) + " 72 " +
                       std::to_string(places.size()) + " 73 2 10 0 20 0 30 0";
    for (const std::string& place : places) {
        text += " " + place + " " + (&place == &places.back() ? last_numbers : numbers);
    }
    return text;
}
const std::string kStart = "11 1 21 2 31 0 12 5 22 0 32 0 13 0 23 3 33 0";
const std::string kEnd = "11 9 21 2 31 0 12 5 22 0 32 0 13 0 23 3 33 0";
const std::string kPlain = "74 1 41 0.5 75 0 74 1 41 -0.5 75 0";

TEST(TranslateMLine, Measures) {
    const std::string dashed = "74 3 41 0.5 41 1 41 2 75 0 74 2 41 -0.5 41 3 75 0";
    const std::string middle = "11 9 21 6 31 0 12 0 22 1 32 0 13 0 23 1 33 0";
    const test::MeasureRow rows[] = {
        {mline(1, {kStart, kEnd}, kPlain, kPlain), "wire: 2 edges", 16, 0, {1, 1.5, 0}, {9, 2.5, 0}},
        // A dash, and one that goes on to the end.
        {mline(1, {kStart, kEnd}, dashed, kPlain), "wire: 2 edges", 1 + 5, 0, {2, 1.5, 0}, {9, 2.5, 0}},
        {mline(1, {kStart, kEnd, middle}, kPlain, kPlain), "wire: 4 edges", 24, 0, {1, 1.5, 0}, {9, 6.5, 0}},
        {mline(3, {kStart, kEnd, middle}, kPlain, kPlain),
         "wire: 6 edges",
         24 + 2 * std::sqrt(80),
         0,
         {1, 1.5, 0},
         {9, 6.5, 0}},
    };
    test::expect_measures(rows, false);
    test::expect_scaled_by_inch(rows[1].record);
}

TEST(TranslateMLine, WhatGivesNoShape) {
    const std::string blind = "11 1 21 2 31 0 12 0 22 0 32 0 13 0 23 0 33 0";
    const struct {
        std::string record;
        const char* message;
    } rows[] = {
        {mline(1, {kStart}, kPlain, kPlain), "Geometry are not translated"},
        {mline(3, {kStart}, kPlain, kPlain), "Geometry are not translated"},
        {mline(1, {kStart, kEnd}, "", ""), "Geometry are not translated"},
        {mline(1, {blind, kEnd}, kPlain, kPlain), "Exception is raised in the createtion of topology"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.record);
        const test::Import import(row.record);
        EXPECT_TRUE(import.shape.is_null());
        EXPECT_EQ(import.message(), row.message);
    }
}

}  // namespace
}  // namespace veltrane
