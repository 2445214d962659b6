// Turns shapes into a model of some norm and writes it to a file.
#pragma once

#include "veltrane/exchange/progress.hpp"
#include "veltrane/exchange/session.hpp"
#include "veltrane/exchange/status.hpp"
#include "veltrane/exchange/write_process.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <string>
#include <string_view>

namespace veltrane {

/// Usual course: Transfer for every shape, then WriteFile.
class ExchangeWriter {
public:
    /// A writer with a session of its own.
    ExchangeWriter();
    /// The same with a norm selected, if one of that name is recorded already.
    explicit ExchangeWriter(std::string_view norm);
    /// A writer on a session; `scratch` makes the session forget its model.
    ExchangeWriter(Ref<ExchangeSession> session, bool scratch);
    virtual ~ExchangeWriter() = default;

    const Ref<ExchangeSession>& Session() const { return session_; }
    /// Attaches another session. What was transferred before is forgotten.
    void SetSession(Ref<ExchangeSession> session, bool scratch);
    /// False when no norm of that name is recorded.
    bool SetNorm(std::string_view name) { return session_->SelectNorm(name); }

    /// The current model, made by the norm when there is none; null without a norm.
    Ref<ExchangeModel> Model();

    /// Writes a shape into the current model. Done when the norm made something of it, Fail when not (the
    /// process tells why), Stop when the user asked to, Void for a null shape and without a norm.
    ExchangeStatus Transfer(const kernel::Shape& shape, const Progress& progress = {});
    /// Writes the current model. Error when the file is not whole, with a reason in Problem(), which names
    /// the first fail; Void without a norm.
    ExchangeStatus WriteFile(const std::string& name);
    const std::string& Problem() const { return problem_; }
    /// Fails and warnings of the last WriteFile.
    const Check& FileReport() const { return file_report_; }

    /// Results and messages of the transfers, shape by shape; never null.
    const Ref<WriteProcess>& Process() const { return process_; }

private:
    Ref<ExchangeSession> session_;
    Ref<WriteProcess> process_;
    Check file_report_;
    std::string problem_;
};

}  // namespace veltrane
