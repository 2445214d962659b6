#include "veltrane/control/actor_write.hpp"
#include "veltrane/control/reader.hpp"
#include "veltrane/control/writer.hpp"

#include "support/drawing.hpp"
#include "veltrane/data/translate_object.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace veltrane {
namespace {

using kernel::ShapeKind;
using test::Import;

const std::string kLine = "LINE 10 0 20 0 30 0 11 1 21 0 31 0\n";

/// A file that lives for one test.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& text = {})
        : name_((std::filesystem::temp_directory_path() / ("veltrane-" + std::to_string(::getpid()) + ".dxf"))
                    .string()) {
        std::ofstream(name_) << text;
    }
    ~TemporaryFile() { std::filesystem::remove(name_); }
    const std::string& name() const { return name_; }

private:
    std::string name_;
};

/// Sets a parameter for one test.
class Setting {
public:
    Setting(std::string name, const std::string& value) : name_(std::move(name)) {
        DxfControl_Controller::Init();
        before_ = StaticParameters::TextValue(name_);
        EXPECT_EQ(StaticParameters::SetText(name_, value), "");
    }
    ~Setting() { StaticParameters::SetText(name_, before_); }

private:
    std::string name_;
    std::string before_;
};

TEST(Parameters, DefaultsAndValues) {
    DxfControl_Controller::Init();
    struct Row {
        const char* name;
        const char* value;
        int integer;
    };
    for (const Row& row : {Row{"write.dxf.version", "R14", 14}, Row{"read.dxf.insunits.scale", "On", 1},
                           Row{"read.dxf.anonymous.blocks", "On", 1}, Row{"read.dxf.textentities", "Off", 0},
                           Row{"read.dxf.hatchentities", "Off", 0}, Row{"write.dxf.resource.name", "DXF", 0},
                           Row{"read.dxf.resource.name", "DXF", 0}, Row{"write.dxf.sequence", "ToDXF", 0},
                           Row{"read.dxf.sequence", "FromDXF", 0}}) {
        EXPECT_EQ(StaticParameters::TextValue(row.name), row.value) << row.name;
        EXPECT_EQ(StaticParameters::IntegerValue(row.name), row.integer) << row.name;
    }
    EXPECT_EQ(StaticParameters::RealValue("write.dxf.deflection.factor"), 0.05);
    const Setting version("write.dxf.version", "R2010");
    EXPECT_EQ(StaticParameters::IntegerValue("write.dxf.version"), 18);
}

TEST(Controller, ASettingSurvivesFurtherControllers) {
    const Setting scale("read.dxf.insunits.scale", "Off");
    const DxfControl_Controller another;
    DxfControl_Controller::Init();
    EXPECT_EQ(StaticParameters::IntegerValue("read.dxf.insunits.scale"), 0);
}

TEST(Controller, ANewDrawingNamesItsProducer) {
    DxfControl_Controller::Init();
    const auto model = as<DxfSection_Model>(ExchangeController::Recorded("DXF")->NewModel());
    const auto comment = model->DxfFile()->Comment;
    ASSERT_EQ(length(comment), 4);
    EXPECT_EQ(comment->Value(1).str(), std::string(44, '*'));
    EXPECT_EQ(comment->Value(2), "*** DXF file produced by Veltrane 7.6");
    std::string date = comment->Value(3).str();
    std::replace_if(
        date.begin(), date.end(), [](char c) { return c >= '0' && c <= '9'; }, '9');
    EXPECT_EQ(date, "*** Date: 9999-99-99T99:99:99");
    EXPECT_EQ(comment->Value(4), comment->Value(1));
}

