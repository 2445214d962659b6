#include "veltrane/data/translate_block.hpp"

#include "veltrane/ent/annotations.hpp"
#include "veltrane/ent/inserts.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/kernel/algo/build.hpp"

#include <algorithm>
#include <vector>

namespace veltrane {
namespace {

constexpr std::int32_t kAnonymousFlag = 1;

bool is_left_out(const DxfSection_Block& block) {
    return (block.BlockTypeFlag & kAnonymousFlag) &&
           StaticParameters::IntegerValue("read.dxf.anonymous.blocks") == 0;
}

Ref<DxfData_TranslateObject> translator_of(const Ref<DxfSection_Object>& record) {
    if (!record || !record->is_kind(DxfSection_Entity::type())) return nullptr;
    return DxfData_TranslateObject::FindTool(record->DynamicType(), true);
}

/// The block that translating a record takes; null when it takes none.
Ref<DxfSection_Block> needed_block(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record) {
    if (!translator_of(record)) return nullptr;
    const auto* insert = as<const DxfEnt_Insert>(record.get());
    const auto* dimension = as<const DxfEnt_Dimension>(record.get());
    if (!insert && !dimension) return nullptr;
    auto block = context.Blocks().Find(context.Model(), insert ? insert->BlockName : dimension->Name);
    return block && is_left_out(*block) ? nullptr : block;
}

}  // namespace

Ref<DxfData_GeometrySequence> DxfData_TranslateBlock::MakeGeometry(DxfData_TransferContext&,
                                                                   const Ref<DxfSection_Object>&, double&,
                                                                   kernel::Vector&) const {
    return nullptr;
}

kernel::Shape DxfData_TranslateBlock::MakeShape(DxfData_TransferContext& context,
                                                const Ref<DxfSection_Object>& record,
                                                const Progress& progress) const {
    context.ClearStatus();
    kernel::Shape shape;
    if (context.HasTranslated(record, shape)) return shape;
    const auto block = as<DxfSection_Block>(record);
    if (!block || context.Blocks().IsOpen(*block)) {
        context.AddStatus(DxfData_Status::Fail1);
        return {};
    }
    if (is_left_out(*block)) return {};
    context.Blocks().Open(*block);
    build_nested(context, block, progress);
    shape = build(context, block, progress);
    context.Blocks().Close(*block);
    return shape;
}

/// Walks down the blocks that `root` needs with a stack of its own, for drawings may nest them ten thousand
/// deep, and builds each one after those that it needs.
void DxfData_TranslateBlock::build_nested(DxfData_TransferContext& context, const Ref<DxfSection_Block>& root,
                                          const Progress& progress) {
    struct Visit {
        Ref<DxfSection_Block> block;
        int done;  // entities that were looked at
    };
    std::vector<Visit> path{{root, 0}};
    while (!path.empty() && !progress.UserBreak()) {
        Visit& top = path.back();
        if (top.done < length(top.block->Objects)) {
            const auto next = needed_block(context, top.block->Objects->Value(++top.done));
            kernel::Shape known;
            if (!next || context.Blocks().IsOpen(*next) || context.HasTranslated(next, known)) continue;
            context.Blocks().Open(*next);
            path.push_back({next, 0});
            continue;
        }
        if (path.size() > 1) {
            build(context, top.block, progress);
            context.Blocks().Close(*top.block);
        }
        path.pop_back();
    }
    for (const Visit& left : path) {
        if (left.block != root) context.Blocks().Close(*left.block);
    }
}

kernel::Shape DxfData_TranslateBlock::build(DxfData_TransferContext& context,
                                            const Ref<DxfSection_Block>& block, const Progress& progress) {
    std::vector<kernel::Shape> shapes;
    const int count = length(block->Objects);
    ProgressScope scope(progress, "Translate Block", std::max<double>(count, 1e-6));
    for (int number = 1; number <= count; ++number) {
        if (scope.UserBreak()) return {};
        const Progress step = scope.Next();
        const Ref<DxfSection_Object>& record = block->Objects->Value(number);
        const auto translator = translator_of(record);
        if (!translator) continue;
        kernel::Shape shape = translator->MakeShape(context, record, step);
        if (!shape.is_null()) shapes.push_back(std::move(shape));
    }
    kernel::Shape result;
    if (!shapes.empty()) result = kernel::make_compound(std::move(shapes));
    context.SetStatus(result.is_null() ? DxfData_Status::Ok : DxfData_Status::Done2);
    context.SetTransferResult(block, result);
    return result;
}

}  // namespace veltrane
