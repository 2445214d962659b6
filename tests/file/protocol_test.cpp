#include "veltrane/file/protocol.hpp"

#include "support/dxf_text.hpp"
#include "veltrane/ent/curves.hpp"
#include "veltrane/exchange/general_library.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/object_registrator.hpp"
#include "veltrane/section/tables.hpp"

#include <gtest/gtest.h>

#include <map>

namespace veltrane {
namespace {

TEST(Protocol, InitRegistersOnce) {
    DxfFile::Init();
    const auto protocol = DxfFile::Protocol();
    ASSERT_TRUE(protocol);
    const std::size_t count = DxfFile_ObjectRegistrator::All().size();
    DxfFile::Init();
    EXPECT_EQ(DxfFile::Protocol(), protocol);
    EXPECT_EQ(DxfFile_ObjectRegistrator::All().size(), count);
    EXPECT_TRUE(GeneralLibrary(protocol.get()).Module());
    EXPECT_EQ(DxfFile_ObjectRegistrator::Find("Line"), nullptr);
    for (const char* name : {"ENDSEC", "ENDTAB", "EOF", "THUMBNAILIMAGE"}) {
        EXPECT_EQ(DxfFile_ObjectRegistrator::Find(name), nullptr) << name;
    }
    std::map<std::string_view, int> classes;
    for (const auto* registrator : DxfFile_ObjectRegistrator::All()) {
        EXPECT_EQ(DxfFile_ObjectRegistrator::Find(registrator->Name()), registrator);
        EXPECT_EQ(DxfFile_ObjectRegistrator::Find(registrator->RecordType()), registrator);
        EXPECT_EQ(++classes[registrator->RecordType().name()], 1) << registrator->Name();
    }
}

TEST(Protocol, Parameters) {
    DxfFile::Init();
    struct Row {
        const char* name;
        const char* value;
        int integer;
    };
    const Row rows[] = {{"write.dxf.version", "R14", 14},           {"read.dxf.anonymous.blocks", "On", 1},
                        {"read.dxf.textentities", "Off", 0},        {"read.dxf.hatchentities", "Off", 0},
                        {"write.dxf.deflection.factor", "0.05", 0}, {"write.dxf.resource.name", "DXF", 0},
                        {"read.dxf.resource.name", "DXF", 0},       {"write.dxf.sequence", "ToDXF", 0},
                        {"read.dxf.sequence", "FromDXF", 0}};
    for (const ParameterInfo& info : StaticParameters::List()) {
        for (const Row& row : rows) {
            if (info.name != row.name) continue;
            EXPECT_EQ(info.default_value, row.value) << row.name;
            EXPECT_EQ(info.family, kCommonFamily) << row.name;
        }
    }
    for (const Row& row : rows) EXPECT_EQ(StaticParameters::IntegerValue(row.name), row.integer) << row.name;
}

TEST(Protocol, WhatItTells) {
    const DxfFile_Protocol protocol;
    EXPECT_EQ(protocol.NbResources(), 0);
    EXPECT_EQ(protocol.Resource(1), nullptr);
    EXPECT_EQ(protocol.TypeNumber(DxfEnt_Line::type()), 1);
    EXPECT_EQ(protocol.UnknownEntity(), nullptr);
    EXPECT_FALSE(protocol.IsUnknownEntity(make<DxfSection_UnrecognizedObject>().get()));
    EXPECT_TRUE(protocol.IsSuitableModel(protocol.NewModel().get()));
    EXPECT_FALSE(protocol.IsSuitableModel(nullptr));
    EXPECT_NE(protocol.NewModel(), protocol.NewModel());
}

TEST(GeneralModule, SharingFollowsContainment) {
    const DxfFile_GeneralModule module;
    const auto section = make<DxfSection_Section>();
    const auto line = make<DxfEnt_Line>(), last = make<DxfEnt_Line>();
    section->Objects = make<DxfSection_HSequenceOfObject>();
    for (const Ref<DxfEnt_Line>& record : {line, Ref<DxfEnt_Line>(), last}) section->Objects->Append(record);
    struct Row {
        Ref<Transient> record;
        std::vector<const Transient*> shared;
    };
    const Row rows[] = {{section, {line.get(), last.get()}},
                        {line, {}},
                        {make<DxfSection_Section>(), {}},
                        {make<DxfSection_Variable>(), {}}};
    for (const Row& row : rows) {
        EntityIterator found, implied;
        module.FillSharedCase(1, row.record.get(), found);
        module.ListImpliedCase(1, row.record.get(), implied);
        std::vector<const Transient*> shared;
        for (const auto& record : found) shared.push_back(record.get());
        EXPECT_EQ(shared, row.shared);
        EXPECT_EQ(implied.NbEntities(), 0);
    }
}

TEST(GeneralModule, NamesRecordsByTheirLabel) {
    const DxfFile_GeneralModule module;
    const auto table = make<DxfSection_Table>();
    table->Handle = 2;
    table->Name = "LAYER";
    EXPECT_TRUE(module.Name(1, table.get(), ShareTool()).is_null());
    EXPECT_EQ(module.Name(1, table.get(), ShareTool(make<DxfSection_Model>())), "(#2, LAYER)");
    EXPECT_EQ(module.CategoryNumber(1, table.get(), ShareTool()), 1);
    Ref<Transient> made;
    EXPECT_FALSE(module.NewVoid(1, made));
}

}  // namespace
}  // namespace veltrane
