// The differences of two drawings as text or JSON.
#pragma once

#include "vdxf/drawing.hpp"
#include "vdxf/drawing_text.hpp"
#include "veltrane/file/drawing_compare.hpp"

#include <cstddef>
#include <ostream>
#include <string>

namespace veltrane::tool {

/// One of the two drawings.
class DiffSide {
public:
    explicit DiffSide(const Drawing& drawing) : drawing_(drawing), text_(drawing.model()) {}

    const Drawing& drawing() const { return drawing_; }
    /// A text of the drawing on one line.
    std::string shown(std::string_view text) const;
    std::string name_of(const DxfSection_Object& record) const;
    std::string layer_of(const DxfSection_Object& record) const;
    int line_of(const DxfSection_Object& record) const;

private:
    const Drawing& drawing_;
    DrawingText text_;
};

struct DiffReport {
    DiffSide before;
    DiffSide after;
    DrawingDifferences differences;

    /// The side on which a record of a difference stands; the first for one that stands on both.
    const DiffSide& side_of(const RecordDifference& difference) const {
        return difference.before.record ? before : after;
    }
};

struct DiffCounts {
    std::size_t added = 0;
    std::size_t removed = 0;
    std::size_t changed = 0;
    std::size_t renumbered = 0;
    std::size_t same = 0;
};
/// Records inside one that was added or removed count with it.
DiffCounts count(const DrawingDifferences& differences);

struct DiffTextOptions {
    std::size_t limit = 0;  ///< records shown of each section, table, block or polyline; 0 for all
    bool in_full = false;   ///< long values and long lists of fields are not shortened
};

void print_diff(std::ostream& out, const DiffReport& report, const DiffTextOptions& options);
/// The one line at its end.
void print_diff_summary(std::ostream& out, const DiffReport& report);
/// Everything, nothing shortened.
void print_diff_json(std::ostream& out, const DiffReport& report);

}  // namespace veltrane::tool
