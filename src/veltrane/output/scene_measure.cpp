#include "veltrane/output/scene_measure.hpp"

#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/algo/free_edges.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/output/limits.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <unordered_map>

namespace veltrane {
namespace {

using kernel::Shape;
using kernel::ShapeKind;
using ByLayer = std::map<std::string, Measures, std::less<>>;

void add_times(std::size_t& sum, std::size_t count, std::size_t times) {
    constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();
    if (count == 0 || times == 0) return;
    sum = count > (kMost - sum) / times ? kMost : sum + count * times;
}

/// Each edge ends in the vertex where the next one starts, and the last one where the first one does.
bool is_closed_chain(const std::vector<Shape>& edges) {
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const Shape end = kernel::last_vertex(edges[i]);
        const Shape start = kernel::first_vertex(edges[(i + 1) % edges.size()]);
        if (end.is_null() || start.is_null() || !kernel::is_same(end, start)) return false;
    }
    return !edges.empty();
}

/// What stands on one layer of a group, or of the scene itself.
class LayerContent {
public:
    void take(const Shape& shape) {
        std::size_t steps = 0;
        std::vector<Shape> pending{shape};
        while (!pending.empty()) {
            const Shape next = std::move(pending.back());
            pending.pop_back();
            if (++steps > kMostParts) {
                add_times(measures_.unmeasured, 1, 1);
                return;
            }
            if (next.is(ShapeKind::Compound)) {
                for (Shape& member : kernel::children(next)) pending.push_back(std::move(member));
            } else {
                take_member(next);
            }
        }
    }

    Measures finish(double gap) {
        if (!loose_.empty()) {
            const kernel::FreeEdgeWires wires = kernel::wires_of_free_edges(loose_, gap);
            measures_.closed += wires.closed.size();
            measures_.open += wires.open.size();
        }
        return measures_;
    }

private:
    void take_member(const Shape& shape) {
        ++measures_.shapes[static_cast<std::size_t>(shape.kind())];
        try {
            if (shape.kind() > ShapeKind::Wire) {
                take_faces(shape);
            } else if (shape.kind() > ShapeKind::Vertex) {
                take_curves(shape);
            }
        } catch (const kernel::KernelError&) {
            ++measures_.unmeasured;
        }
    }

    void take_faces(const Shape& shape) {
        const double area = kernel::area(shape);
        if (!std::isfinite(area)) {
            ++measures_.unbounded;
            return;
        }
        measures_.volume += std::abs(kernel::volume(shape));
        measures_.area += area;
    }

    void take_curves(const Shape& shape) {
        const double length = kernel::length(shape);
        if (!std::isfinite(length)) {
            ++measures_.unbounded;
            return;
        }
        measures_.length += length;
        if (shape.is(ShapeKind::Edge)) {
            loose_.push_back(shape);
            return;
        }
        std::vector<Shape> edges = kernel::edges_in_order(shape);
        if (is_closed_chain(edges)) {
            ++measures_.closed;
        } else {
            loose_.insert(loose_.end(), edges.begin(), edges.end());
        }
    }

    Measures measures_;
    std::vector<Shape> loose_;
};

class SceneMeasurer {
public:
    explicit SceneMeasurer(double gap) : gap_(gap) {}

    /// Measures what items place before the items themselves, without recursion.
    ByLayer measure(const std::vector<SceneItem>& root) {
        struct Step {
            const SceneGroup* group;  // null for the root
            const std::vector<SceneItem>* items;
            std::size_t next = 0;
        };
        std::vector<Step> path{{nullptr, &root}};
        while (true) {
            Step& top = path.back();
            if (top.next < top.items->size()) {
                const SceneGroup* content = (*top.items)[top.next++].content;
                if (content && known_.count(content) == 0) path.push_back({content, &content->items});
                continue;
            }
            ByLayer sum = sum_of(*top.items);
            const SceneGroup* const group = top.group;
            path.pop_back();
            if (path.empty()) return sum;
            known_.emplace(group, std::move(sum));
        }
    }

private:
    ByLayer sum_of(const std::vector<SceneItem>& items) const {
        std::map<std::string_view, LayerContent> own;
        ByLayer sum;
        for (const SceneItem& item : items) {
            if (!item.content) {
                own[item.style.layer].take(item.shape);
                continue;
            }
            const std::size_t copies = copies_of(item).size();
            for (const auto& [layer, measures] : known_.at(item.content)) sum[layer].add(measures, copies);
        }
        for (auto& [layer, content] : own) sum[std::string(layer)].add(content.finish(gap_));
        return sum;
    }

    double gap_;
    std::unordered_map<const SceneGroup*, ByLayer> known_;
};

}  // namespace

void Measures::add(const Measures& other, std::size_t times) {
    for (std::size_t kind = 0; kind < shapes.size(); ++kind)
        add_times(shapes[kind], other.shapes[kind], times);
    const auto factor = static_cast<double>(times);
    length += other.length * factor;
    area += other.area * factor;
    volume += other.volume * factor;
    add_times(closed, other.closed, times);
    add_times(open, other.open, times);
    add_times(unbounded, other.unbounded, times);
    add_times(unmeasured, other.unmeasured, times);
}

std::size_t Measures::shape_count() const {
    std::size_t sum = 0;
    for (const std::size_t count : shapes) add_times(sum, count, 1);
    return sum;
}

SceneMeasures measure(const Scene& scene, double gap) {
    SceneMeasures result;
    for (auto& [layer, measures] : SceneMeasurer(gap).measure(scene.items)) {
        result.total.add(measures);
        result.layers.push_back({layer, measures});
    }
    kernel::BoxSum boxes;
    for (const SceneItem& item : scene.items) boxes.add(item.shape);
    result.box = boxes.box();
    return result;
}

}  // namespace veltrane
