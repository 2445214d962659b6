#include "veltrane/output/style.hpp"

#include "drawing.hpp"
#include "veltrane/output/colour.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

TEST(Palette, HoldsTheColoursOfTheFormat) {
    struct Row {
        int number;
        const char* on_white;
        const char* on_black;
    };
    const Row rows[] = {
        {1, "#ff0000", "#ff0000"},   {2, "#ffff00", "#ffff00"},   {5, "#0000ff", "#0000ff"},
        {7, "#000000", "#ffffff"},   {8, "#808080", "#808080"},   {9, "#c0c0c0", "#c0c0c0"},
        {10, "#ff0000", "#ff0000"},  {11, "#ff7f7f", "#ff7f7f"},  {12, "#a50000", "#a50000"},
        {23, "#a56752", "#a56752"},  {25, "#7f4f3f", "#7f4f3f"},  {30, "#ff7f00", "#ff7f00"},
        {50, "#ffff00", "#ffff00"},  {90, "#00ff00", "#00ff00"},  {130, "#00ffff", "#00ffff"},
        {170, "#0000ff", "#0000ff"}, {210, "#ff00ff", "#ff00ff"}, {240, "#ff003f", "#ff003f"},
        {250, "#333333", "#333333"}, {255, "#000000", "#ffffff"}, {256, "#000000", "#ffffff"},
        {0, "#000000", "#ffffff"},   {-3, "#000000", "#ffffff"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(hex_text(palette_colour(row.number, Ground::White)), row.on_white) << row.number;
        EXPECT_EQ(hex_text(palette_colour(row.number, Ground::Black)), row.on_black) << row.number;
    }
}

/// Layers: 0 is white, Walls red and 0.5 mm, Off is off, Ice is frozen.
samples::Drawing layered_drawing() {
    samples::Drawing drawing;
    drawing.add_layer("0", 7);
    drawing.add_layer("Walls", 1)->LineWeight = 50;
    drawing.add_layer("Off", -3);
    drawing.add_layer("Ice", 5)->Flag = 1 | 64;
    return drawing;
}

TEST(Style, ResolvesLayerBlockAndVisibility) {
    struct Row {
        const char* layer;
        int colour, lineweight, visibility;
        bool in_insert;
        int expected_colour;
        double expected_weight;
        Hidden hidden;
        const char* expected_layer;
    };
    // The insert stands on Walls, has colour 30 of its own and the weight of its layer.
    const Row rows[] = {
        {"Walls", 256, -1, 0, false, 1, 0.5, Hidden::No, "Walls"},
        {"WALLS", 256, 0, 0, false, 1, 0.5, Hidden::No, "WALLS"},
        {"Walls", 4, 25, 0, false, 4, 0.25, Hidden::No, "Walls"},
        {"Walls", 256, -3, 0, false, 1, 0, Hidden::No, "Walls"},
        {"Walls", 0, -2, 0, false, 7, 0, Hidden::No, "Walls"},
        {"Walls", 0, -2, 0, true, 30, 0.5, Hidden::No, "Walls"},
        {"0", 256, -1, 0, false, 7, 0, Hidden::No, "0"},
        {"0", 256, -1, 0, true, 1, 0.5, Hidden::No, "Walls"},
        {"Nowhere", 256, -1, 0, false, 7, 0, Hidden::No, "Nowhere"},
        {"Off", 256, -1, 0, false, 3, 0, Hidden::LayerOff, "Off"},
        {"Ice", 1, -1, 0, false, 1, 0, Hidden::LayerFrozen, "Ice"},
        {"Ice", 1, -1, 1, false, 1, 0, Hidden::Invisible, "Ice"},
        {"Walls", 1000000, 2000000, 0, false, 7, 10, Hidden::No, "Walls"},
        {"Walls", -2147483647 - 1, -2147483647 - 1, 0, false, 7, 0.5, Hidden::No, "Walls"},
    };
    const LayerStyles layers(*layered_drawing().model);
    DxfSection_Entity insert_record;
    insert_record.Layer = "Walls";
    insert_record.Color = 30;
    const Style insert = resolve_style(insert_record, layers);
    for (const Row& row : rows) {
        DxfSection_Entity record;
        record.Layer = row.layer;
        record.Color = row.colour;
        record.Lineweight = row.lineweight;
        record.Visibility = row.visibility;
        const Style style = resolve_style(record, layers, row.in_insert ? &insert : nullptr);
        const std::string trace = std::string(row.layer) + " colour " + std::to_string(row.colour);
        EXPECT_EQ(style.colour, row.expected_colour) << trace;
        EXPECT_EQ(style.lineweight, row.expected_weight) << trace;
        EXPECT_EQ(style.hidden, row.hidden) << trace;
        EXPECT_EQ(style.layer, row.expected_layer) << trace;
    }
}

TEST(Style, OnlyAFrozenOrInvisibleInsertHidesAllInside) {
    struct Row {
        const char* insert_layer;
        int insert_visibility;
        const char* layer;
        Hidden hidden;
    };
    const Row rows[] = {
        {"Walls", 0, "Walls", Hidden::No},        {"Walls", 1, "Walls", Hidden::Invisible},
        {"Ice", 0, "Walls", Hidden::LayerFrozen}, {"Off", 0, "Walls", Hidden::No},
        {"Off", 0, "0", Hidden::LayerOff},
    };
    const LayerStyles layers(*layered_drawing().model);
    for (const Row& row : rows) {
        DxfSection_Entity insert, record;
        insert.Layer = row.insert_layer;
        insert.Visibility = row.insert_visibility;
        record.Layer = row.layer;
        const Style outer = resolve_style(insert, layers);
        EXPECT_EQ(resolve_style(record, layers, &outer).hidden, row.hidden) << row.insert_layer << row.layer;
    }
}

}  // namespace
}  // namespace veltrane
