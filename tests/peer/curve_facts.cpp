// Prints what the shapes of a drawing's curve entities measure, one line per entity, for comparison with
// another reader: handle, type, container, then start, end, length and box with all their digits.
#include "veltrane/control/reader.hpp"
#include "veltrane/ent/curves.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/file/object_registrator.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/section/block.hpp"
#include "veltrane/section/handle_text.hpp"
#include "veltrane/section/model.hpp"

#include <cstdio>
#include <string>

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
    const auto* entity = as<DxfSection_Entity>(record.get());
    const auto* registrator = entity ? DxfFile_ObjectRegistrator::Find(entity->DynamicType()) : nullptr;
    if (!registrator) return;
    const std::string handle = DxfSection::HexToString(entity->Handle).str();
    std::printf("%s\t%s\t%s", handle.c_str(), registrator->Name(), container.c_str());
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

void print_all(DxfControl_Reader& reader, const Ref<Sequence<Ref<DxfSection_Object>>>& records,
               const std::string& container) {
    if (!records) return;
    for (const Ref<DxfSection_Object>& record : *records) {
        if (const auto* block = as<DxfSection_Block>(record.get())) {
            print_all(reader, block->Objects, "BLOCK " + block->BlockName1.str());
        } else if (record) {
            const auto* entity = as<DxfSection_Entity>(record.get());
            const bool paper = entity && entity->InModelSpace != 0;
            print_record(reader, record, container.empty() ? (paper ? "PAPER" : "MODEL") : container);
        }
    }
}

}  // namespace

int main(int count, char** words) {
    DxfControl_Reader reader;
    StaticParameters::SetText("read.dxf.insunits.scale", "Off");  // the peer measures in drawing units
    if (count != 2 || reader.ReadFile(words[1]) != ExchangeStatus::Done) return 1;
    const auto model = as<DxfSection_Model>(reader.Model());
    for (const char* name : {"BLOCKS", "ENTITIES"}) {
        const auto section = model->FindSection(name, false);
        if (section) print_all(reader, section->Objects, "");
    }
    return 0;
}
