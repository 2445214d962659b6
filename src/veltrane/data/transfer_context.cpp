#include "veltrane/data/transfer_context.hpp"

#include "veltrane/exchange/shape_binder.hpp"

namespace veltrane {
namespace {

constexpr int kTrialCapacity = 10000;

bool has_shape(const TransferBinder* binder) {
    if (const auto* one = as<const ShapeBinder>(binder)) return !one->Result().is_null();
    const auto* list = as<const ShapeListBinder>(binder);
    return list && !list->Shapes().empty();
}

bool holds(const TransferBinder* binder, const kernel::Shape& shape) {
    const auto* one = as<const ShapeBinder>(binder);
    return one && kernel::is_equal(one->Result(), shape);
}

}  // namespace

Ref<Transient> DxfData_ObjectMap::Find(const Transient* key) const {
    const auto found = index_.find(key);
    return found == index_.end() ? nullptr : entries_[found->second].second;
}

void DxfData_ObjectMap::Set(const Ref<const Transient>& key, Ref<Transient> value) {
    const auto [found, is_new] = index_.try_emplace(key.get(), entries_.size());
    if (is_new) {
        entries_.emplace_back(key, std::move(value));
    } else {
        entries_[found->second].second = std::move(value);
    }
}

DxfData_TransferContext::DxfData_TransferContext()
    : read_process_(make<ReadProcess>(kTrialCapacity)), write_process_(make<WriteProcess>(kTrialCapacity)) {}

Ref<ExchangeModel> DxfData_TransferContext::any_model() const {
    if (read_process_ && read_process_->Model()) return read_process_->Model();
    return write_process_ ? write_process_->Model() : nullptr;
}

Ref<DxfSection_Model> DxfData_TransferContext::Model() const {
    return as<DxfSection_Model>(any_model());
}

void DxfData_TransferContext::AddFail(const Ref<Transient>& record, Message message) {
    if (read_process_) read_process_->AddFail(record, std::move(message));
}

void DxfData_TransferContext::AddWarning(const Ref<Transient>& record, Message message) {
    if (read_process_) read_process_->AddWarning(record, std::move(message));
}

bool DxfData_TransferContext::Status(DxfData_Status query) const {
    if (query == DxfData_Status::Ok) return status_ == 0;
    return (status_ & static_cast<std::uint32_t>(query)) != 0;
}

// Results of import

bool DxfData_TransferContext::HasTranslated(const Ref<DxfSection_Object>& record,
                                            kernel::Shape& shape) const {
    const Ref<TransferBinder> binder = read_process_ ? read_process_->Find(record.get()) : nullptr;
    bool found = false;
    kernel::Shape result = shape_result(binder.get(), &found);
    if (found) shape = std::move(result);
    return found;
}

void DxfData_TransferContext::SetTransferResult(const Ref<DxfSection_Object>& record,
                                                const kernel::Shape& shape) {
    if (!read_process_) return;
    const Ref<TransferBinder> earlier = read_process_->Find(record.get());
    if (!has_shape(earlier.get()) || holds(earlier.get(), shape)) {
        read_process_->Bind(record, make<ShapeBinder>(shape));
        return;
    }
    auto list = as<ShapeListBinder>(earlier);
    if (!list) {
        list = make<ShapeListBinder>();
        list->Add(as<ShapeBinder>(earlier)->Result());
        list->Merge(*earlier);
        read_process_->Bind(record, list);
    }
    list->Add(shape);
}

// Results of export

bool DxfData_TransferContext::HasTranslated(const kernel::Shape& shape,
                                            Ref<DxfSection_Object>& record) const {
    const Ref<TransferBinder> binder = write_process_ ? write_process_->Find(shape) : nullptr;
    const auto simple = as<SimpleBinder>(binder);
    const auto bound = simple ? as<DxfSection_Object>(simple->Result()) : nullptr;
    if (bound) record = bound;
    return bool(bound);
}

void DxfData_TransferContext::SetTransferResult(const kernel::Shape& shape,
                                                const Ref<DxfSection_Object>& record) {
    if (!write_process_) return;
    if (const auto simple = as<SimpleBinder>(write_process_->Find(shape))) {
        simple->SetResult(record);
    } else {
        write_process_->Bind(*write_process_->Key(shape), make<SimpleBinder>(record));
    }
}

void DxfData_TransferContext::AddTransferResult(const kernel::Shape& shape,
                                                const Ref<DxfSection_Object>& record) {
    if (!write_process_) return;
    const auto further = make<SimpleBinder>(record);
    if (const Ref<TransferBinder> binder = write_process_->Find(shape)) {
        binder->AddResult(further);
    } else {
        write_process_->Bind(*write_process_->Key(shape), further);
    }
}

// Geometry

bool DxfData_TransferContext::FindGeometry(const Transient* record,
                                           Ref<DxfData_GeometrySequence>& geometry) const {
    auto cached = geometry_.get(any_model().get(), record);
    if (!cached) return false;
    geometry = std::move(cached);
    return true;
}

void DxfData_TransferContext::SetGeometry(const Ref<Transient>& record,
                                          Ref<DxfData_GeometrySequence> geometry) {
    static const auto kNothing = make<DxfData_GeometrySequence>();
    geometry_.set(any_model().get(), record, geometry ? std::move(geometry) : kNothing);
}

void DxfData_TransferContext::DropGeometry(const Ref<Transient>& record) {
    geometry_.erase(any_model().get(), record.get());
}

int DxfData_TransferContext::GetSATVersion() const {
    switch (dxf_version_) {
        case 1015:
            return 400;
        case 1018:
            return 20800;
        case 1021:
            return 21200;
        case 1024:
            return 21500;
        default:
            return 106;
    }
}

}  // namespace veltrane
