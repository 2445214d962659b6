#include "veltrane/output/outline.hpp"

#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <vector>

namespace veltrane {
namespace {

using kernel::Shape;
using kernel::ShapeKind;

bool is_far(const kernel::Point& p) {
    return kernel::is_infinite(p.x()) || kernel::is_infinite(p.y()) || kernel::is_infinite(p.z());
}

class Walk {
public:
    Walk(std::size_t most_parts, OutlineSink& sink, OutlineCount& count)
        : most_parts_(most_parts), sink_(sink), count_(count) {}

    void run(const Shape& root) {
        if (!root.is(ShapeKind::Compound)) return take(root);
        stack_.push_back({root, 0});
        while (!stack_.empty()) {
            Step& top = stack_.back();
            if (top.next == kernel::child_count(top.shape)) {
                stack_.pop_back();
                continue;
            }
            Shape member = kernel::child(top.shape, top.next++);
            if (!has_room()) return;
            if (member.is(ShapeKind::Compound)) {
                stack_.push_back({std::move(member), 0});
            } else {
                take(member);
            }
        }
    }

private:
    struct Step {
        Shape shape;
        std::size_t next;
    };

    bool has_room() {
        // Empty compounds are steps too: without counting them their number would be without limit.
        if (++steps_ + count_.parts <= most_parts_) return true;
        count_.is_complete = false;
        return false;
    }

    void take(const Shape& shape) {
        if (shape.is_null()) return;
        switch (shape.kind()) {
            case ShapeKind::Vertex:
                ++count_.parts;
                return sink_.point(kernel::vertex_point(shape));
            case ShapeKind::Edge:
                return take_edge(shape);
            case ShapeKind::Wire:
                for (const Shape& edge : kernel::edges_in_order(shape)) take_edge(edge);
                return;
            default:
                for (const Shape& edge : kernel::distinct_sub_shapes(shape, ShapeKind::Edge)) take_edge(edge);
        }
    }

    void take_edge(const Shape& edge) {
        try {
            if (hand_on(edge)) {
                ++count_.parts;
                return;
            }
        } catch (const kernel::KernelError&) {
        }
        ++count_.skipped;
    }

    bool hand_on(const Shape& edge) {
        const auto [curve, range] = kernel::edge_geometry(edge);
        const kernel::Point from = curve->value(range.first);
        const kernel::Point to = curve->value(range.last);
        const bool is_open = !range.is_bounded() || is_far(from) || is_far(to);
        if (const auto* line = as<const kernel::Line>(curve.get())) {
            if (is_open) {
                sink_.unbounded_line(*line, range);
            } else if (edge.is_reversed()) {
                sink_.segment(to, from);
            } else {
                sink_.segment(from, to);
            }
            return true;
        }
        if (is_open) return false;
        sink_.curve(*curve, range, edge.is_reversed());
        return true;
    }

    std::size_t most_parts_;
    OutlineSink& sink_;
    OutlineCount& count_;
    std::vector<Step> stack_;
    std::size_t steps_ = 0;
};

}  // namespace

void outline(const Shape& shape, std::size_t most_parts, OutlineSink& sink, OutlineCount& count) {
    if (count.parts >= most_parts) count.is_complete = false;
    if (count.is_complete) Walk(most_parts, sink, count).run(shape);
}

}  // namespace veltrane
