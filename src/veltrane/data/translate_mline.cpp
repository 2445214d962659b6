#include "veltrane/data/translate_mline.hpp"

#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <algorithm>

namespace veltrane {
namespace {

using kernel::Point;
using kernel::Vector;

constexpr std::int32_t kClosedFlag = 2;

/// The numbers of one line at a vertex: its offset along the miter, then where dashes begin and end.
const std::vector<double>& numbers_of(const DxfEnt_MLineVertex& vertex, int line) {
    static const std::vector<double> kNone;
    const auto& params = vertex.Params->Value(line);
    return params && params->Params ? params->Params->items() : kNone;
}

void append_segment(DxfData_GeometrySequence& sequence, const Point& from, const Point& to) {
    if (kernel::distance(from, to) > kernel::kConfusion) sequence.Append(kernel::make_segment(from, to));
}

Ref<DxfData_GeometrySequence> segments(const DxfEnt_MLine& mline, double scale) {
    auto sequence = make<DxfData_GeometrySequence>();
    if (!mline.Vertices) return sequence;
    const auto& vertices = mline.Vertices->items();
    const std::size_t open = mline.Flags & kClosedFlag ? 0 : 1;
    for (std::size_t i = 0; i + open < vertices.size(); ++i) {
        const auto& next = vertices[(i + 1) % vertices.size()];
        const auto piece = DxfData_TranslateMLine::TranlateVertexOfMLine(*vertices[i], *next, scale);
        for (const Ref<Transient>& segment : *piece) sequence->Append(segment);
    }
    return sequence;
}

}  // namespace

Ref<DxfData_GeometrySequence> DxfData_TranslateMLine::TranlateVertexOfMLine(const DxfEnt_MLineVertex& vertex,
                                                                            const DxfEnt_MLineVertex& next,
                                                                            double scale) {
    auto sequence = make<DxfData_GeometrySequence>();
    const int lines = std::min(length(vertex.Params), length(next.Params));
    if (lines == 0) return sequence;
    const Vector miter = kernel::unit(vertex.MiterDir), next_miter = kernel::unit(next.MiterDir);
    const Vector along = kernel::unit(vertex.SegmentDir);
    for (int line = 1; line <= lines; ++line) {
        const std::vector<double>& numbers = numbers_of(vertex, line);
        const std::vector<double>& next_numbers = numbers_of(next, line);
        if (numbers.empty() || next_numbers.empty()) continue;
        const Point start = scale * (vertex.Vertices + numbers[0] * miter);
        const Point end = scale * (next.Vertices + next_numbers[0] * next_miter);
        if (numbers.size() == 1) append_segment(*sequence, start, end);
        for (std::size_t i = 1; i < numbers.size(); i += 2) {
            const bool has_partner = i + 1 < numbers.size();
            append_segment(*sequence, start + scale * numbers[i] * along,
                           has_partner ? Point(start + scale * numbers[i + 1] * along) : end);
        }
    }
    return sequence;
}

Ref<DxfData_GeometrySequence> DxfData_TranslateMLine::MakeGeometry(DxfData_TransferContext& context,
                                                                   const Ref<DxfSection_Object>& record,
                                                                   double& thickness,
                                                                   kernel::Vector& extrusion) const {
    context.ClearStatus();
    const auto* mline = as<const DxfEnt_MLine>(record.get());
    if (!mline) {
        context.AddStatus(DxfData_Status::Fail1);
        return nullptr;
    }
    thickness = 0;
    extrusion = kernel::unit(mline->ExtrusionDir);
    Ref<DxfData_GeometrySequence> geometry;
    if (context.FindGeometry(record.get(), geometry)) return geometry;
    geometry = segments(*mline, context.UnitScale());
    if (geometry->IsEmpty()) {
        context.AddFail(record, "Geometry are not translated");
        context.AddStatus(DxfData_Status::Fail1);
    } else {
        context.AddStatus(DxfData_Status::Done1);
    }
    context.SetGeometry(record, geometry);
    return geometry;
}

}  // namespace veltrane
