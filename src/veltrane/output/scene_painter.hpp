// Draws scenes with faces or without. Internal to the folder.
#pragma once

#include "veltrane/output/canvas.hpp"
#include "veltrane/output/face_survey.hpp"
#include "veltrane/output/painter.hpp"
#include "veltrane/output/projection.hpp"
#include "veltrane/output/scene.hpp"

#include <functional>
#include <string>
#include <vector>

namespace veltrane {

/// Heights that are closer than this (millimetres) are the same in a picture of that area.
double height_tolerance(const Rect& area);

class ScenePainter {
public:
    /// What is handed in outlives this object.
    ScenePainter(const Scene& scene, const Projection& projection, Ground ground, Canvas& canvas);

    /// Strokes alone, in the drawing's order.
    void draw_lines();
    /// Faces that are parallel, as fills: level by level from the lowest on, and before, between and after
    /// them what lies there. On a level the drawing's order counts. Heights are those of the projection in
    /// the model; `heights` reach over everything there is.
    void draw_levels(const std::vector<double>& levels, const kernel::Interval& heights);
    /// Faces as an image of `pixels` on the longer side, and over it what they do not hide of the strokes.
    /// The projection's heights must be those towards the eye.
    void draw_bodies(int pixels);

    /// What could not be drawn: sentences.
    std::vector<std::string> notes() const;

private:
    /// A part of the scene and the pens it is drawn with.
    struct Leaf {
        const kernel::Shape& shape;
        Pen line;  ///< where no faces are seen
        Pen edge;
        Pen fill;
        bool is_ink;
    };
    using FaceVisitor = std::function<void(const kernel::Shape& face, const Leaf& leaf)>;
    /// By how much the edges of a leaf are thinner than its pen says.
    using EdgeWidth = std::function<double(const kernel::Shape& leaf)>;

    Leaf leaf_of(const kernel::Shape& shape, const SceneItem& item) const;
    void visit(const std::function<void(const kernel::Shape&, const SceneItem&)>& visitor);
    /// Strokes all there is, as far as it is seen, after handing over the faces that are seen in their places
    /// of the order. Ink is not stroked: that is the visitor's choice.
    void draw_all(StrokeCutter& cutter, const FaceVisitor& on_face, const EdgeWidth& edge_width);
    void draw_slab(double low, double high, bool has_faces);

    const Scene& scene_;
    const Projection& projection_;
    Ground ground_;
    Canvas& canvas_;
    double deviation_;
    Painter painter_;
    OutlineCount count_;
    std::size_t unfilled_ = 0;
    std::vector<std::string> face_notes_;
};

}  // namespace veltrane
