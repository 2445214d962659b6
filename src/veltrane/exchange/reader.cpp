#include "veltrane/exchange/reader.hpp"

#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/kernel/algo/build.hpp"

#include <algorithm>
#include <exception>

namespace veltrane {

ExchangeReader::ExchangeReader() : ExchangeReader(make<ExchangeSession>(), true) {}

ExchangeReader::ExchangeReader(Ref<ExchangeSession> session, bool scratch) {
    SetSession(std::move(session), scratch);
}

void ExchangeReader::SetSession(Ref<ExchangeSession> session, bool scratch) {
    session_ = session ? std::move(session) : make<ExchangeSession>();
    if (scratch) session_->SetModel(nullptr);
    forget();
}

void ExchangeReader::forget() {
    process_ = make<ReadProcess>();
    process_->SetModel(session_->Model());
    roots_.clear();
    shapes_.clear();
    problem_.clear();
}

ExchangeStatus ExchangeReader::ReadFile(const std::string& name) {
    session_->SetModel(nullptr);
    forget();
    const Ref<ExchangeController>& controller = session_->Controller();
    if (!controller || !controller->WorkLibrary()) return ExchangeStatus::Void;
    Ref<ExchangeModel> model;
    const int status = controller->WorkLibrary()->ReadFile(name, model, controller->Protocol(), &problem_);
    if (status != 0 || !model) {
        if (problem_.empty()) problem_ = "cannot read " + name;
        return ExchangeStatus::Error;
    }
    session_->SetModel(std::move(model));
    process_->SetModel(session_->Model());
    return ExchangeStatus::Done;
}

int ExchangeReader::NbRootsForTransfer() {
    return static_cast<int>(roots_.size());
}

Ref<Transient> ExchangeReader::RootForTransfer(int number) {
    if (number < 1 || number > NbRootsForTransfer()) return nullptr;
    return roots_[static_cast<std::size_t>(number) - 1];
}

ExchangeStatus ExchangeReader::TransferEntity(const Ref<Transient>& record, const Progress& progress) {
    const Ref<ExchangeController>& controller = session_->Controller();
    if (!record || !controller || !controller->ActorRead() || !Model()) return ExchangeStatus::Void;
    if (progress.UserBreak()) return ExchangeStatus::Stop;
    process_->SetModel(Model());
    if (!controller->ActorRead()->Recognize(record)) return ExchangeStatus::Fail;

    Ref<TransferBinder> binder;
    try {
        binder = controller->ActorRead()->Transfer(record, process_, progress);
    } catch (const std::exception& failure) {
        process_->AddFail(record, Message::own(failure.what()));
    }
    kernel::Shape shape = shape_result(binder.get());
    if (shape.is_null()) return progress.UserBreak() ? ExchangeStatus::Stop : ExchangeStatus::Fail;
    shapes_.push_back(std::move(shape));
    return ExchangeStatus::Done;
}

int ExchangeReader::TransferRoots(const Progress& progress) {
    const int before = NbShapes();
    const int roots = NbRootsForTransfer();
    ProgressScope scope(progress, "Root", std::max(roots, 1));
    for (int number = 1; number <= roots; ++number) {
        if (TransferEntity(RootForTransfer(number), scope.Next()) == ExchangeStatus::Stop) break;
    }
    return NbShapes() - before;
}

kernel::Shape ExchangeReader::OneShape() const {
    if (shapes_.empty()) return {};
    return shapes_.size() == 1 ? shapes_.front() : kernel::make_compound(shapes_);
}

}  // namespace veltrane
