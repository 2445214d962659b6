// A scene divided into triangles, segments and points. Internal to the folder.
#pragma once

#include "veltrane/base/text.hpp"
#include "veltrane/kernel/math/transform.hpp"
#include "veltrane/output/mesh_file.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace veltrane {

using MeshPoint = std::array<float, 3>;

/// What a cell is; the value is the number of its corners.
enum class MeshKind : std::uint8_t { Points = 1, Segments = 2, Triangles = 3 };

/// Millimetres from the origin of the groups that use it.
struct MeshGeometry {
    MeshKind kind = MeshKind::Triangles;
    bool is_closed = false;  ///< each side of a triangle is that of one other
    std::vector<MeshPoint> points;
    std::vector<std::uint32_t> corners;  ///< places in `points`; none for points, which are their own cells

    std::size_t cells() const {
        return kind == MeshKind::Points ? points.size() : corners.size() / static_cast<std::size_t>(kind);
    }
};

struct MeshPiece {
    Text layer;
    int colour = 7;
    std::size_t geometry = 0;  ///< index in MeshScene::geometries
};

/// A use of a group.
struct MeshPlace {
    std::string name;
    Text layer;
    std::size_t group = 0;     ///< index in MeshScene::groups, less than that of the group that it stands in
    kernel::Transform motion;  ///< rigid, from the co-ordinates of that group to those of this one
};

/// What a block, or the drawing, holds. Its co-ordinates count from an origin of its own, so that floats
/// suffice for them.
struct MeshGroup {
    std::string name;
    kernel::Point origin{0, 0, 0};
    std::vector<MeshPiece> pieces;  ///< one for each layer, colour and kind, closed and open ones apart
    std::vector<MeshPlace> places;
};

struct MeshScene {
    std::vector<MeshGeometry> geometries;
    std::vector<MeshGroup> groups;  ///< none is empty, but for the drawing itself, which is the last

    const MeshGroup& drawing() const { return groups.back(); }
};

/// A mesh is larger than anybody can use; the message says so.
struct MeshTooLarge : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What of a group stands on one layer.
struct MeshLayer {
    Text name;
    std::vector<const MeshPiece*> pieces;
    std::vector<const MeshPlace*> places;
};

/// The layers of a group, in the order in which they first come. They refer to the group.
std::vector<MeshLayer> layers_of(const MeshGroup& group);

/// What a format has room for.
struct MeshRoom {
    bool has_curves = false;
    bool has_points = false;
    bool has_groups = false;
};

/// Divides a scene; `report` gets everything but the problem. Throws MeshTooLarge.
MeshScene make_mesh_scene(const Scene& scene, const MeshFileOptions& options, const MeshRoom& room,
                          MeshReport& report);

/// The same as one group, with every copy written out.
MeshScene flattened(const MeshScene& scene);

}  // namespace veltrane
