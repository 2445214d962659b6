#include "veltrane/section/model.hpp"

#include "support/dxf_text.hpp"
#include "veltrane/ent/curves.hpp"
#include "veltrane/section/block.hpp"
#include "veltrane/section/handle_text.hpp"
#include "veltrane/section/tables.hpp"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace veltrane {
namespace {

Ref<DxfSection_Section> section(const char* name) {
    auto made = make<DxfSection_Section>();
    if (name) made->Name = name;
    return made;
}

/// A model whose root holds sections of these names ("" for one without a name).
Ref<DxfSection_Model> model_with(std::initializer_list<const char*> names) {
    auto model = make<DxfSection_Model>();
    for (const char* name : names) append(model->DxfFile()->Sections, section(*name ? name : nullptr));
    return model;
}

std::string names_of(const DxfSection_Model& model) {
    std::string names;
    if (!model.DxfFile()->Sections) return "null";
    for (const auto& record : *model.DxfFile()->Sections) {
        names += as<DxfSection_Section>(record.get())->Name.str() + " ";
    }
    return names;
}

template <class Record>
Ref<Record> handled(DxfSection_Model& model, std::int32_t handle) {
    auto record = make<Record>();
    record->Handle = handle;
    model.AddEntity(record);
    return record;
}

TEST(Model, FindSection) {
    struct Row {
        std::initializer_list<const char*> sections;
        const char* name;
        bool create;
        bool found;
        const char* after;
    };
    const Row rows[] = {
        {{}, "HEADER", false, false, "null"},
        {{}, "HEADER", true, true, "HEADER "},
        {{"HEADER", "OBJECTS"}, "ENTITIES", true, true, "HEADER ENTITIES OBJECTS "},
        {{"HEADER", "OBJECTS"}, "ENTITIES", false, false, "HEADER OBJECTS "},
        {{"HEADER", "OBJECTS"}, "ACDSDATA", true, true, "HEADER OBJECTS ACDSDATA "},
        {{"ENTITIES"}, "HEADER", true, true, "HEADER ENTITIES "},
        {{"FOO", "", "ENTITIES"}, "TABLES", true, true, "FOO  TABLES ENTITIES "},
        {{"FOO"}, "FOO", false, false, "FOO "},
        {{"FOO"}, "FOO", true, false, "FOO "},
        {{"header"}, "HEADER", true, true, "header HEADER "},
        {{"OBJECTS", "HEADER"}, "HEADER", false, false, "OBJECTS HEADER "},
    };
    for (const Row& row : rows) {
        const auto model = model_with(row.sections);
        const auto found = model->FindSection(row.name, row.create);
        EXPECT_EQ(static_cast<bool>(found), row.found) << row.after;
        EXPECT_EQ(names_of(*model), row.after);
        EXPECT_TRUE(!found || found->Name == row.name);
    }
}

TEST(Model, Variables) {
    const auto model = make<DxfSection_Model>();
    EXPECT_TRUE(model->GetVariableString("$ACADVER").is_null());
    EXPECT_EQ(names_of(*model), "null") << "looking up creates nothing";

    model->SetVariable("$ACADVER", 1, "AC1015");
    EXPECT_EQ(names_of(*model), "HEADER ");
    EXPECT_EQ(model->GetVariableString("$ACADVER"), "AC1015");
    const auto point = model->FindVariable("$EXTMIN", true);
    EXPECT_TRUE(model->GetVariableString("$EXTMIN").is_null()) << "an empty value list";
    for (int code : {10, 20, 30}) point->Value->Append({code, "0"});
    EXPECT_EQ(model->SetVariable("$EXTMIN", 10, 2.5), point);
    EXPECT_EQ(length(point->Value), 3);
    EXPECT_EQ(point->Value->Value(1).Value, "2.5");
    EXPECT_EQ(point->Value->Value(2).Value, "0");
    EXPECT_EQ(model->SetVariable("$INSUNITS", 70, -4)->Value->Value(1).Value, "-4");
    EXPECT_EQ(model->SetVariable("$EMPTY", 1, "")->Value->Value(1).Value, "");
    EXPECT_EQ(model->FindVariable("ACADVER", false), nullptr);
    EXPECT_EQ(model->FindSection("HEADER", false)->Variables->Length(), 4);
}

TEST(Model, FindTable) {
    const auto model = make<DxfSection_Model>();
    EXPECT_EQ(model->FindTable("LAYER", false), nullptr);
    for (const char* name : {"VPORT", "LTYPE", "STYLE", "LAYER", "APPID"}) {
        EXPECT_EQ(model->FindTable(name, true)->Name, name);
    }
    std::string names;
    for (const auto& table : *model->FindSection("TABLES", false)->Objects) {
        names += as<DxfSection_Table>(table.get())->Name.str() + " ";
    }
    EXPECT_EQ(names, "VPORT LTYPE LAYER STYLE APPID ");
    EXPECT_EQ(model->FindTable("STYLE", false), model->FindTable("STYLE", true));
}

TEST(Model, AssignHandles) {
    struct Row {
        std::vector<std::int32_t> given, assigned;
        const char* seed;
    };
    const Row rows[] = {
        {{1, 0x63, 0}, {1, 0x63, 101}, "65"},
        {{0x1F, 0x1F, 0x200}, {0x1F, 0x201, 0x200}, "201"},
        {{-1, 0, 0x1F}, {101, 102, 0x1F}, "66"},
        {{100}, {100}, ""},
        {{101}, {101}, "65"},
        {{5, 5, 5, 4}, {5, 101, 102, 4}, "66"},
        {{INT32_MAX, INT32_MAX, 0}, {INT32_MAX, -1, 0}, "7FFFFFFF"},  // nothing is left to give
    };
    for (const Row& row : rows) {
        const auto model = make<DxfSection_Model>();
        std::vector<Ref<DxfSection_HandledObject>> records;
        for (std::int32_t handle : row.given) {
            EXPECT_EQ(model->FindByHandle(handle), nullptr);
            records.push_back(handled<DxfEnt_Line>(*model, handle));
            model->AddEntity(section("FOO"));  // takes no handle
        }
        model->AssignHandles();
        for (std::size_t i = 0; i < records.size(); ++i) {
            EXPECT_EQ(records[i]->Handle, row.assigned[i]) << i << " of the row with seed " << row.seed;
            EXPECT_TRUE(row.assigned[i] < 1 || model->FindByHandle(row.assigned[i]) == records[i]);
        }
        EXPECT_EQ(model->GetVariableString("$HANDSEED").str(), row.seed);
        EXPECT_EQ(model->FindByHandle(0x7777), nullptr);
    }
}

TEST(Model, NoHandledRecordLeavesTheSeedAlone) {
    const auto model = model_with({"HEADER"});
    model->AssignHandles();
    model->Update();
    model->AssignHandles();
    EXPECT_EQ(model->FindVariable("$HANDSEED", false), nullptr);
}

TEST(Model, HandlesAreUniqueWhateverTheyWere) {
    std::mt19937 random(7);
    const auto model = make<DxfSection_Model>();
    std::vector<Ref<DxfSection_HandledObject>> records;
    for (int i = 0; i < 5000; ++i) {
        records.push_back(handled<DxfEnt_Point>(*model, static_cast<std::int32_t>(random() % 3000) - 1));
    }
    for (int round = 0; round < 2; ++round) {
        model->AssignHandles();
        std::set<std::int32_t> seen;
        for (const auto& record : records) {
            EXPECT_GT(record->Handle, 0);
            EXPECT_TRUE(seen.insert(record->Handle).second);
            EXPECT_EQ(model->FindByHandle(record->Handle), record);
        }
        EXPECT_EQ(DxfSection::StringToHex(model->GetVariableString("$HANDSEED")), *seen.rbegin());
        records.push_back(handled<DxfEnt_Point>(*model, 0));
    }
}

TEST(Model, LookUpsByName) {
    const auto model = make<DxfSection_Model>();
    const auto layer = handled<DxfSection_Layer>(*model, 1);
    layer->Name = "walls";
    handled<DxfSection_Layer>(*model, 2)->Name = "walls";
    handled<DxfSection_Layer>(*model, 3);  // without a name
    const auto block = handled<DxfSection_Block>(*model, 4);
    block->BlockName1 = "door";
    block->BlockName2 = "gate";
    const auto style = handled<DxfSection_Style>(*model, 5);
    style->Name = "0";

    EXPECT_EQ(model->FindLayer("walls"), layer);
    EXPECT_EQ(model->FindLayer("WALLS"), nullptr);
    EXPECT_EQ(model->FindBlock("door"), block);
    EXPECT_EQ(model->FindBlock("gate"), nullptr);
    EXPECT_EQ(model->FindStyleUsingMap("0"), style);
    EXPECT_EQ(model->FindLayerUsingMap("walls"), layer);
    const auto default_layer = model->FindLayerUsingMap("0");
    ASSERT_TRUE(default_layer);
    EXPECT_EQ(default_layer->Color, 7);
    EXPECT_EQ(model->FindLayer("0"), nullptr) << "the default layer joins no table";

    const auto late = handled<DxfSection_Layer>(*model, 6);
    late->Name = "0";
    EXPECT_EQ(model->FindLayerUsingMap("0"), default_layer) << "the map is filled once";
    model->UpdateEntities();
    EXPECT_EQ(model->FindLayerUsingMap("0"), late);
    model->Clear();
    EXPECT_EQ(model->FindLayerUsingMap("walls"), nullptr);
    EXPECT_EQ(model->FindStyleUsingMap("0"), nullptr);
}

TEST(Model, RecordListAgainstTheTree) {
    DxfFile::Init();
    const auto model = model_with({"TABLES", "ENTITIES"});
    const auto line = make<DxfEnt_Line>();
    append(model->FindSection("ENTITIES", false)->Objects, line);
    append(model->FindSection("ENTITIES", false)->Objects, Ref<DxfSection_Object>());
    append(model->FindTable("LAYER", true)->Objects, make<DxfSection_Layer>());
    EXPECT_EQ(model->NbEntities(), 0);
    model->UpdateEntities();
    EXPECT_EQ(model->NbEntities(), 5);
    EXPECT_EQ(model->Number(line.get()), 5) << "a container stands before its contents";
    model->UpdateEntities();
    EXPECT_EQ(model->NbEntities(), 5);
    model->Update();
    EXPECT_EQ(model->NbEntities(), 2);
    EXPECT_EQ(model->Number(line.get()), 0);

    const auto other = make<DxfSection_Model>();
    other->GetFromAnother(*model);
    EXPECT_EQ(other->DxfFile(), model->DxfFile());
    EXPECT_EQ(as<DxfSection_Model>(other->NewEmptyModel())->DxfFile()->Sections, nullptr);
}

TEST(Model, ARecordHasANumberInEveryModelThatListsIt) {
    const auto one = make<DxfSection_Model>(), two = make<DxfSection_Model>();
    std::vector<Ref<DxfEnt_Line>> lines;
    for (int i = 0; i < 3; ++i) {
        lines.push_back(make<DxfEnt_Line>());
        one->AddEntity(lines.back(), 10 * i);
    }
    two->AddEntity(lines[2]);
    EXPECT_EQ(one->Number(lines[2].get()), 3);
    EXPECT_EQ(two->Number(lines[2].get()), 1);
    EXPECT_EQ(two->Number(lines[0].get()), 0);
    two->Clear();
    EXPECT_EQ(one->Number(lines[2].get()), 3);
    EXPECT_EQ(one->AddEntity(lines[2]), 3);
    EXPECT_EQ(two->Number(lines[2].get()), 0);
    EXPECT_EQ(one->AddEntity(lines[2]), 3) << "listed already";
    EXPECT_EQ(one->AddEntity(nullptr), 0);
    EXPECT_EQ(one->Line(2), 10);
    EXPECT_EQ(one->Line(7), 0);
}

}  // namespace
}  // namespace veltrane
