#include "veltrane/output/shape_text.hpp"

#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/geom/describe.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/dump.hpp"
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/output/number_text.hpp"

#include <ostream>
#include <unordered_map>

namespace veltrane {
namespace {

struct Sizes {
    double length = 0;
    double area = 0;
    bool has_edges = false;
    bool has_faces = false;
};

Sizes measured(const kernel::Shape& shape) {
    const auto counts = kernel::count_by_kind(shape);
    return {kernel::length(shape), kernel::area(shape),
            counts[static_cast<std::size_t>(kernel::ShapeKind::Edge)] > 0,
            counts[static_cast<std::size_t>(kernel::ShapeKind::Face)] > 0};
}

std::string measure_text(double value) {
    return kernel::is_infinite(value) ? "unbounded" : number_text(value);
}

std::string layer_of(const DxfSection_Object& record) {
    const auto* entity = as<const DxfSection_Entity>(&record);
    return entity ? entity->Layer.str() : std::string();
}

class ShapeText {
public:
    ShapeText(std::ostream& out, const RecordNames& names) : out_(out), names_(names), dumper_(out, 1) {}

    void write(const DxfSection_Object& record, const kernel::Shape& shape) {
        ++shapes_;
        out_ << type_name(record, names_);
        if (const std::string handle = handle_label(record); !handle.empty()) out_ << ' ' << handle;
        if (const std::string layer = layer_of(record); !layer.empty()) out_ << ", layer " << layer;
        write_measures(shape);
        dumper_.dump(shape);
    }

    void write_sums() {
        out_ << shapes_ << (shapes_ == 1 ? " shape" : " shapes") << ", length " << number_text(length_)
             << ", area " << number_text(area_);
        if (unbounded_ > 0) out_ << ", not counting " << unbounded_ << " unbounded";
        if (unmeasured_ > 0) out_ << ", not counting " << unmeasured_ << " that cannot be measured";
        out_ << '\n';
        const kernel::Box& box = boxes_.box();
        if (box.is_empty()) return;
        out_ << "box " << kernel::describe(box.min()) << " to " << kernel::describe(box.max()) << '\n';
    }

private:
    /// Inserts of one block share their definition and with it its sizes.
    Sizes sizes_of(const kernel::Shape& shape) {
        if (!shape.is(kernel::ShapeKind::Compound)) return measured(shape);
        const auto known = known_.find(shape.definition().get());
        if (known != known_.end()) return known->second;
        return known_[shape.definition().get()] = measured(shape);
    }

    void write_measures(const kernel::Shape& shape) {
        try {
            const Sizes sizes = sizes_of(shape);
            if (sizes.has_edges) out_ << ", length " << measure_text(sizes.length);
            if (sizes.has_faces) out_ << ", area " << measure_text(sizes.area);
            if (boxes_.add(shape)) {
                length_ += sizes.length;
                area_ += sizes.area;
            } else {
                ++unbounded_;
            }
        } catch (const kernel::KernelError&) {
            ++unmeasured_;
        }
        out_ << '\n';
    }

    std::ostream& out_;
    const RecordNames& names_;
    kernel::ShapeDumper dumper_;
    std::unordered_map<const kernel::Definition*, Sizes> known_;
    std::size_t shapes_ = 0;
    std::size_t unbounded_ = 0;
    std::size_t unmeasured_ = 0;
    double length_ = 0;
    double area_ = 0;
    kernel::BoxSum boxes_;
};

}  // namespace

void write_shape_text(std::ostream& out, const DxfSection_Model& model, const ReadProcess& process,
                      const RecordNames& names) {
    ShapeText text(out, names);
    visit_entities(model, [&](const Ref<DxfSection_Object>& record) {
        const kernel::Shape shape = shape_result(process.Find(record.get()).get());
        if (!shape.is_null()) text.write(*record, shape);
    });
    text.write_sums();
}

}  // namespace veltrane
