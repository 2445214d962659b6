#include "veltrane/exchange/writer.hpp"

#include <exception>

namespace veltrane {

ExchangeWriter::ExchangeWriter() : ExchangeWriter(make<ExchangeSession>(), true) {}

ExchangeWriter::ExchangeWriter(std::string_view norm) : ExchangeWriter() {
    SetNorm(norm);
}

ExchangeWriter::ExchangeWriter(Ref<ExchangeSession> session, bool scratch) {
    SetSession(std::move(session), scratch);
}

void ExchangeWriter::SetSession(Ref<ExchangeSession> session, bool scratch) {
    session_ = session ? std::move(session) : make<ExchangeSession>();
    if (scratch) session_->SetModel(nullptr);
    process_ = make<WriteProcess>();
    file_report_ = Check();
    problem_.clear();
}

Ref<ExchangeModel> ExchangeWriter::Model() {
    return session_->Model() ? session_->Model() : session_->NewModel();
}

ExchangeStatus ExchangeWriter::Transfer(const kernel::Shape& shape, const Progress& progress) {
    const Ref<ExchangeController>& controller = session_->Controller();
    if (shape.is_null() || !controller || !controller->ActorWrite()) return ExchangeStatus::Void;
    if (progress.UserBreak()) return ExchangeStatus::Stop;

    process_->SetModel(Model());
    const Ref<ShapeKey> key = process_->Key(shape);
    try {
        if (controller->ActorWrite()->Transfer(key, process_, progress)) return ExchangeStatus::Done;
    } catch (const std::exception& failure) {
        process_->AddFail(*key, Message::own(failure.what()));
    }
    return progress.UserBreak() ? ExchangeStatus::Stop : ExchangeStatus::Fail;
}

ExchangeStatus ExchangeWriter::WriteFile(const std::string& name) {
    file_report_ = Check();
    problem_.clear();
    const Ref<ExchangeController>& controller = session_->Controller();
    if (!controller || !controller->WorkLibrary()) return ExchangeStatus::Void;

    WriteContext context{name, Model(), {}};
    const bool written = controller->WorkLibrary()->WriteFile(context);
    file_report_ = std::move(context.Report);
    if (written) return ExchangeStatus::Done;
    problem_ = file_report_.HasFailed() ? file_report_.Fails().front().text() : "cannot write " + name;
    return ExchangeStatus::Error;
}

}  // namespace veltrane
