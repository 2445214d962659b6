// All faces of a scene in a depth buffer. Internal to the folder.
#pragma once

#include "veltrane/output/depth_buffer.hpp"
#include "veltrane/output/projection.hpp"
#include "veltrane/output/scene.hpp"
#include "veltrane/output/silhouette.hpp"
#include "veltrane/output/visible_stroke.hpp"

#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace veltrane {

inline constexpr double kSmallFace = 10;  ///< default line widths

struct FaceRaster {
    /// A line along which a curved face turns away, in places of the projection.
    struct Fold {
        const SceneItem* item;
        PlacedSegment line;
    };

    DepthBuffer buffer;
    std::vector<Fold> folds;
    /// How large the faces of small-meshed parts of the scene are seen on average: the side of a square, in
    /// page units. By definition; other parts have faces of more than kSmallFace default lines.
    std::unordered_map<const kernel::Definition*, float> face_sizes;
    std::unordered_set<const kernel::Definition*> unmeshed;  ///< faces without triangles
    std::size_t unfilled = 0;                                ///< uses of those faces
    bool is_complete = true;  ///< false when there are more faces than a picture takes
    bool is_coarse = false;   ///< less resolution than asked for, because faces lie in too many layers
};

/// Draws the faces into a buffer that covers the page, tinted and shaded, with `pixels` on its longer side.
/// Faces seen edge-on have no place in it.
FaceRaster rasterise_faces(const Scene& scene, const Projection& projection, Ground ground, int pixels);

/// Shows what no face hides.
class RasterVisibility : public Visibility {
public:
    /// The buffer covers the page and outlives this object.
    RasterVisibility(const DepthBuffer& buffer, const Page& page);

    bool shows(const kernel::Point& place) const override { return !buffer_.hides(place * scale_); }
    std::optional<bool> shows_all(const kernel::Box&) const override { return std::nullopt; }
    double resolution() const override;

private:
    const DepthBuffer& buffer_;
    double scale_;  // pixels per page unit
};

}  // namespace veltrane
