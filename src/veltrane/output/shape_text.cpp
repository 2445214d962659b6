#include "veltrane/output/shape_text.hpp"

#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/geom/describe.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/dump.hpp"
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/output/number_text.hpp"

#include <optional>
#include <ostream>

namespace veltrane {
namespace {

struct Measures {
    double length = 0;
    double area = 0;
    kernel::Box box;
};

std::optional<Measures> measures_of(const kernel::Shape& shape) {
    try {
        return Measures{kernel::length(shape), kernel::area(shape), kernel::bounding_box(shape)};
    } catch (const kernel::KernelError&) {
        return std::nullopt;
    }
}

bool has_kind(const kernel::Shape& shape, kernel::ShapeKind kind) {
    return kernel::count_by_kind(shape)[static_cast<std::size_t>(kind)] > 0;
}

std::string measure_text(double value) {
    return kernel::is_infinite(value) ? "unbounded" : number_text(value);
}

std::string layer_of(const DxfSection_Object& record) {
    const auto* entity = as<const DxfSection_Entity>(&record);
    return entity ? entity->Layer.str() : std::string();
}

void write_indented(std::ostream& out, std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        out << "  " << text.substr(0, end) << '\n';
        if (end == std::string_view::npos) return;
        text.remove_prefix(end + 1);
    }
}

class ShapeText {
public:
    ShapeText(std::ostream& out, const RecordNames& names) : out_(out), names_(names) {}

    void write(const DxfSection_Object& record, const kernel::Shape& shape) {
        ++shapes_;
        out_ << type_name(record, names_);
        if (const std::string handle = handle_label(record); !handle.empty()) out_ << ' ' << handle;
        if (const std::string layer = layer_of(record); !layer.empty()) out_ << ", layer " << layer;
        write_measures(shape);
        write_indented(out_, kernel::dump(shape));
    }

    void write_sums() {
        out_ << shapes_ << (shapes_ == 1 ? " shape" : " shapes") << ", length " << number_text(length_)
             << ", area " << number_text(area_);
        if (unbounded_ > 0) out_ << ", not counting " << unbounded_ << " unbounded";
        if (unmeasured_ > 0) out_ << ", not counting " << unmeasured_ << " that cannot be measured";
        out_ << '\n';
        if (box_.is_empty()) return;
        out_ << "box " << kernel::describe(box_.min()) << " to " << kernel::describe(box_.max()) << '\n';
    }

private:
    void write_measures(const kernel::Shape& shape) {
        const auto measures = measures_of(shape);
        if (!measures) {
            ++unmeasured_;
            out_ << '\n';
            return;
        }
        if (has_kind(shape, kernel::ShapeKind::Edge)) out_ << ", length " << measure_text(measures->length);
        if (has_kind(shape, kernel::ShapeKind::Face)) out_ << ", area " << measure_text(measures->area);
        out_ << '\n';
        add(*measures);
    }

    void add(const Measures& measures) {
        if (measures.box.is_open()) {
            ++unbounded_;
            return;
        }
        length_ += measures.length;
        area_ += measures.area;
        box_.add(measures.box);
    }

    std::ostream& out_;
    const RecordNames& names_;
    std::size_t shapes_ = 0;
    std::size_t unbounded_ = 0;
    std::size_t unmeasured_ = 0;
    double length_ = 0;
    double area_ = 0;
    kernel::Box box_;
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
