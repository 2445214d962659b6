#include "veltrane/file/work_library.hpp"
#include "veltrane/section/handle_text.hpp"

#include "veltrane/exchange/file_stream.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/common.hpp"
#include "veltrane/file/file_probe.hpp"
#include "veltrane/file/structure.hpp"
#include "veltrane/section/model.hpp"

#include <ostream>

namespace veltrane {

namespace {

constexpr const char* kRule = "====================";

/// $ACADVER for a value of "write.dxf.version"; null when the drawing's own stays.
const char* version_text(int parameter) {
    switch (parameter) {
        case 12:
            return "AC1009";
        case 13:
            return "AC1012";
        case 14:
            return "AC1014";
        case 15:
            return "AC1015";
        case 16:
            return "AC1018";
        case 17:
            return "AC1021";
        case 18:
            return "AC1024";
        default:
            return nullptr;
    }
}

/// While it lives, $HANDSEED is the first free handle, which it is in files; in a model it is the last one in
/// use.
class FreeHandleSeed {
public:
    explicit FreeHandleSeed(DxfSection_Model& drawing) : drawing_(drawing) {
        const auto variable = drawing.FindVariable("$HANDSEED", false);
        if (!variable || length(variable->Value) != 1) return;
        last_ = variable->Value->Value(1);
        const std::int32_t handle = DxfSection::StringToHex(last_.Value.view());
        if (handle <= drawing.LastHandle() && handle < INT32_MAX) {
            drawing_.SetVariable("$HANDSEED", {last_.Code, DxfSection::HexToString(handle + 1)});
        }
    }
    ~FreeHandleSeed() {
        if (last_.Code >= 0) drawing_.SetVariable("$HANDSEED", last_);
    }
    FreeHandleSeed(const FreeHandleSeed&) = delete;
    FreeHandleSeed& operator=(const FreeHandleSeed&) = delete;

private:
    DxfSection_Model& drawing_;
    DxfSection_DxfGroup last_;
};

}  // namespace

DxfFile_WorkLibrary::DxfFile_WorkLibrary() {
    SetDumpLevels(2, 4);
    SetDumpHelp(0, "Entity Type");
    SetDumpHelp(1, "Entity Type and Name");
    SetDumpHelp(2, "Type, Name, Comment, Number of parameters");
    SetDumpHelp(3, "Description (arrays not expanded)");
    SetDumpHelp(4, "Full Description (arrays are expanded)");
}

int DxfFile_WorkLibrary::ReadFile(const std::string& name, Ref<ExchangeModel>& model,
                                  const Ref<ExchangeProtocol>& /*protocol*/, std::string* problem) const {
    Ref<DxfSection_Model> drawing = as<DxfSection_Model>(model);
    if (drawing) {
        drawing->Clear();
    } else {
        drawing = make<DxfSection_Model>();
    }

    const FileProbe probe = probe_file(name);
    std::string reason = probe.content == FileContent::BinaryDxf ? name + " " + probe.problem : "";
    if (probe.content == FileContent::Unreadable) reason = probe.problem;
    const auto stream = reason.empty() ? open_input_file(name, &reason) : nullptr;
    if (!stream) {
        if (problem) *problem = reason;
        return 1;
    }

    DxfFile_FileReader reader(drawing);
    reader.SetDelimiter(probe.delimiter);
    reader.FillAbsent(true);
    reader.Next(*stream);
    drawing->SetDxfFile(DxfFile_RWDxfFile::Read(*stream, reader));
    drawing->AssignHandles();
    if (!reader.NoError()) drawing->GlobalCheck().AddFail("Error during read of file");
    model = drawing;
    return 0;
}

bool DxfFile_WorkLibrary::WriteFile(WriteContext& context) const {
    const Ref<DxfSection_Model> drawing = as<DxfSection_Model>(context.Model);
    if (!drawing) return false;
    if (const char* version = version_text(StaticParameters::IntegerValue("write.dxf.version"))) {
        drawing->SetVariable("$ACADVER", 1, version);
    }

    const FreeHandleSeed seed(*drawing);
    OutputFile stream(context.FileName);
    if (stream.good()) {
        DxfFile_FileWriter writer(drawing);
        writer.SetPortable(true);
        writer.WriteMarkers(StaticParameters::IntegerValue("write.dxf.r12.markers") != 0);
        DxfFile_RWDxfFile::Write(stream, writer, *drawing->DxfFile());
        if (stream.Close() && writer.Status()) return true;
    }
    context.Report.AddFail(Message::own(stream.problem()));
    return false;
}

void DxfFile_WorkLibrary::DumpEntity(const ExchangeModel* model, const Ref<ExchangeProtocol>& /*protocol*/,
                                     const Transient* record, std::ostream& out, int level) const {
    if (!as<const DxfSection_Model>(model) || !record) return;
    out << kRule << "\nType: " << record->DynamicType().name();
    const auto* object = as<const DxfSection_Object>(record);
    if (!object) {
        out << " (not a DXF entity)";
        return;
    }
    out << '\n';
    if (level > 0) model->PrintLabel(record, out);
    if (level > 1) {
        out << kRule << '\n';
        DxfFile_RWObject::Dump(out, *object, level - 2);
    }
    out << kRule;
}

}  // namespace veltrane
