// What shapes are made of: a vertex has a point, an edge a curve, a face a
// surface, and the rest are lists.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"
#include "veltrane/kernel/geom/curve2.hpp"
#include "veltrane/kernel/geom/surface.hpp"
#include "veltrane/kernel/math/interval.hpp"
#include "veltrane/kernel/math/tolerance.hpp"
#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <vector>

namespace veltrane::kernel {

/// A point. Whatever ends in the vertex ends within `tolerance` of it.
class VertexDefinition : public Typed<VertexDefinition, Definition> {
public:
    static constexpr const char* kTypeName = "VertexDefinition";
    explicit VertexDefinition(const Point& point, double tolerance = kConfusion)
        : Typed(ShapeKind::Vertex), tolerance_(tolerance), point_(point) {}

    const Point& point() const { return point_; }
    double tolerance() const { return tolerance_; }

private:
    double tolerance_;
    Point point_;
};

/// A piece of a curve between two vertices, which stand in the edge's own
/// co-ordinates. A vertex is null where the curve is unbounded; start and end
/// are one vertex when the edge is closed. A trimmed curve is taken without its
/// trimming: the range says it all.
class EdgeDefinition : public Typed<EdgeDefinition, Definition> {
public:
    static constexpr const char* kTypeName = "EdgeDefinition";
    /// Throws KernelError for a null curve or a range that is empty or not a
    /// number.
    EdgeDefinition(const Ref<Curve>& curve, Interval range, Ref<const VertexDefinition> start,
                   Ref<const VertexDefinition> end);

    const Ref<Curve>& curve() const { return curve_; }
    /// Curve parameters, first < last.
    const Interval& range() const { return range_; }
    const Ref<const VertexDefinition>& start() const { return start_; }
    const Ref<const VertexDefinition>& end() const { return end_; }
    bool is_closed() const { return start_ && start_ == end_; }

private:
    Ref<Curve> curve_;
    Interval range_;
    Ref<const VertexDefinition> start_;
    Ref<const VertexDefinition> end_;
};

/// A piece of an edge's curve in the parameter plane of a surface.
struct ParameterCurve {
    Ref<Curve2> curve;
    ParameterMap from_edge = {};  ///< takes the edge's parameter to that of `curve`

    Point2 value(double edge_parameter) const { return curve->value(from_edge(edge_parameter)); }
};

/// A closed boundary of a face. It runs so that the face lies to its left when
/// seen against the surface's normal, once the orientations of the wire and of
/// its edges are taken together.
struct Loop {
    Shape wire;  ///< in the co-ordinates of the face's definition
    /// For every edge of the wire's definition, in that order. A parameter curve
    /// belongs to this use of the edge, not to the edge: a seam has two uses with
    /// two curves.
    std::vector<ParameterCurve> parameter_curves;
};

/// A surface within loops. A face of a closed surface may have any number of
/// loops, also none; the loops may come in any order.
class FaceDefinition : public Typed<FaceDefinition, Definition> {
public:
    static constexpr const char* kTypeName = "FaceDefinition";
    /// Throws KernelError for a null surface, a loop that is no wire, a missing
    /// parameter curve, or a count of them that is not that of the wire's edges.
    FaceDefinition(Ref<Surface> surface, std::vector<Loop> loops);

    const Ref<Surface>& surface() const { return surface_; }
    const std::vector<Loop>& loops() const { return loops_; }

private:
    Ref<Surface> surface_;
    std::vector<Loop> loops_;
};

/// An ordered list of sub-shapes: a wire of edges, a shell of faces, a solid of
/// shells, a compound solid of solids, a compound of anything.
class GroupDefinition : public Typed<GroupDefinition, Definition> {
public:
    static constexpr const char* kTypeName = "GroupDefinition";
    /// Throws KernelError for a kind that is no list, and for a null child or one
    /// of the wrong kind.
    GroupDefinition(ShapeKind kind, std::vector<Shape> children);
    /// Releases nested compounds of any depth without recursion.
    ~GroupDefinition() override;

    const std::vector<Shape>& children() const { return children_; }

private:
    std::vector<Shape> children_;
};

/// The definition under a shape; a null shape or another kind throws
/// KernelError.
const VertexDefinition& vertex_definition(const Shape& shape);
const EdgeDefinition& edge_definition(const Shape& shape);
const FaceDefinition& face_definition(const Shape& shape);
const GroupDefinition& group_definition(const Shape& shape);

/// A shape of a new list definition, unplaced and forward.
Shape make_group(ShapeKind kind, std::vector<Shape> children);

}  // namespace veltrane::kernel
