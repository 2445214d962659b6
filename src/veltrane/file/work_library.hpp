// From a file name to a drawing and back.
#pragma once

#include "veltrane/exchange/work_library.hpp"

namespace veltrane {

class DxfFile_WorkLibrary : public Typed<DxfFile_WorkLibrary, ExchangeWorkLibrary> {
public:
    static constexpr const char* kTypeName = "DxfFile_WorkLibrary";

    DxfFile_WorkLibrary();

    /// 0 when the file was read, with its problems in the model's checks; 1 when it could not be opened or
    /// is a binary DXF file, and then no model is handed back.
    int ReadFile(const std::string& name, Ref<ExchangeModel>& model, const Ref<ExchangeProtocol>& protocol,
                 std::string* problem = nullptr) const override;
    /// Writes for the version of the parameter "write.dxf.version", or for the drawing's own $ACADVER when
    /// that is "Undef". The file appears whole or not at all; on failure the context's report tells why.
    bool WriteFile(WriteContext& context) const override;
    /// False: drawings are not copied.
    bool CopyModel(const ExchangeModel&, ExchangeModel&) const override { return false; }
    void DumpEntity(const ExchangeModel* model, const Ref<ExchangeProtocol>& protocol,
                    const Transient* record, std::ostream& out, int level) const override;
};

}  // namespace veltrane
