#include "veltrane/data/translate_object.hpp"

#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/algo/prism.hpp"
#include "veltrane/kernel/algo/wire_repair.hpp"
#include "veltrane/kernel/geom/curve.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/math/tolerance.hpp"

#include <cmath>
#include <vector>

namespace veltrane {
namespace {

/// The edges as one shape, before any sweep.
kernel::Shape edge_or_wire(const std::vector<kernel::Shape>& edges) {
    return edges.size() == 1 ? edges.front() : kernel::repair_wire(edges).wire;
}

}  // namespace

DxfData_TranslateObject::Registry& DxfData_TranslateObject::GetRegistry() {
    static Registry registry;
    return registry;
}

bool DxfData_TranslateObject::RegisterTool(const Type& type, Ref<DxfData_TranslateObject> translator) {
    return GetRegistry().insert_or_assign(type.name(), std::move(translator)).second;
}

bool DxfData_TranslateObject::UnRegisterTool(const Type& type) {
    return GetRegistry().erase(type.name()) > 0;
}

Ref<DxfData_TranslateObject> DxfData_TranslateObject::FindTool(const Type& type, bool inherit) {
    const Registry& registry = GetRegistry();
    for (const Type* kind = &type; kind; kind = kind->parent()) {
        const auto found = registry.find(kind->name());
        if (found != registry.end()) return found->second;
        if (!inherit) break;
    }
    return nullptr;
}

kernel::Shape DxfData_TranslateObject::MakeShape(DxfData_TransferContext& context,
                                                 const Ref<DxfSection_Object>& record,
                                                 const Progress&) const {
    context.ClearStatus();
    kernel::Shape shape;
    if (context.HasTranslated(record, shape)) return shape;
    try {
        double thickness = 0;
        kernel::Vector extrusion(1, 0, 0);
        const auto geometry = MakeGeometry(context, record, thickness, extrusion);
        if (context.Status(DxfData_Status::Fail) || length(geometry) == 0) {
            context.SetTransferResult(record, shape);
            return shape;
        }
        shape = GeomToShape(geometry, thickness, extrusion);
        if (shape.is_null()) {
            context.AddStatus(DxfData_Status::Fail1);
            context.AddFail(record, "Shape is not created");
        } else {
            context.AddStatus(DxfData_Status::Done1);
            context.DropGeometry(record);
        }
        context.SetTransferResult(record, shape);
    } catch (const kernel::KernelError&) {
        context.AddFail(record, "Exception is raised in the createtion of topology");
    }
    return shape;
}

kernel::Shape DxfData_TranslateObject::GeomToShape(const Ref<DxfData_GeometrySequence>& geometry,
                                                   double thickness, const kernel::Vector& extrusion) {
    if (!geometry) return {};
    const bool is_swept = std::abs(thickness) > kernel::kZeroLength;
    const kernel::Vector sweep = thickness * extrusion;
    std::vector<kernel::Shape> shapes;
    std::vector<kernel::Shape> edges;
    for (const Ref<Transient>& item : *geometry) {
        if (const auto point = as<kernel::FreePoint>(item)) {
            const kernel::Point& at = point->point();
            shapes.push_back(is_swept ? kernel::make_edge(at, at + sweep) : kernel::make_vertex(at));
        } else if (const auto curve = as<kernel::Curve>(item)) {
            edges.push_back(kernel::make_edge(curve));
        }
    }
    if (!edges.empty()) {
        const kernel::Shape outline = edge_or_wire(edges);
        shapes.push_back(is_swept ? kernel::prism(outline, sweep) : outline);
    }
    if (shapes.empty()) return {};
    return shapes.size() == 1 ? shapes.front() : kernel::make_compound(std::move(shapes));
}

}  // namespace veltrane
