#include "veltrane/exchange/shape_binder.hpp"

#include "veltrane/kernel/algo/build.hpp"

namespace veltrane {

kernel::Shape shape_result(const TransferBinder* binder, bool* found) {
    bool ignored = false;
    bool& has_result = found ? *found : ignored;
    has_result = true;
    if (const auto* one = as<const ShapeBinder>(binder)) return one->Result();
    const auto* list = as<const ShapeListBinder>(binder);
    has_result = list && !list->Shapes().empty();
    if (!has_result) return {};
    return list->Shapes().size() == 1 ? list->Shapes().front() : kernel::make_compound(list->Shapes());
}

}  // namespace veltrane
