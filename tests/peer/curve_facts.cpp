// Prints what the shapes of a drawing's curve entities measure, one line per entity, for comparison with
// another reader: handle, type, container, then start, end, length and box with all their digits.
#include "record_facts.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/topo/explore.hpp"

namespace {

using namespace veltrane;

void print_point(const kernel::Point& point) {
    std::printf("\t%.17g\t%.17g\t%.17g", point.x(), point.y(), point.z());
}

/// The entity's own curve: with a thickness, the first edge of what it sweeps.
void print_edge(const kernel::Shape& shape) {
    const auto edges = kernel::sub_shapes(shape, kernel::ShapeKind::Edge);
    if (edges.empty()) return;  // a block of points, or an empty one
    const auto [curve, range] = kernel::edge_geometry(edges.front());
    const bool bounded = !kernel::is_infinite(range.first) && !kernel::is_infinite(range.last);
    if (!bounded) {  // a base point and a direction say it all
        print_point(curve->value(0));
        print_point(curve->value(1) - curve->value(0));
        return;
    }
    print_point(curve->value(range.first));
    print_point(curve->value(range.last));
    std::printf("\t%.17g", kernel::length(*curve, range));
    const kernel::Box box = kernel::bounding_box(*curve, range);
    print_point(box.min());
    print_point(box.max());
}

void print_record(DxfControl_Reader& reader, const Ref<DxfSection_Object>& record,
                  const std::string& container) {
    if (!peer::print_head(*record, container)) return;
    reader.ClearShapes();
    if (reader.TransferEntity(record) == ExchangeStatus::Done) {
        const kernel::Shape& shape = reader.Shape(1);
        if (shape.is(kernel::ShapeKind::Vertex)) {
            print_point(kernel::vertex_point(shape));
        } else {
            print_edge(shape);
        }
    }
    std::printf("\n");
}

}  // namespace

int main(int count, char** words) {
    DxfControl_Reader reader;
    if (count != 2 || !peer::read(reader, words[1])) return 1;
    peer::visit_records(*as<DxfSection_Model>(reader.Model()),
                        [&](const Ref<DxfSection_Object>& record, const std::string& container) {
                            print_record(reader, record, container);
                        });
    return 0;
}
