#include "veltrane/data/translate_insert.hpp"

#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/algo/transform.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_set>

namespace veltrane {
namespace {

constexpr double kUnscaled = 1e-7;  // how far a scale that only places may be from 1

/// Uses of sub-shapes: what an uneven scale may have to make.
std::size_t count_of_uses(const kernel::Shape& shape) {
    std::size_t sum = 0;
    for (const std::size_t count : kernel::count_by_kind(shape)) sum += std::min(count, std::size_t{1} << 40);
    return sum;
}

/// Different definitions: what an even scale has to make.
std::size_t definition_count(const kernel::Shape& shape) {
    std::unordered_set<const kernel::Definition*> known;
    std::vector<kernel::Shape> pending{shape};
    while (!pending.empty()) {
        const kernel::Shape next = std::move(pending.back());
        pending.pop_back();
        if (!known.insert(next.definition().get()).second) continue;
        for (kernel::Shape& child : kernel::own_children(next)) pending.push_back(std::move(child));
    }
    return known.size();
}

kernel::Shape image_of(const kernel::Shape& shape, const DxfData_InsertPlacement& placement) {
    const kernel::AffineMap scaling = placement.scaling();
    if (!placement.is_even) return kernel::transformed(shape, scaling);
    return kernel::transformed(shape, kernel::Transform::from_matrix(scaling.linear_part(), {0, 0, 0}));
}

/// The images of those members of a compound that have one.
kernel::Shape image_of_members(const kernel::Shape& compound, const DxfData_InsertPlacement& placement,
                               int& lost) {
    std::vector<kernel::Shape> images;
    for (const kernel::Shape& member : kernel::children(compound)) {
        try {
            images.push_back(image_of(member, placement));
        } catch (const kernel::KernelError&) {
            ++lost;
        }
    }
    return images.empty() ? kernel::Shape() : kernel::make_compound(std::move(images));
}

}  // namespace

Ref<DxfData_GeometrySequence> DxfData_TranslateInsert::MakeGeometry(DxfData_TransferContext&,
                                                                    const Ref<DxfSection_Object>&, double&,
                                                                    kernel::Vector&) const {
    return nullptr;
}

kernel::Shape DxfData_TranslateInsert::MakeShape(DxfData_TransferContext& context,
                                                 const Ref<DxfSection_Object>& record,
                                                 const Progress& progress) const {
    context.ClearStatus();
    const auto* insert = as<const DxfEnt_Insert>(record.get());
    if (!insert) {
        context.AddStatus(DxfData_Status::Fail1);
        return {};
    }
    kernel::Shape shape;
    if (context.HasTranslated(record, shape)) return shape;
    shape = translate(context, record, *insert, progress);
    context.SetTransferResult(record, shape);
    return shape;
}

kernel::Shape DxfData_TranslateInsert::translate(DxfData_TransferContext& context,
                                                 const Ref<DxfSection_Object>& record,
                                                 const DxfEnt_Insert& insert, const Progress& progress) {
    const auto block = context.Blocks().Find(context.Model(), insert.BlockName);
    if (!block) {
        context.AddWarning(record, Message::own("There is no block \"" + insert.BlockName.str() + "\""));
        context.AddStatus(DxfData_Status::Fail2);
        return {};
    }
    if (insert.AttrFollowFlag) context.AddWarning(record, "The attributes of the insert are not translated");
    const auto translator = FindTool(block->DynamicType(), true);
    if (!translator || context.Blocks().IsOpen(*block)) {
        if (translator) context.AddFail(record, "The block is inserted into itself");
        context.AddStatus(DxfData_Status::Fail1);
        return {};
    }
    const kernel::Shape content = translator->MakeShape(context, block, progress);
    if (context.Status(DxfData_Status::Fail)) return kernel::make_compound({});
    if (content.is_null()) return {};

    kernel::Shape result;
    try {
        const DxfData_InsertPlacement placement(insert, *block, context.UnitScale());
        const double factor = placement.is_even ? placement.similarity().scale_factor() : 0;
        if (std::abs(factor - 1) < kUnscaled) {
            result = kernel::moved(content, placement.similarity());
        } else {
            result = scaled(context, record, *block, content, placement);
            if (!result.is_null()) result = kernel::moved(result, placement.motion());
        }
        if (!result.is_null()) result = array(context, record, insert, result, placement);
    } catch (const kernel::DomainError&) {
        throw;
    } catch (const kernel::KernelError& error) {
        context.AddFail(record, Message::own(std::string("The block cannot be placed: ") + error.what()));
    }
    context.AddStatus(result.is_null() ? DxfData_Status::Fail1 : DxfData_Status::Done1);
    return result;
}

kernel::Shape DxfData_TranslateInsert::scaled(DxfData_TransferContext& context,
                                              const Ref<DxfSection_Object>& record,
                                              const DxfSection_Block& block, const kernel::Shape& content,
                                              const DxfData_InsertPlacement& placement) {
    kernel::Shape& image = context.Blocks().ScaledShape(block, placement.factors);
    if (!image.is_null()) return image;
    const std::size_t cost = placement.is_even ? definition_count(content) : count_of_uses(content);
    if (!context.Blocks().Spend(context.Model(), cost)) {
        context.AddFail(record, "The block is too large to be scaled");
        return {};
    }
    int lost = 0;
    try {
        image = image_of(content, placement);
    } catch (const kernel::KernelError&) {
        image = image_of_members(content, placement, lost);
    }
    if (lost > 0) context.AddWarning(record, {"%d shapes of the block cannot be scaled", lost});
    return image;
}

kernel::Shape DxfData_TranslateInsert::array(DxfData_TransferContext& context,
                                             const Ref<DxfSection_Object>& record,
                                             const DxfEnt_Insert& insert, const kernel::Shape& first,
                                             const DxfData_InsertPlacement& placement) {
    const int rows = std::max(insert.RowCount, 1), columns = std::max(insert.ColumnCount, 1);
    const std::size_t count = static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
    if (count == 1) return first;
    if (!context.Blocks().Spend(context.Model(), count)) {
        context.AddFail(record,
                        {"%d rows of %d copies are too many: only the first one is made", rows, columns});
        return first;
    }
    const double scale = context.UnitScale();
    std::vector<kernel::Shape> copies;
    copies.reserve(count);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const kernel::Vector offset =
                placement.offset(column * scale * insert.ColumnSpacing, row * scale * insert.RowSpacing);
            copies.push_back(kernel::moved(first, kernel::Transform::translation(offset)));
        }
    }
    return kernel::make_compound(std::move(copies));
}

}  // namespace veltrane
