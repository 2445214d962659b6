// The faces of a scene as a view shows them. Internal to the folder.
#pragma once

#include "veltrane/output/scene.hpp"
#include "veltrane/output/view.hpp"

#include <cstddef>
#include <functional>
#include <vector>

namespace veltrane {

/// Walks the faces of shapes until there have been too many parts: compounds may share their members over and
/// over.
class FaceWalk {
public:
    explicit FaceWalk(std::size_t most_parts) : room_(most_parts) {}

    /// Visits the faces of a shape in world place. False, with nothing visited, when there is no room for it.
    bool visit(const kernel::Shape& shape, const std::function<void(const kernel::Shape&)>& visitor);

private:
    std::size_t room_;
};

/// True for a face of which but a line or a curve is seen.
bool is_edge_on(const kernel::Shape& face, const View& view);

/// How far along a direction some point of a face lies; 0 for a face without edges.
double height_of(const kernel::Shape& face, const kernel::Vector& direction);

/// Faces that are seen edge-on do not count.
struct FaceSurvey {
    bool has_faces = false;
    /// True when faces can be drawn in the order of their height above each other: all are plane and
    /// parallel, on a few levels.
    bool has_levels = true;
    kernel::Vector normal{0, 0, 1};  ///< of all faces, towards the eye, where there are levels
    std::vector<double> levels;      ///< heights of faces along the normal, ascending; none are closer
                                     ///< together than the tolerance
};

FaceSurvey survey_faces(const Scene& scene, const View& view, double tolerance);

}  // namespace veltrane
