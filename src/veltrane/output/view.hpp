// Where a picture is seen from, and what part of the plane it shows.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"
#include "veltrane/kernel/math/box.hpp"
#include "veltrane/kernel/math/frame.hpp"
#include "veltrane/output/rect.hpp"
#include "veltrane/output/scene.hpp"

#include <optional>
#include <string_view>

namespace veltrane {

enum class StandardView { Top, Bottom, Front, Back, Left, Right, Isometric };

/// "top" (also "plan"), "bottom", "front", "back", "left", "right", "isometric" (also "iso").
std::optional<StandardView> standard_view(std::string_view name);

/// A parallel projection onto the picture plane: x runs to the right, y upwards, in millimetres of the model.
class View {
public:
    /// The plan: from above, X to the right.
    View() = default;
    explicit View(StandardView view);
    /// Seen from a direction, which leads from the model to the eye. X of the picture follows from it by the
    /// arbitrary-axis rule, as in the views of a drawing: across world Z, or for a view from nearly above or
    /// below across world Y. Throws kernel::KernelError for a zero direction.
    explicit View(const kernel::Vector& direction);

    const kernel::Vector& right() const { return frame_.x; }
    const kernel::Vector& up() const { return frame_.y; }
    /// From the picture to the eye.
    const kernel::Vector& toward_eye() const { return frame_.z; }

    kernel::Point2 project(const kernel::Point& p) const { return vector(p); }
    kernel::Vector2 vector(const kernel::Vector& v) const { return {frame_.x.dot(v), frame_.y.dot(v)}; }
    /// How far towards the eye a point lies.
    double depth(const kernel::Point& p) const { return frame_.z.dot(p); }
    /// The tight boxes around a bounded piece of a curve, and around a face, as they are seen: x and y of the
    /// picture, and the depth. A face without bounds has an open box.
    kernel::Box box_of(const kernel::Curve& curve, const kernel::Interval& range) const;
    kernel::Box box_of(const kernel::Shape& face) const;

private:
    kernel::Frame frame_;
};

struct PictureBounds {
    Rect area;                ///< of the picture plane
    kernel::Interval depths;  ///< of everything bounded, as View::depth() has them; 0 to 0 where nothing is
};

/// The part of the picture plane that a scene fills: the rectangle around everything bounded. Where nothing
/// is, the base points of the unbounded lines count, with something around them. A point alone gets a square
/// of 10 mm, and so does a scene with nothing in it; the area has never two sides of length 0.
PictureBounds picture_bounds(const Scene& scene, const View& view);

}  // namespace veltrane
