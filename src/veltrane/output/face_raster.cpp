#include "veltrane/output/face_raster.hpp"

#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/mesh/mesh.hpp"
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/output/face_colours.hpp"
#include "veltrane/output/face_survey.hpp"
#include "veltrane/output/limits.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <unordered_map>
#include <vector>

namespace veltrane {
namespace {

using kernel::Point;

constexpr double kDeflection = 0.5;  // pixels
constexpr double kAngle = 0.25;
constexpr int kMostDivisions = 1000;
constexpr int kMostFacePoints = 50'000;
constexpr std::size_t kMostPoints = 3'000'000;      // of one part of the scene, and of all that are kept
constexpr std::size_t kMostTriangles = 20'000'000;  // of the picture
constexpr std::uint64_t kMostWork = 1'000'000'000;  // of the depth buffer: some seconds
constexpr std::size_t kMostFolds = 1'000'000;
constexpr int kFewestPixels = 200;

double pixels_per_unit(const DepthBuffer& buffer, const Page& page) {
    return page.width > page.height ? buffer.width() / page.width : buffer.height() / page.height;
}

DepthBuffer buffer_for(const Page& page, int pixels) {
    const double scale = pixels / std::max(page.width, page.height);
    const auto side = [&](double length) {
        return static_cast<int>(std::clamp(std::round(length * scale), 1.0, static_cast<double>(pixels)));
    };
    return {side(page.width), side(page.height), kMostWork};
}

class Rasteriser {
public:
    Rasteriser(const Projection& projection, Ground ground, int pixels)
        : projection_(projection),
          ground_(ground),
          raster_{buffer_for(projection.page, pixels), {}, {}, {}, 0, true, false},
          scale_(pixels_per_unit(raster_.buffer, projection.page)) {
        options_.deflection = kDeflection / (scale_ * projection.page.scale);
        options_.angle = kAngle;
        options_.max_divisions = kMostDivisions;
        options_.max_face_points = kMostFacePoints;
        options_.max_points = kMostPoints;
    }

    FaceRaster run(const Scene& scene) {
        visit_leaves(scene.items, kMostParts, [&](const kernel::Shape& shape, const SceneItem& item) {
            add(shape, item);
            return raster_.is_complete;
        });
        return std::move(raster_);
    }

private:
    void add(const kernel::Shape& shape, const SceneItem& item) {
        std::size_t faces = 0;
        raster_.is_complete = walk_.visit(shape, [&](const kernel::Shape&) { ++faces; });
        if (faces == 0 || !raster_.is_complete) return;
        const kernel::Mesh* mesh = mesh_of(shape);
        if (!mesh) {
            kernel::visit(shape, kernel::ShapeKind::Face, [&](const kernel::Shape& face) {
                add_unmeshed(face);
                return true;
            });
            return;
        }
        for (const kernel::MeshFace& face : mesh->faces) {
            if (!face.message.empty()) add_unmeshed(face.face);
        }
        const double area = draw(*mesh, shape.transform(), fill_of(item, shape));
        add_folds(*mesh, item);
        const double size = std::sqrt(area / static_cast<double>(faces)) / scale_;
        if (size < kSmallFace * projection_.page.default_line) {
            raster_.face_sizes.emplace(shape.definition().get(), static_cast<float>(size));
        }
        triangles_ += mesh->triangles.size();
        raster_.is_complete = triangles_ <= kMostTriangles;
    }

    struct Fill {
        Rgb colour;
        bool is_lit;
    };

    Fill fill_of(const SceneItem& item, const kernel::Shape& shape) const {
        if (role_of(item, shape) != FaceRole::Body) return {ink_colour(item, ground_), false};
        return {body_colours(palette_colour(item.style.colour, ground_), ground_).fill, true};
    }

