#include "veltrane/output/face_survey.hpp"

#include "veltrane/kernel/geom/cylinder.hpp"
#include "veltrane/kernel/geom/linear_extrusion.hpp"
#include "veltrane/kernel/geom/plane.hpp"
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/output/limits.hpp"

#include <algorithm>
#include <set>

namespace veltrane {
namespace {

constexpr double kAligned = 1e-6;  // sine of an angle
// Each level costs two walks through the drawing.
constexpr std::size_t kMostLevels = 12;

bool is_parallel(const kernel::Vector& a, const kernel::Vector& b) {
    return kernel::cross(a, b).norm() < kAligned;
}

/// Heights that are some way apart.
class Levels {
public:
    explicit Levels(double tolerance) : tolerance_(tolerance) {}

    /// False when there are too many.
    bool add(double height) {
        const auto next = heights_.lower_bound(height - tolerance_);
        if (next == heights_.end() || *next > height + tolerance_) heights_.insert(height);
        return heights_.size() <= kMostLevels;
    }
    const std::set<double>& heights() const { return heights_; }

private:
    double tolerance_;
    std::set<double> heights_;
};

}  // namespace

bool FaceWalk::visit(const kernel::Shape& shape, const std::function<void(const kernel::Shape&)>& visitor) {
    if (shape.is_null() || shape.kind() < kernel::ShapeKind::Face) return true;
    if (shape.kind() == kernel::ShapeKind::Face) {
        visitor(shape);
        return true;
    }
    std::size_t parts = 0;
    for (const std::size_t uses : kernel::count_by_kind(shape)) {
        if (uses > room_ - parts) return false;
        parts += uses;
    }
    room_ -= parts;
    kernel::visit(shape, kernel::ShapeKind::Face, [&](const kernel::Shape& face) {
        visitor(face);
        return true;
    });
    return true;
}

bool is_edge_on(const kernel::Shape& face, const View& view) {
    const Ref<kernel::Surface> surface = kernel::face_surface(face);
    if (const auto* plane = as<const kernel::Plane>(surface.get())) {
        return std::abs(plane->normal().dot(view.toward_eye())) < kAligned;
    }
    const auto* cylinder = as<const kernel::Cylinder>(surface.get());
    const auto* extrusion = as<const kernel::LinearExtrusion>(surface.get());
    return (cylinder && is_parallel(cylinder->frame().z, view.toward_eye())) ||
           (extrusion && is_parallel(extrusion->direction(), view.toward_eye()));
}

double height_of(const kernel::Shape& face, const kernel::Vector& direction) {
    double height = 0;
    kernel::visit(face, kernel::ShapeKind::Vertex, [&](const kernel::Shape& vertex) {
        height = direction.dot(kernel::vertex_point(vertex));
        return false;
    });
    return height;
}

FaceSurvey survey_faces(const Scene& scene, const View& view, double tolerance) {
    FaceSurvey survey;
    Levels levels(tolerance);
    const auto add_face = [&](const kernel::Shape& face) {
        if (!survey.has_levels || is_edge_on(face, view)) return;
        const Ref<kernel::Surface> surface = kernel::face_surface(face);
        const auto* plane = as<const kernel::Plane>(surface.get());
        if (plane && !survey.has_faces) {
            const bool is_turned_away = plane->normal().dot(view.toward_eye()) < 0;
            survey.normal = is_turned_away ? kernel::Vector(-plane->normal()) : plane->normal();
        }
        survey.has_faces = true;
        survey.has_levels = plane && is_parallel(plane->normal(), survey.normal) &&
                            levels.add(height_of(face, survey.normal));
    };
    FaceWalk walk(kMostParts);
    visit_leaves(scene.items, kMostParts, [&](const kernel::Shape& shape, const SceneItem&) {
        return walk.visit(shape, add_face) && survey.has_levels;
    });
    survey.levels.assign(levels.heights().begin(), levels.heights().end());
    return survey;
}

}  // namespace veltrane
