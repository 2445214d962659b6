#include "veltrane/data/translate_hatch.hpp"

#include "veltrane/data/hatch_boundary.hpp"
#include "veltrane/data/object_coordinates.hpp"
#include "veltrane/ent/annotations.hpp"
#include "veltrane/ent/inserts.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/algo/wire_repair.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <string>
#include <utility>
#include <vector>

namespace veltrane {
namespace {

using kernel::Shape;
using kernel::ShapeKind;

/// Drawings state the elevation in object co-ordinates; solid hatches take it for a point of the world.
kernel::Frame frame_of(const DxfEnt_Hatch& hatch, bool takes_all, double scale) {
    kernel::Point origin = hatch.ElevationPoint;
    if (takes_all) {
        DxfData::ECSToWCS(kernel::unit(hatch.ExtrusionDir), origin);
        origin *= scale;
    }
    return kernel::Frame::from_normal(origin, hatch.ExtrusionDir);
}

/// The loops of a hatch on their way to faces.
class Boundary {
public:
    Boundary(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
             const DxfEnt_Hatch& hatch, bool takes_all)
        : context_(context),
          record_(record),
          frame_(frame_of(hatch, takes_all, context.UnitScale())),
          takes_all_(takes_all) {}

    void add(const DxfEnt_HatchBoundary& loop) {
        if (!takes_all_ && length(loop.SourceObjects) > 0) {
            add_sources(*loop.SourceObjects);
        } else {
            add_own(loop);
        }
    }

    Shape shape() {
        if (left_out_ > 0) {
            context_.AddWarning(record_, {"%d parts of the hatch's boundary are not translated", left_out_});
        }
        const bool is_single = wires_.size() == 1 && others_.empty() && !has_sources_;
        const bool is_wire = is_single && kernel::child_count(wires_.front()) > 1;
        if (is_wire && !takes_all_) return wires_.front();
        std::vector<Shape> shapes = faces();
        shapes.insert(shapes.end(), others_.begin(), others_.end());
        if (shapes.empty()) return {};
        return shapes.size() == 1 ? shapes.front() : kernel::make_compound(std::move(shapes));
    }

private:
    void add_own(const DxfEnt_HatchBoundary& loop) {
        const auto paths = takes_all_ ? DxfData::HatchPaths::All : DxfData::HatchPaths::Edges;
        const auto own = DxfData::hatch_curves(loop, paths, takes_all_ ? context_.UnitScale() : 1);
        left_out_ += own.left_out;
        Shape shape = DxfData_TranslateObject::GeomToShape(own.curves, 0, {0, 0, 1});
        if (shape.is_null()) return;
        if (shape.is(ShapeKind::Edge) && kernel::edge_definition(shape).is_closed()) {
            const Shape edges[] = {shape};
            shape = kernel::make_wire(edges);
        }
        const bool is_closed = shape.is(ShapeKind::Wire) && kernel::is_closed_wire(shape);
        shape = kernel::moved(shape, kernel::Transform::from_frame(frame_));
        (is_closed ? wires_ : others_).push_back(std::move(shape));
    }

    /// The edges of all entities of a loop as one wire.
    void add_sources(const Sequence<std::int32_t>& handles) {
        has_sources_ = true;
        std::vector<Shape> edges;
        for (const std::int32_t handle : handles) {
            for (Shape& edge : kernel::sub_shapes(source(handle), ShapeKind::Edge)) {
                edges.push_back(std::move(edge));
            }
        }
        if (edges.empty() || !context_.Blocks().Spend(context_.Model(), edges.size())) {
            ++left_out_;
        } else {
            wires_.push_back(kernel::repair_wire(edges).wire);
        }
    }

    /// Null also for what may hold hatches in its turn.
    Shape source(std::int32_t handle) const {
        const Ref<DxfSection_Object> entity = context_.Model()->FindByHandle(handle);
        if (!entity || !entity->is_kind(DxfSection_Entity::type())) return {};
        for (const Type* holder :
             {&DxfEnt_Hatch::type(), &DxfEnt_Insert::type(), &DxfEnt_Dimension::type()}) {
            if (entity->is_kind(*holder)) return {};
        }
        const auto translator = DxfData_TranslateObject::FindTool(entity->DynamicType(), true);
        return translator ? translator->MakeShape(context_, entity, Progress()) : Shape();
    }

    std::vector<Shape> faces() {
        // Entities may lie beside the plane that the hatch states.
        kernel::PlanarFaces made = has_sources_ ? kernel::make_planar_faces(wires_)
                                                : kernel::make_planar_faces(kernel::Plane(frame_), wires_);
        for (const kernel::LeftOutWire& wire : made.left_out) {
            context_.AddWarning(record_, Message::own("A loop of the hatch bounds no face: " +
                                                      std::string(kernel::message(wire.fault))));
        }
        return std::move(made.faces);
    }

    DxfData_TransferContext& context_;
    const Ref<DxfSection_Object>& record_;
    kernel::Frame frame_;
    bool takes_all_;
    bool has_sources_ = false;
    std::vector<Shape> wires_;   // to make faces of
    std::vector<Shape> others_;  // own loops that are open
    int left_out_ = 0;
};

}  // namespace

Ref<DxfData_GeometrySequence> DxfData_TranslateHatch::MakeGeometry(DxfData_TransferContext&,
                                                                   const Ref<DxfSection_Object>&, double&,
                                                                   kernel::Vector&) const {
    return nullptr;
}

kernel::Shape DxfData_TranslateHatch::MakeShape(DxfData_TransferContext& context,
                                                const Ref<DxfSection_Object>& record, const Progress&) const {
    const auto* hatch = as<const DxfEnt_Hatch>(record.get());
    if (!hatch) {
        context.AddStatus(DxfData_Status::Fail1);
        return {};
    }
    context.ClearStatus();
    Shape shape;
    if (context.HasTranslated(record, shape)) return shape;
    const bool takes_all = StaticParameters::IntegerValue("read.dxf.hatchentities") != 0;
    if (hatch->SolidFillFlag == 0 && !takes_all) {
        context.AddWarning(record, "A hatch that is not solid is not translated");
        context.SetTransferResult(record, shape);
        return shape;
    }
    try {
        Boundary boundary(context, record, *hatch, takes_all);
        if (hatch->BoundaryLoops) {
            for (const Ref<DxfEnt_HatchBoundary>& loop : *hatch->BoundaryLoops) boundary.add(*loop);
        }
        shape = boundary.shape();
    } catch (const kernel::KernelError& error) {
        context.AddFail(record, Message::own(std::string("The hatch is not translated: ") + error.what()));
    }
    context.SetStatus(shape.is_null() ? DxfData_Status::Fail : DxfData_Status::Done1);
    context.SetTransferResult(record, shape);
    return shape;
}

}  // namespace veltrane