    /// For the mesh drawn last.
    void add_folds(const kernel::Mesh& mesh, const SceneItem& item) {
        for (const kernel::MeshFace& face : mesh.faces) {
            if (kernel::face_definition(face.face).surface()->kind() == kernel::SurfaceKind::Plane) continue;
            if (raster_.folds.size() > kMostFolds) return;
            const std::span<const kernel::MeshTriangle> all = mesh.triangles;
            const auto triangles = all.subspan(face.first_triangle, face.triangle_count);
            for (const auto& [from, to] : silhouette(triangles, places_)) {
                raster_.folds.push_back({&item, {Point(from / scale_), Point(to / scale_)}});
            }
        }
    }

    /// The area that the triangles are seen to have, in pixels.
    double draw(const kernel::Mesh& mesh, const kernel::Transform& placement, const Fill& fill) {
        places_.clear();
        for (const Point& p : mesh.points) {
            places_.push_back(projection_.place(placement.point(p)) * scale_);
        }
        double area = 0;
        for (const kernel::MeshTriangle& triangle : mesh.triangles) {
            const std::array<Point, 3> corners = {places_[triangle[0]], places_[triangle[1]],
                                                  places_[triangle[2]]};
            const kernel::Vector normal = kernel::cross(corners[1] - corners[0], corners[2] - corners[0]);
            area += std::abs(normal.z()) / 2;
            const kernel::Vector seen_normal(normal.x(), -normal.y(), normal.z());
            raster_.buffer.add(corners, fill.is_lit ? shaded(fill.colour, seen_normal) : fill.colour);
        }
        return area;
    }

    void add_unmeshed(const kernel::Shape& face) {
        ++raster_.unfilled;
        raster_.unmeshed.insert(face.definition().get());
    }

    /// The mesh of a shape where it is not moved; copies of one shape share theirs.
    const kernel::Mesh* mesh_of(const kernel::Shape& shape) {
        if (const auto known = meshes_.find(shape.definition().get()); known != meshes_.end()) {
            return &known->second;
        }
        try {
            kernel::Mesh mesh = kernel::mesh(shape.placed(nullptr), options_);
            mesh.edges.clear();
            points_ += mesh.points.size();
            if (points_ > kMostPoints) {
                meshes_.clear();
                points_ = mesh.points.size();
            }
            return &meshes_.emplace(shape.definition().get(), std::move(mesh)).first->second;
        } catch (const kernel::KernelError&) {
            return nullptr;
        }
    }

    const Projection& projection_;
    Ground ground_;
    FaceRaster raster_;
    double scale_;  // pixels per page unit
    kernel::MeshOptions options_;
    FaceWalk walk_{kMostParts};
    std::unordered_map<const kernel::Definition*, kernel::Mesh> meshes_;
    std::vector<Point> places_;  // of the mesh that is drawn, in pixels
    std::size_t points_ = 0;
    std::size_t triangles_ = 0;
};

}  // namespace

FaceRaster rasterise_faces(const Scene& scene, const Projection& projection, Ground ground, int pixels) {
    FaceRaster raster = Rasteriser(projection, ground, pixels).run(scene);
    const double excess = static_cast<double>(raster.buffer.work()) / static_cast<double>(kMostWork);
    if (excess <= 1) return raster;
    // Work goes by the square of the resolution where it goes by pixels, and by the resolution where it goes
    // by rows. What is too much even then is missing.
    const int fewer = std::max(static_cast<int>(pixels / std::sqrt(2 * excess)), kFewestPixels);
    raster = Rasteriser(projection, ground, std::min(fewer, pixels)).run(scene);
    raster.is_coarse = true;
    raster.is_complete = raster.is_complete && raster.buffer.work() <= kMostWork;
    return raster;
}

RasterVisibility::RasterVisibility(const DepthBuffer& buffer, const Page& page)
    : buffer_(buffer), scale_(pixels_per_unit(buffer, page)) {}

double RasterVisibility::resolution() const {
    return 1 / scale_;
}

}  // namespace veltrane
