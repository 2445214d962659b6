// Prints what the entities of a drawing expand to, one line per entity, for comparison with another reader:
// handle, type, container, then the faces, the edges and the vertices of its shape with all their digits, as
// JSON. A face is the list of its edges. An edge is told by points that do not depend on the sense it runs
// in: a straight one by both ends; a piece of a conic by five points and a spline by nine, at equal steps of
// the parameter; a whole ellipse by its centre and the six different numbers of (u u^T + v v^T) / |u|, where
// u and v are its half axes, which holds for any pair of conjugate ones.
#include "record_facts.hpp"
#include "veltrane/data/init.hpp"
#include "veltrane/data/translate_object.hpp"
#include "veltrane/ent/curves.hpp"
#include "veltrane/ent/faces.hpp"
#include "veltrane/ent/hatch.hpp"
#include "veltrane/ent/inserts.hpp"
#include "veltrane/ent/multiline.hpp"
#include "veltrane/ent/polylines.hpp"
#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/ellipse.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <cmath>
#include <cstdlib>
#include <set>
#include <string_view>
#include <vector>

namespace {

using namespace veltrane;

/// What the peer expands too. Other entities inside blocks must not show in the inserts.
const Type* const kCompared[] = {&DxfEnt_Line::type(),     &DxfEnt_Circle::type(), &DxfEnt_Ellipse::type(),
                                 &DxfEnt_Spline::type(),   &DxfEnt_Point::type(),  &DxfEnt_LWPolyline::type(),
                                 &DxfEnt_Polyline::type(), &DxfEnt_Face3d::type(), &DxfEnt_Trace::type(),
                                 &DxfEnt_Hatch::type(),    &DxfEnt_MLine::type(),  &DxfEnt_Insert::type(),
                                 &DxfSection_Block::type()};

void forget_other_translators() {
    DxfData::Init();
    std::set<std::string_view> compared;
    for (const Type* type : kCompared) compared.insert(type->name());
    std::erase_if(DxfData_TranslateObject::GetRegistry(),
                  [&](const auto& entry) { return compared.count(entry.first) == 0; });
}

using Numbers = std::vector<double>;

void append(Numbers& numbers, const kernel::Point& point) {
    numbers.insert(numbers.end(), {point.x(), point.y(), point.z()});
}

Numbers whole_ellipse(const kernel::Frame& frame, double major, double minor) {
    const kernel::Matrix3 square =
        major * frame.x * frame.x.transpose() + minor * minor / major * frame.y * frame.y.transpose();
    Numbers numbers;
    append(numbers, frame.origin);
    for (int row = 0; row < 3; ++row) {
        for (int column = row; column < 3; ++column) numbers.push_back(square(row, column));
    }
    return numbers;
}

Numbers sampled(const kernel::Curve& curve, const kernel::Interval& range, int steps) {
    Numbers numbers;
    for (int step = 0; step <= steps; ++step) {
        append(numbers, curve.value(range.first + range.length() * step / steps));
    }
    return numbers;
}

Numbers numbers_of(const kernel::Shape& edge) {
    const auto [placed, range] = kernel::edge_geometry(edge);
    const Ref<kernel::Curve> curve = kernel::untrimmed(placed);
    if (curve->kind() == kernel::CurveKind::Line) return sampled(*curve, range, 1);
    if (curve->kind() == kernel::CurveKind::BSpline) return sampled(*curve, range, 8);
    if (std::abs(range.length() - kernel::kTwoPi) > 1e-7) return sampled(*curve, range, 4);
    if (const auto* circle = as<const kernel::Circle>(curve.get())) {
        return whole_ellipse(circle->frame(), circle->radius(), circle->radius());
    }
    const auto& ellipse = static_cast<const kernel::Ellipse&>(*curve);
    return whole_ellipse(ellipse.frame(), ellipse.major_radius(), ellipse.minor_radius());
}

std::string json(const Numbers& numbers) {
    std::string text;
    char digits[32];
    for (const double number : numbers) {
        std::snprintf(digits, sizeof digits, "%s%.17g", text.empty() ? "[" : ",", number);
        text += digits;
    }
    return text + "]";
}

void add_to(std::string& list, const std::string& item) {
    list += (list.empty() ? "" : ",") + item;
}

std::string json_of_face(const kernel::Shape& face) {
    std::string edges;
    for (const kernel::Shape& edge : kernel::distinct_sub_shapes(face, kernel::ShapeKind::Edge)) {
        add_to(edges, json(numbers_of(edge)));
    }
    return "[" + edges + "]";
}

void print_leaves(const kernel::Shape& shape) {
    std::string faces, edges, vertices;
    std::vector<kernel::Shape> pending{shape};
    while (!pending.empty()) {
        const kernel::Shape next = std::move(pending.back());
        pending.pop_back();
        if (next.is(kernel::ShapeKind::Face)) {
            add_to(faces, json_of_face(next));
        } else if (next.is(kernel::ShapeKind::Edge)) {
            add_to(edges, json(numbers_of(next)));
        } else if (next.is(kernel::ShapeKind::Vertex)) {
            Numbers numbers;
            append(numbers, kernel::vertex_point(next));
            add_to(vertices, json(numbers));
        } else {
            for (kernel::Shape& child : kernel::children(next)) pending.push_back(std::move(child));
        }
    }
    std::printf("\t{\"faces\":[%s],\"edges\":[%s],\"points\":[%s]}", faces.c_str(), edges.c_str(),
                vertices.c_str());
}

void print_shape(const kernel::Shape& shape, std::size_t limit) {
    if (shape.is_null()) return;
    const auto counts = kernel::count_by_kind(shape);
    const auto edges = counts[static_cast<std::size_t>(kernel::ShapeKind::Edge)];
    if (edges > limit) {
        std::printf("\t%zu edges", edges);
    } else {
        print_leaves(shape);
    }
}

/// By sections, so that every block is translated once; what an exception kept from its turn, by itself.
void transfer(DxfControl_Reader& reader, DxfSection_Model& model) {
    for (const char* name : {"BLOCKS", "ENTITIES"}) {
        if (const auto section = model.FindSection(name, false)) reader.TransferEntity(section);
    }
    peer::visit_records(model, [&](const Ref<DxfSection_Object>& record, const std::string&) {
        const bool is_compared = bool(DxfData_TranslateObject::FindTool(record->DynamicType(), true));
        if (is_compared && !reader.Process()->Find(record.get())) reader.TransferEntity(record);
    });
}

}  // namespace

/// EXPANSION_FACTS DRAWING LIMIT: of shapes with more edges than the limit, only their number is told.
int main(int count, char** words) {
    DxfControl_Reader reader;
    if (count != 3 || !peer::read(reader, words[1])) return 1;
    StaticParameters::SetText("read.dxf.hatchentities", "On");
    forget_other_translators();
    const auto model = as<DxfSection_Model>(reader.Model());
    transfer(reader, *model);
    const std::size_t limit = std::strtoul(words[2], nullptr, 10);
    peer::visit_records(*model, [&](const Ref<DxfSection_Object>& record, const std::string& container) {
        if (!DxfData_TranslateObject::FindTool(record->DynamicType(), true)) return;
        if (!peer::print_head(*record, container)) return;
        print_shape(shape_result(reader.Process()->Find(record.get()).get()), limit);
        std::printf("\n");
    });
    return 0;
}
