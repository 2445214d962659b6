#include "support/dxf_text.hpp"
#include "veltrane/ent/curves.hpp"
#include "veltrane/section/block.hpp"
#include "veltrane/section/model.hpp"
#include "veltrane/section/tables.hpp"

#include <gtest/gtest.h>

#include <climits>

namespace veltrane {
namespace {

template <class Record, class Set>
Ref<Record> with(Set set) {
    auto record = make<Record>();
    set(*record);
    return record;
}

TEST(ModelLabels, StringLabel) {
    const auto model = make<DxfSection_Model>();
    struct Row {
        Ref<Transient> record;
        const char* label;
    };
    const Row rows[] = {
        {with<DxfEnt_Line>([](auto& line) { line.Handle = 0x2F; }), "#2F"},
        {with<DxfEnt_Line>([](auto&) {}), "#0"},
        {with<DxfEnt_Line>([](auto& line) { line.Handle = -1; }), ""},
        {with<DxfSection_Table>([](auto& table) { table.Handle = 2, table.Name = "LAYER"; }), "(#2, LAYER)"},
        {with<DxfSection_Table>([](auto& table) { table.Handle = -1, table.Name = "LAYER"; }), "LAYER"},
        {with<DxfSection_Block>([](auto& block) { block.Handle = 16, block.BlockName1 = "door"; }),
         "(#10, door)"},
        {with<DxfSection_Layer>([](auto& layer) { layer.Handle = 16, layer.Name = "walls"; }), "#10"},
        {with<DxfSection_Section>([](auto& section) { section.Name = "HEADER"; }), "HEADER"},
        {with<DxfSection_Section>([](auto&) {}), ""},
        {with<DxfSection_Class>([](auto& definition) { definition.DXFName = "WIPEOUT"; }), "WIPEOUT"},
        {with<DxfSection_Variable>([](auto& variable) { variable.Name = "$ACADVER"; }), "$$ACADVER"},
        {with<DxfSection_UnrecognizedObject>([](auto& object) { object.Type = "WIPEOUT"; }), ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(model->StringLabel(row.record.get()), row.label);
        std::ostringstream printed;
        model->PrintLabel(row.record.get(), printed);
        const bool is_record = as<DxfSection_Object>(row.record.get());
        EXPECT_EQ(printed.str(), is_record ? row.label : "");
    }
}

TEST(ModelLabels, NextNumberForLabel) {
    const auto model = make<DxfSection_Model>();
    model->AddEntity(with<DxfSection_Section>([](auto& section) { section.Name = "HEADER"; }));
    model->AddEntity(with<DxfSection_Variable>([](auto& variable) { variable.Name = "$ACADVER"; }));
    model->AddEntity(with<DxfSection_Table>([](auto& table) { table.Handle = 2, table.Name = "LAYER"; }));
    model->AddEntity(with<DxfEnt_Line>([](auto& line) { line.Handle = 0x2F; }));
    model->AddEntity(with<DxfSection_Block>([](auto& block) { block.BlockName1 = "LAYER"; }));
    struct Row {
        const char* label;
        int last;
        int number;
    };
    const Row rows[] = {{"HEADER", 0, 1},     {"HEADER", 1, 0},      {"LAYER", 0, 3},     {"LAYER", 3, 5},
                        {"#2F", 0, 4},        {"#2f", 0, 4},         {"#2F", 4, 0},       {"#2", -7, 3},
                        {"#", 0, 0},          {"$$ACADVER", 0, 2},   {"%$ACADVER", 0, 2}, {"$ACADVER", 0, 0},
                        {"", 0, 0},           {"(#2, LAYER)", 0, 0}, {"LAYER", 5, 0},     {"LAYER", 900, 0},
                        {"LAYER", INT_MAX, 0}};
    for (const Row& row : rows) {
        EXPECT_EQ(model->NextNumberForLabel(row.label, row.last, true), row.number)
            << row.label << " after " << row.last;
    }
}

TEST(ModelLabels, DumpHeader) {
    struct Row {
        const char* comment;
        const char* version;
        const char* measurement;
        const char* text;
    };
    const Row rows[] = {
        {nullptr, nullptr, nullptr, ""},
        {"made by hand", nullptr, nullptr, "        **  COMMENTS :\nmade by hand\n        **\n"},
        {nullptr, "AC1009", "0",
         "        Version Code : AC1009 i.e. DXF-R11/R12\n        Measurement Unit : English i.e. INCH"},
        {nullptr, "AC1015", "     1",
         "        Version Code : AC1015 i.e. DXF-2000/2000i\n        Measurement Unit : Metric  i.e. MM"},
        {nullptr, "AC1018", "2",
         "        Version Code : AC1018 i.e.  (unknown)\n"
         "        Measurement Unit unknown, assumed Metric i.e. MM"},
        {nullptr, nullptr, "1.5", "        Measurement Unit unknown, assumed Metric i.e. MM"},
        {nullptr, nullptr, "mm", "        Measurement Unit unknown, assumed Metric i.e. MM"},
        {nullptr, nullptr, "", "        Measurement Unit unknown, assumed Metric i.e. MM"},
    };
    for (const Row& row : rows) {
        const auto model = make<DxfSection_Model>();
        if (row.comment) append(model->DxfFile()->Comment, row.comment);
        if (row.version) model->SetVariable("$ACADVER", 1, row.version);
        if (row.measurement) model->SetVariable("$MEASUREMENT", 70, row.measurement);
        std::ostringstream out;
        model->DumpHeader(out, 4);
        EXPECT_EQ(out.str(), row.text);
    }
}

}  // namespace
}  // namespace veltrane