TEST(Actor, OneRecordManyRecordsNone) {
    struct Row {
        const char* what;
        std::string records;
        const char* kind;  // empty for no shape
        std::size_t members;
    };
    const Row rows[] = {
        {"nothing", "", "", 0},
        {"a line", kLine, "edge", 2},
        {"two lines", kLine + kLine, "compound", 2},
        {"a line and what has no translator", kLine + "ATTDEF 10 0\nVIEWPORT 10 0\n", "compound", 1},
        {"only what has no translator", "ATTDEF 10 0\nVIEWPORT 10 0\n", "", 0},
        {"a bad line and a good one", "LINE 10 0 11 0\n" + kLine, "compound", 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const Import import(row.records);
        ASSERT_EQ(import.shape.is_null(), !*row.kind);
        if (import.shape.is_null()) continue;
        EXPECT_EQ(kernel::name_of(import.shape.kind()), row.kind);
        EXPECT_EQ(kernel::child_count(import.shape), row.members);
        const auto bound = import.process->Find(import.section().get());
        EXPECT_EQ(bool(bound), import.shape.is(ShapeKind::Compound));
    }
}

TEST(Actor, ARecordAlone) {
    Import import(kLine + "ATTDEF 10 0\n");
    DxfControl_ActorRead actor;
    EXPECT_TRUE(actor.Recognize(import.record(1)));
    EXPECT_FALSE(actor.Recognize(import.record(2)));
    EXPECT_TRUE(actor.Recognize(import.section()));
    EXPECT_FALSE(actor.Recognize(import.model));
    EXPECT_FALSE(actor.Recognize(nullptr));
    const auto binder = actor.Transfer(import.record(1), import.process, Progress());
    EXPECT_TRUE(shape_result(binder.get()).is(ShapeKind::Edge));
    EXPECT_EQ(actor.Transfer(import.record(2), import.process, Progress()), nullptr);
    EXPECT_EQ(actor.Transfer(import.model, import.process, Progress()), nullptr);
    EXPECT_EQ(actor.Transfer(import.section(), make<ReadProcess>(), Progress()), nullptr);
}

struct Patience : ProgressListener {
    explicit Patience(int steps) : left(steps) {}
    void Show(double, std::string_view) override {}
    bool UserBreak() override { return left-- <= 0; }
    int left;
};

TEST(Actor, AStoppedTransferGivesNothing) {
    Import import(kLine + kLine + kLine);
    for (const auto& [patience, translated] : {std::pair(2, false), std::pair(3, true)}) {
        Patience listener(patience);
        const auto binder =
            DxfControl_ActorRead().Transfer(import.section(), import.process, Progress(listener));
        EXPECT_EQ(bool(binder), translated) << patience;
    }
}

TEST(Actor, UnitOfTheDrawing) {
    struct Row {
        const char* header;
        double scale;
        bool message;
    };
    std::vector<std::string> sent;
    auto before =
        default_message_channel()->SetSink([&](std::string_view text, Gravity) { sent.emplace_back(text); });
    for (const Row& row :
         {Row{"", 1, false}, Row{"$INSUNITS 70 1", 25.4, false}, Row{"$INSUNITS 70 +6", 1000, false},
          Row{"$INSUNITS 70 21", 1, true}, Row{"$INSUNITS 70 -1", 1, true}, Row{"$INSUNITS 70 abc", 1, false},
          Row{"$INSUNITS 70 1.5", 1, false}, Row{"$INSUNITS 70 99999999999", 1, false}}) {
        SCOPED_TRACE(row.header);
        sent.clear();
        const Import import(kLine, row.header);
        EXPECT_NEAR(kernel::length(import.shape), row.scale, 1e-9);
        EXPECT_EQ(import.model->UnitScale(), row.scale);
        EXPECT_EQ(sent.size(), row.message ? 1u : 0u);
        if (row.message) {
            EXPECT_EQ(sent[0], "DxfControl_ActorRead : initInsunitsScale : Incorrect Unit ID");
        }
        EXPECT_EQ(import.message(), "");
    }
    default_message_channel()->SetSink(std::move(before));
}

TEST(Actor, WithTheParameterOffTheDrawingsOwnScaleCounts) {
    const Setting off("read.dxf.insunits.scale", "Off");
    const auto model = test::read_drawing(test::file_text(kLine, "$INSUNITS 70 1"));
    model->SetUnitScale(2.5);
    DxfData_TransferContext context{make<ReadProcess>()};
    DxfControl_ActorRead::initInsunitsScale(context, *model);
    EXPECT_EQ(context.UnitScale(), 2.5);
}

TEST(Actor, VersionOfTheDrawing) {
    struct Row {
        const char* header;
        int version;
    };
    for (const Row& row :
         {Row{"", 1021}, Row{"$ACADVER 1 AC1009", 1009}, Row{"$ACADVER 1 AC1032", 1032},
          Row{"$ACADVER 1 AC", 1021}, Row{"$ACADVER 1 A", 1021}, Row{"$ACADVER 1 ACxyz", 1021},
          Row{"$ACADVER 1 \xC3\xA9"
              "1015",
              1021},
          Row{"$ACADVER 1 AC99999999999", 1021}}) {
        DxfData_TransferContext context{make<ReadProcess>()};
        DxfControl_ActorRead::initDXFVersion(context, *test::read_drawing(test::file_text("", row.header)));
        EXPECT_EQ(context.DxfVersion(), row.version) << row.header;
    }
}

TEST(Actor, CodePageOfTheDrawing) {
    struct Row {
        const char* header;
        CodePage page;
        const char* family;
        const char* message;
    };
    for (const Row& row : {Row{"", CodePage::Iso8859_1, "", ""},
                           Row{"$DWGCODEPAGE 3 ansi_1250", CodePage::Windows1250, "", ""},
                           Row{"$DWGCODEPAGE 3 BIG5", CodePage::Big5, "cjk", ""},
                           Row{"$DWGCODEPAGE 3 ansi_949", CodePage::Iso8859_1, "",
                               "Unsupported code page specified by variable $DWGCODEPAGE: ansi_949"}}) {
        const Import import("", row.header);
        EXPECT_EQ(import.message(), row.message);
        if (*row.message) {
            EXPECT_EQ(import.process->Reports()[0].Record, import.model->FindVariable("$DWGCODEPAGE", false));
        }
        DxfData_TransferContext context{make<ReadProcess>()};
        DxfControl_ActorRead::initCodePage(context, *import.model);
        EXPECT_EQ(context.GetCodePage(), row.page);
        EXPECT_EQ(context.FontFamily(), row.family);
    }
}

TEST(Reader, FromAFileToOneShape) {
    const TemporaryFile file(test::file_text(kLine + kLine, "$INSUNITS 70 1"));
    DxfControl_Reader reader;
    EXPECT_EQ(reader.NbRootsForTransfer(), 0);
    ASSERT_EQ(reader.ReadFile(file.name()), ExchangeStatus::Done);
    EXPECT_EQ(reader.NbRootsForTransfer(), 1);
    EXPECT_EQ(reader.TransferRoots(), 1);
    EXPECT_NEAR(kernel::length(reader.OneShape()), 50.8, 1e-12);
    EXPECT_EQ(reader.TransferRoots(), 1);
    EXPECT_EQ(kernel::child_count(reader.OneShape()), 2u);  // the same drawing twice

    Patience none(0);
    EXPECT_EQ(reader.TransferEntity(reader.RootForTransfer(1), Progress(none)), ExchangeStatus::Stop);
    EXPECT_EQ(reader.TransferEntity(nullptr), ExchangeStatus::Void);
    EXPECT_EQ(reader.TransferEntity(make<ReadProcess>()), ExchangeStatus::Fail);

    EXPECT_EQ(reader.ReadFile(file.name() + ".missing"), ExchangeStatus::Error);
    EXPECT_NE(reader.Problem().find(".missing"), std::string::npos) << reader.Problem();
    EXPECT_EQ(reader.NbRootsForTransfer(), 0);
    EXPECT_TRUE(reader.OneShape().is_null());
}

TEST(Reader, RootsAreCounted) {
    const TemporaryFile file(test::file_text(""));
    auto session = make<ExchangeSession>();
    DxfControl_Reader reader(session);
    ASSERT_EQ(reader.ReadFile(file.name()), ExchangeStatus::Done);
    EXPECT_EQ(reader.NbRootsForTransfer(), 1);  // an empty section is a root
    EXPECT_EQ(reader.TransferRoots(), 0);
    session->SetModel(make<DxfSection_Model>());
    EXPECT_EQ(reader.NbRootsForTransfer(), 1);
    EXPECT_EQ(reader.ComputeRoots(true), 0);
}

struct ThrowingTranslator : Typed<ThrowingTranslator, DxfData_TranslateObject> {
    static constexpr const char* kTypeName = "ThrowingTranslator";
    Ref<DxfData_GeometrySequence> MakeGeometry(DxfData_TransferContext&, const Ref<DxfSection_Object>&,
                                               double&, kernel::Vector&) const override {
        throw std::out_of_range("no such thing");
    }
};

TEST(Reader, WhatATranslatorThrowsBecomesAFail) {
    const TemporaryFile file(test::file_text("UCS 2 name"));
    DxfControl_Reader reader;
    DxfData_TranslateObject::RegisterTool(DxfSection_Object::type(), make<ThrowingTranslator>());
    ASSERT_EQ(reader.ReadFile(file.name()), ExchangeStatus::Done);
    EXPECT_EQ(reader.TransferRoots(), 0);
    DxfData_TranslateObject::UnRegisterTool(DxfSection_Object::type());
    ASSERT_EQ(reader.Process()->Reports().size(), 1u);
    EXPECT_EQ(reader.Process()->Reports()[0].Messages.Fails()[0].text(), "no such thing");
}

TEST(Writer, ADrawingReadIsWrittenFromItsSession) {
    const TemporaryFile file(test::file_text(kLine));
    auto session = make<ExchangeSession>();
    DxfControl_Reader reader(session);
    ASSERT_EQ(reader.ReadFile(file.name()), ExchangeStatus::Done);
    DxfControl_Writer writer(session, false);
    EXPECT_EQ(writer.Model(), reader.Model());
    ASSERT_EQ(writer.WriteFile(file.name()), ExchangeStatus::Done) << writer.Problem();
    DxfControl_Reader again;
    ASSERT_EQ(again.ReadFile(file.name()), ExchangeStatus::Done);
    EXPECT_EQ(again.TransferRoots(), 1);
    EXPECT_EQ(as<DxfSection_Model>(again.Model())->GetVariableString("$ACADVER"), "AC1014");
}

struct OtherModel : Typed<OtherModel, ExchangeModel> {
    static constexpr const char* kTypeName = "OtherModel";
    void ClearHeader() override {}
    void ClearLabels() override {}
    void GetFromAnother(const ExchangeModel&) override {}
    Ref<ExchangeModel> NewEmptyModel() const override { return make<OtherModel>(); }
    void DumpHeader(std::ostream&, int) const override {}
    void PrintLabel(const Transient*, std::ostream&) const override {}
    Text StringLabel(const Transient*) const override { return {}; }
    int NextNumberForLabel(std::string_view, int, bool) const override { return 0; }
};

TEST(Writer, AModelOfAnotherNormIsReplaced) {
    auto session = make<ExchangeSession>();
    session->SetModel(make<OtherModel>());
    const DxfControl_Writer writer(session, false);
    const auto model = as<DxfSection_Model>(session->Model());
    ASSERT_TRUE(model);
    EXPECT_EQ(length(model->DxfFile()->Comment), 4);
}

TEST(Writer, FailuresAreTold) {
    DxfControl_Writer writer;
    EXPECT_EQ(writer.Transfer({}), ExchangeStatus::Void);
    const kernel::Shape edge = kernel::make_edge({0, 0, 0}, {1, 0, 0});
    EXPECT_EQ(writer.Transfer(edge), ExchangeStatus::Fail);
    ASSERT_EQ(writer.Process()->Reports().size(), 1u);
    EXPECT_TRUE(kernel::is_equal(writer.Process()->Reports()[0].Key->Value(), edge));
    EXPECT_EQ(writer.WriteFile("/dev/full"), ExchangeStatus::Error);
    EXPECT_NE(writer.Problem().find("No space left"), std::string::npos) << writer.Problem();
}

}  // namespace
}  // namespace veltrane
