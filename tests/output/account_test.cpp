#include "veltrane/output/account.hpp"

#include "drawing.hpp"
#include "veltrane/ent/curves.hpp"
#include "veltrane/output/shape_text.hpp"
#include "veltrane/section/block.hpp"

#include <gtest/gtest.h>

#include <sstream>

namespace veltrane {
namespace {

std::string dxf_name(const DxfSection_Object& record) {
    if (as<const DxfEnt_Line>(&record)) return "LINE";
    if (as<const DxfEnt_Circle>(&record)) return "CIRCLE";
    return {};
}

const AccountQuestions kQuestions = {&dxf_name, [](const DxfSection_Object& record) {
                                         return as<const DxfEnt_Line>(&record) ||
                                                as<const DxfEnt_Circle>(&record);
                                     }};

Ref<DxfSection_UnrecognizedObject> kept_whole(const char* type) {
    auto record = make<DxfSection_UnrecognizedObject>();
    record->Type = type;
    append(record->Data, DxfSection_DxfGroup{5, "1AF"});
    return record;
}

/// Three lines, of which two gave a shape, a circle without one, a hatch; a block, a layer, a dictionary.
struct Conversion : samples::Drawing {
    Conversion() {
        for (int i = 0; i < 3; ++i) {
            const auto line = add_entity<DxfEnt_Line>(100 + i);
            line->Handle = 0x2E + i;
            line->Layer = "Walls";
            bind(line, i == 1 ? kernel::Shape() : kernel::make_edge({0, 0, 0}, {3, 4, 0}));
            if (i == 1) process->AddFail(line, "Geometry are not translated");
        }
        add_entity<DxfEnt_Circle>(200);
        add_to("ENTITIES", kept_whole("HATCH"), 210);
        add_to("ENTITIES", kept_whole("HATCH"), 220);

        const auto block = make<DxfSection_Block>();
        append(block->Objects, Ref<DxfSection_Object>(make<DxfEnt_Line>()));
        append(block->Objects, Ref<DxfSection_Object>(make<DxfEnt_Line>()));
        block->EndMarker = make<DxfSection_EndBlk>();
        add_to("BLOCKS", block);
        add_layer("Walls", 1);
        add_to("OBJECTS", kept_whole("DICTIONARY"), 300);

        model->GlobalCheck().AddWarning({"Group %d skipped at line %d", 7, 12});
        model->ChangeCheck(1).AddWarning({"Group %d skipped at line %d", 9, 15});
        model->ChangeCheck(4).AddFail("Truncated");
    }
};

TEST(Account, SumsAgreeWithTheDrawing) {
    const Conversion conversion;
    const Account account = make_account(*conversion.model, *conversion.process, kQuestions);
    struct Row {
        const char* type;
        std::size_t read, shape, nothing, no_translator;
    };
    const Row rows[] = {
        {"CIRCLE", 1, 0, 1, 0}, {"HATCH", 2, 0, 0, 2}, {"LINE", 3, 2, 1, 0}, {"total", 6, 2, 2, 2}};
    ASSERT_EQ(account.types.size(), 3u);
    for (int i = 0; i < 4; ++i) {
        const TypeAccount type = i < 3 ? account.types[static_cast<std::size_t>(i)] : account.total();
        EXPECT_EQ(type.type, rows[i].type);
        EXPECT_EQ(type.read, rows[i].read) << type.type;
        EXPECT_EQ(type.shape, rows[i].shape) << type.type;
        EXPECT_EQ(type.nothing, rows[i].nothing) << type.type;
        EXPECT_EQ(type.no_translator, rows[i].no_translator) << type.type;
        EXPECT_EQ(type.read, type.shape + type.nothing + type.no_translator);
    }
    // BLOCK, its lines and end, TABLE, LAYER, DICTIONARY.
    EXPECT_EQ(account.read_elsewhere(), 7u);
    EXPECT_TRUE(account.has_losses());
    EXPECT_EQ(account.count_messages(MessageAccount::Stage::Reading, false), 2u);
    EXPECT_EQ(account.count_messages(MessageAccount::Stage::Reading, true), 1u);
    EXPECT_EQ(account.count_messages(MessageAccount::Stage::Transfer, true), 1u);
    ASSERT_EQ(account.messages.size(), 3u);
    EXPECT_EQ(account.messages[0].count, 2u);
    EXPECT_EQ(account.messages[0].example, "Group 7 skipped at line 12");
}

TEST(Account, TextTellsWhatHappened) {
    const Conversion conversion;
    const std::string text = account_text(make_account(*conversion.model, *conversion.process, kQuestions));
    for (const char* line : {
             "  LINE           3         2         1              .\n",
             "  total          6         2         2              2\n",
             "  LINE, 1: Geometry are not translated\n    #2F line 101\n",
             "  CIRCLE, 1: not transferred\n    line 200\n",
             "  BLOCKS: BLOCK 1, ENDBLK 1\n  BLOCKS, in BLOCK: LINE 2\n",
             "  OBJECTS: DICTIONARY 1\n",
             "Reading: 1 fail, 2 warnings\n",
             "  warning: Group 7 skipped at line 12, and 1 more of this kind\n",
             "  fail: Truncated (CIRCLE line 200)\n",
         }) {
        EXPECT_NE(text.find(line), std::string::npos) << line << "in\n" << text;
    }
}

TEST(Account, ShowsAFewOfManyLostRecords) {
    samples::Drawing drawing;
    for (int i = 0; i < 12; ++i) drawing.bind(drawing.add_entity<DxfEnt_Line>(i + 1), kernel::Shape());
    const Account account = make_account(*drawing.model, *drawing.process, kQuestions);
    EXPECT_EQ(account.lost.size(), 12u);
    EXPECT_NE(account_text(account, 2).find("no reason given\n    line 1\n    line 2\n    and 10 more\n"),
              std::string::npos);
}

TEST(ShapeText, NamesMeasuresAndDumpsEveryShape) {
    Conversion conversion;
    const auto ray = conversion.add_entity<DxfEnt_Line>();
    conversion.bind(ray, samples::ray({0, 0, 0}, {1, 0, 0}));
    std::ostringstream out;
    write_shape_text(out, *conversion.model, *conversion.process, &dxf_name);
    const std::string text = out.str();
    for (const char* part : {
             "LINE #2E, layer Walls, length 5\n  #1 edge",
             "LINE #30, layer Walls, length 5\n",
             "LINE, length unbounded\n",
             "3 shapes, length 10, area 0, not counting 1 unbounded\nbox (0 0 0) to (3 4 0)\n",
         }) {
        EXPECT_NE(text.find(part), std::string::npos) << part << "in\n" << text;
    }
}

}  // namespace
}  // namespace veltrane
