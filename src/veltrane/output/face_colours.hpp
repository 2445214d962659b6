// How faces and their edges are coloured. Internal to the folder.
#pragma once

#include "veltrane/output/colour.hpp"
#include "veltrane/output/scene.hpp"

namespace veltrane {

/// What the faces of a part of a scene are in a picture.
enum class FaceRole {
    Area,  ///< hatches and filled traces: one colour, no edges; areas may lie side by side
    Text,  ///< likewise, in detail
    Body,  ///< the skin of something: tinted and shaded, with edges that stand out
};

FaceRole role_of(const SceneItem& item, const kernel::Shape& shape);

/// The colour that the faces of such a part have, other than those of a body: its own, or a shade of it for a
/// hatch with a pattern that was not drawn.
Rgb ink_colour(const SceneItem& item, Ground ground);

struct FaceColours {
    Rgb fill;  ///< in full light
    Rgb edge;
};

FaceColours body_colours(Rgb colour, Ground ground);

/// A colour in the light that falls on a face. The normal is that of the view (x to the right, y upwards, z
/// towards the eye), of any length and either sense.
Rgb shaded(Rgb colour, const kernel::Vector& normal);

}  // namespace veltrane
