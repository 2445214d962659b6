#include "veltrane/kernel/topo/dump.hpp"

#include "veltrane/kernel/geom/describe.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <ostream>
#include <sstream>
#include <unordered_map>

namespace veltrane::kernel {
namespace {

/// With an indentation that grew without limit, a chain of nested compounds
/// would give a text of quadratic size.
constexpr std::size_t kDeepestIndent = 32;

std::string number_text(double value) {
    const std::string point = describe(Point(value, 0, 0));
    return point.substr(1, point.find(' ') - 1);
}

std::string describe_placement(const Transform& transform) {
    std::string text;
    const Matrix3& turn = transform.rotation_part();
    if (turn != Matrix3::Identity()) {
        text += " turned x " + describe(Point(turn.col(0))) + " z " + describe(Point(turn.col(2)));
    }
    if (transform.translation_part() != Vector::Zero() || text.empty()) {
        text += " moved " + describe(Point(transform.translation_part()));
    }
    return text;
}

std::string plural(std::size_t count, const char* noun) {
    return " " + std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string describe_vertex(const VertexDefinition& vertex) {
    std::string text = " " + describe(vertex.point());
    if (vertex.tolerance() > kConfusion) text += " tolerance " + number_text(vertex.tolerance());
    return text;
}

std::string describe_edge(const EdgeDefinition& edge) {
    std::string text = " " + describe(*edge.curve()) + " from " + number_text(edge.range().first) + " to " +
                       number_text(edge.range().last);
    if (edge.is_closed()) text += " closed";
    return text;
}

/// What a definition is, in the rest of a line.
std::string describe_definition(const Shape& shape) {
    switch (shape.kind()) {
        case ShapeKind::Vertex:
            return describe_vertex(vertex_definition(shape));
        case ShapeKind::Edge:
            return describe_edge(edge_definition(shape));
        case ShapeKind::Wire:
            return plural(child_count(shape), "edge");
        case ShapeKind::Face:
            return " " + describe(*face_definition(shape).surface()) + plural(child_count(shape), "loop");
        case ShapeKind::Shell:
            return plural(child_count(shape), "face");
        case ShapeKind::Solid:
            return plural(child_count(shape), "shell");
        case ShapeKind::CompoundSolid:
            return plural(child_count(shape), "solid");
        case ShapeKind::Compound:
            return plural(child_count(shape), "member");
    }
    return {};
}

}  // namespace

class ShapeDumper::Lines {
public:
    Lines(std::ostream& out, std::size_t indent) : out_(out), indent_(indent) {}

    void dump(const Shape& root) {
        if (root.is_null()) {
            begin_line();
            out_ << "null shape\n";
            return;
        }
        enter(root, nullptr, nullptr);
        while (!stack_.empty()) {
            Frame& top = stack_.back();
            if (top.next == child_count(top.shape)) {
                stack_.pop_back();
            } else {
                step(top);
            }
        }
    }

private:
    struct Frame {
        Shape shape;
        const Loop* loop;  // that the shape is the wire of
        std::size_t next;
    };

    void step(Frame& top) {
        const std::size_t index = top.next++;
        const Loop* loop = nullptr;
        if (top.shape.is(ShapeKind::Face)) loop = &face_definition(top.shape).loops()[index];
        const ParameterCurve* parameter_curve = top.loop ? &top.loop->parameter_curves[index] : nullptr;
        const Shape below = own_child(top.shape, index);
        enter(below, loop, parameter_curve);
    }

    /// Writes the line of a use, and goes on below it when the definition is new.
    void enter(const Shape& shape, const Loop* loop, const ParameterCurve* parameter_curve) {
        begin_line();
        const auto [place, is_new] = numbers_.try_emplace(shape.definition().get(), numbers_.size() + 1);
        out_ << '#' << place->second << ' ' << name_of(shape.kind());
        if (shape.is_reversed()) out_ << " reversed";
        if (shape.placement()) out_ << describe_placement(shape.placement()->transform());
        out_ << (is_new ? describe_definition(shape) : " as above");
        if (parameter_curve) out_ << " in parameters " << describe(*parameter_curve->curve);
        out_ << '\n';
        // A wire met again in another face differs by the parameter curves of that
        // face.
        if (is_new || loop) stack_.push_back({shape, loop, 0});
    }

    void begin_line() {
        static const std::string kBlanks(2 * kDeepestIndent, ' ');
        const std::size_t depth = indent_ + stack_.size();
        out_.write(kBlanks.data(), static_cast<std::streamsize>(2 * std::min(depth, kDeepestIndent)));
        if (depth > kDeepestIndent) out_ << "(" << depth << ") ";
    }

    std::ostream& out_;
    std::size_t indent_;
    std::vector<Frame> stack_;
    std::unordered_map<const Definition*, std::size_t> numbers_;
};

ShapeDumper::ShapeDumper(std::ostream& out, std::size_t indent)
    : lines_(std::make_unique<Lines>(out, indent)) {}

ShapeDumper::~ShapeDumper() = default;

void ShapeDumper::dump(const Shape& shape) {
    lines_->dump(shape);
}

void dump(std::ostream& out, const Shape& shape) {
    ShapeDumper(out).dump(shape);
}

std::string dump(const Shape& shape) {
    std::ostringstream out;
    dump(out, shape);
    return out.str();
}

}  // namespace veltrane::kernel
