#include "veltrane/file/file_writer.hpp"

#include "support/dxf_text.hpp"
#include "veltrane/ent/curves.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

namespace veltrane {
namespace {

using Writer = DxfFile_FileWriter;

struct UnregisteredRecord : Typed<UnregisteredRecord, DxfSection_Object> {
    static constexpr const char* kTypeName = "UnregisteredRecord";
};

TEST(FileWriter, Groups) {
    struct Row {
        std::function<void(std::ostream&, Writer&)> write;
        std::string text;
    };
    const std::string large(200'000, 'x');
    const Row rows[] = {
        {[](auto& out, Writer& w) { w.WriteString(out, 0, "SECTION"); }, "  0\nSECTION\n"},
        {[](auto& out, Writer& w) { w.WriteString(out, 1071, " a "); }, "1071\n a \n"},
        {[](auto& out, Writer& w) { w.WriteString(out, -1, ""); }, " -1\n\n"},
        {[&](auto& out, Writer& w) { w.WriteString(out, 1, large), w.WriteString(out, 2, "b"); },
         "  1\n" + large + "\n  2\nb\n"},
        {[](auto& out, Writer& w) { w.WriteInteger(out, 70, 0); }, " 70\n   0\n"},
        {[](auto& out, Writer& w) { w.WriteInteger(out, 62, 256); }, " 62\n 256\n"},
        {[](auto& out, Writer& w) { w.WriteInteger(out, 90, -21474); }, " 90\n-21474\n"},
        {[](auto& out, Writer& w) { w.WriteInteger(out, 70, -1); }, " 70\n\n"},
        {[](auto& out, Writer& w) { w.WriteBoolean(out, 290, true); }, "290\n   1\n"},
        {[](auto& out, Writer& w) { w.WriteBoolean(out, 290, false); }, "290\n   0\n"},
        {[](auto& out, Writer& w) { w.WriteReal(out, 40, 2.5); }, " 40\n2.5\n"},
        {[](auto& out, Writer& w) { w.WriteReal(out, 40, -1e100); }, " 40\n\n"},
        {[](auto& out, Writer& w) { w.WriteHex(out, 5, 255); }, "  5\nFF\n"},
        {[](auto& out, Writer& w) { w.WriteHex(out, 5, 0); }, "  5\n0\n"},
        {[](auto& out, Writer& w) { w.WriteHex(out, 330, -1); }, "330\n\n"},
        {[](auto& out, Writer& w) {
             w.WriteXYZ(out, 10, {1, 2, 3});
         },
         " 10\n1.0\n 20\n2.0\n 30\n3.0\n"},
        {[](auto& out, Writer& w) {
             w.WriteXY(out, 110, {1, -0.5});
         },
         "110\n1.0\n120\n-0.5\n"},
        {[](auto& out, Writer& w) { w.WriteObject(out, UnregisteredRecord()); }, ""},
    };
    for (const Row& row : rows) EXPECT_EQ(written_by(1015, row.write), row.text);
}

TEST(FileWriter, WhatCannotBeWritten) {
    struct Row {
        std::function<void(std::ostream&, Writer&)> write;
        const char* text;
        const char* message;
    };
    const double inf = std::numeric_limits<double>::infinity();
    constexpr const char* kNull = "fail: Handle on string is null during writing string group";
    constexpr const char* kNumber = "fail: A number that is not finite is written as 0";
    const Row rows[] = {
        {[](auto& out, Writer& w) { w.WriteText(out, 2, Text()); }, "  2\n\n", kNull},
        {[](auto& out, Writer& w) { w.WriteObject(out, DxfSection_UnrecognizedObject()); }, "  0\n\n", kNull},
        {[=](auto& out, Writer& w) { w.WriteReal(out, 40, inf); }, " 40\n0.0\n", kNumber},
        {[](auto& out, Writer& w) { w.WriteReal(out, 40, std::nan("")); }, " 40\n0.0\n", kNumber},
    };
    for (const Row& row : rows) {
        const auto model = make<DxfSection_Model>();
        EXPECT_EQ(written_by(1015, row.write, model), row.text);
        EXPECT_EQ(messages(&model->GlobalCheck()), Texts{row.message});
    }
}

TEST(FileWriter, FailsReachARecordThatHasAReport) {
    const auto model = make<DxfSection_Model>();
    const auto reported = make<DxfEnt_Line>(), other = make<DxfEnt_Line>();
    model->ChangeCheck(model->AddEntity(reported));
    model->AddEntity(other);
    DxfFile_FileWriter writer(model);
    for (const auto& record : {reported, other}) {
        writer.SetCurrentObject(record.get());
        writer.SendFail("on a record");
    }
    EXPECT_EQ(messages(model->CheckOf(1)), Texts{"fail: on a record"});
    EXPECT_EQ(model->CheckOf(2), nullptr) << "a writer makes no reports";
    EXPECT_EQ(messages(&model->GlobalCheck()), Texts{"fail: on a record"});
}

TEST(FileWriter, VersionNumber) {
    struct Row {
        std::vector<DxfSection_DxfGroup> groups;
        int version;
    };
    const Row rows[] = {{{}, 1015},
                        {{{1, "AC1009"}}, 1009},
                        {{{1, "AC1024"}, {1, "AC1012"}}, 1012},
                        {{{1, "AC1024"}, {2, "AC1012"}}, 1024},
                        {{{1, "AC"}}, 1015},
                        {{{1, Text()}}, 1015},
                        {{{1, "ACxxxx"}}, 1015}};
    for (const Row& row : rows) {
        const auto model = make<DxfSection_Model>();
        model->FindVariable("$ACADVER", true)->Value->items() = row.groups;
        EXPECT_EQ(DxfFile_FileWriter(model).Version(), row.version);
    }
    EXPECT_EQ(DxfFile_FileWriter(make<DxfSection_Model>()).Version(), 1015);
    EXPECT_FALSE(DxfFile_FileWriter(nullptr).Status());
}

TEST(FileWriter, AFailedStreamShowsInTheStatus) {
    std::ostringstream out;
    DxfFile_FileWriter writer(make<DxfSection_Model>());
    EXPECT_TRUE(writer.Status());
    writer.WriteString(out, 0, "EOF");
    out.setstate(std::ios::badbit);
    writer.Flush(out);
    EXPECT_FALSE(writer.Status());
}

// SAT text

std::string sat_groups(const std::string& text) {
    return written_by(1015, [&](std::ostream& out, Writer& writer) { writer.WriteSatData(out, text); });
}

TEST(FileWriter, SatText) {
    struct Row {
        std::string text, groups;
    };
    const std::string n255(255, 'n');
    const Row rows[] = {
        {"", ""},
        {"$end\n", ""},
        {"1 2\n", "  1\nn m\n"},
        {"1 2", "  1\nn m\n"},
        {"A1\n$no more\n1\n", "  1\n^ n\n"},
        {"1\n\n2\n", "  1\nn\n  1\n\n  1\nm\n"},
        {std::string(255, '1') + "\n", "  1\n" + n255 + "\n"},
        {std::string(256, '1') + "\n", "  3\n" + n255 + "\n  1\nn\n"},
        {std::string(600, '1') + "\n",
         "  3\n" + n255 + "\n  3\n" + n255 + "\n  1\n" + std::string(90, 'n') + "\n"},
    };
    for (const Row& row : rows) EXPECT_EQ(sat_groups(row.text), row.groups) << row.text.substr(0, 20);
    EXPECT_EQ(written_by(1015, [](auto& out, Writer& writer) { writer.WriteSatData(out, Text()); }), "");
}

TEST(FileWriter, SatTextReadsBackByteForByte) {
    std::mt19937 random(5);
    for (int round = 0; round < 300; ++round) {
        std::string text;
        for (int line = 0; line < 4; ++line) {
            const std::size_t end = text.size() + 1 + random() % 700;
            text += static_cast<char>('a' + random() % 26);  // neither empty nor an end mark
            while (text.size() < end) {
                const unsigned kind = random() % 10;
                text += kind < 3 ? 'A' : kind < 5 ? ' ' : static_cast<char>('!' + random() % 94);
            }
            text += '\n';
        }
        TextReader from(sat_groups(text) + "0\nEOF\n");
        from.next();
        ASSERT_EQ(from.reader.ReadSatData(from.stream)->text(), text) << "round " << round;
    }
}

}  // namespace
}  // namespace veltrane
