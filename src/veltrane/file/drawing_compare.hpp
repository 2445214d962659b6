// What changed between two drawings: records added, removed and changed, header variables and comments.
#pragma once

#include "veltrane/file/record_compare.hpp"
#include "veltrane/section/model.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace veltrane {

/// Whether handles matter: a record's own, and those by which it refers to others.
enum class Handles {
    WhereRequired,  ///< unless a drawing is older than R13: there records may have none, and reading makes
                    ///< them
    Always,
    Never,
};

struct CompareOptions {
    /// Labels of fields and names of header variables that do not matter: "Layer", "Elements.Length",
    /// "$TDUPDATE". A list goes with all its elements, a sub-record with all its fields.
    std::vector<std::string> ignored;
    Handles handles = Handles::WhereRequired;
};

/// A header variable or comment. A value that is not set stands for one that was added or removed.
struct ValueDifference {
    std::string name;  ///< of the variable; "comment 2" for the second comment of the file
    std::optional<std::string> before;
    std::optional<std::string> after;
};

/// A record in its drawing.
struct PlacedRecord {
    const DxfSection_Object* record = nullptr;
    const DxfSection_Object* container = nullptr;  ///< the record directly around it; null at the top
    const DxfSection_Object* section = nullptr;    ///< the outermost record around it; itself at the top
};

/// Without `before` the record was added, without `after` it was removed.
struct RecordDifference {
    PlacedRecord before;
    PlacedRecord after;
    std::vector<FieldDifference> fields;
    std::size_t contents = 0;  ///< records inside one that was added or removed; they are not told singly
};

/// Refers to the records of both models.
struct DrawingDifferences {
    std::vector<ValueDifference> comments;
    std::vector<ValueDifference> variables;
    /// Removed and changed records in the order of the first drawing, then added ones in that of the second.
    std::vector<RecordDifference> records;
    /// Records that differ in nothing but their handles.
    std::vector<RecordDifference> renumbered;
    std::size_t pairs = 0;  ///< records found in both drawings, those that are equal included

    bool empty() const {
        return comments.empty() && variables.empty() && records.empty() && renumbered.empty();
    }
};

/// Compares the trees of two drawings. Sections, tables, blocks, table entries and classes are paired by
/// name. Other records of one type in one container are paired when they are equal, then by their handles
/// unless most of what is paired already has another, then by their places between paired ones. The order of
/// records is not compared, and neither is what was reported on them.
///
/// A record that refers to another by its handle is unchanged when it refers to the same record, whatever
/// the handle is now. Time and memory grow with the number of records.
DrawingDifferences compare_drawings(const DxfSection_Model& before, const DxfSection_Model& after,
                                    const CompareOptions& options = {});

}  // namespace veltrane
