// A norm's way between files and models, and the readable dump of its records.
#pragma once

#include "veltrane/exchange/model.hpp"
#include "veltrane/exchange/protocol.hpp"

#include <string>
#include <vector>

namespace veltrane {

/// A request to write a model.
struct WriteContext {
    std::string FileName;
    Ref<ExchangeModel> Model;
    Check Report;  ///< fails and warnings met while writing
};

class ExchangeWorkLibrary : public Typed<ExchangeWorkLibrary, Transient> {
public:
    static constexpr const char* kTypeName = "ExchangeWorkLibrary";

    /// Reads a file. A given model of the norm is cleared and read into; otherwise a new one is handed
    /// back in `model`. Returns 0 when the file was read, with its problems in the model's checks, and 1
    /// when it could not be opened or read at all: `problem`, if given, then tells why.
    virtual int ReadFile(const std::string& name, Ref<ExchangeModel>& model,
                         const Ref<ExchangeProtocol>& protocol, std::string* problem = nullptr) const = 0;
    /// True when the whole model was written.
    virtual bool WriteFile(WriteContext& context) const = 0;
    /// True when `copy` now holds a copy of `original`.
    virtual bool CopyModel(const ExchangeModel& original, ExchangeModel& copy) const = 0;
    /// Writes a readable description of a record, the longer the higher the level.
    virtual void DumpEntity(const ExchangeModel* model, const Ref<ExchangeProtocol>& protocol,
                            const Transient* record, std::ostream& out, int level) const = 0;

    int DefaultDumpLevel() const { return default_level_; }
    int MaxDumpLevel() const { return static_cast<int>(level_help_.size()) - 1; }
    /// What the dump holds at a level; empty outside 0 to MaxDumpLevel().
    std::string_view DumpHelp(int level) const;

protected:
    void SetDumpLevels(int default_level, int max_level);
    void SetDumpHelp(int level, std::string_view help);

private:
    int default_level_ = 0;
    std::vector<std::string> level_help_{1};
};

}  // namespace veltrane
