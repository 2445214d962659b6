// What tells two records of one class apart, field by field.
#pragma once

#include "veltrane/section/object.hpp"

#include <string>
#include <vector>

namespace veltrane {

class RecordTable;

/// One field in which two records differ. Labels are those of the dump; an element of a list is named with
/// its number, a field of a sub-record or contained record with the path to it: "Knots[3]",
/// "Objects[2].Radius". A list whose length differs is one difference and its elements are not compared.
struct FieldDifference {
    std::string label;
    int code = -1;       ///< group code of the field; -1 when it has none of its own
    std::string before;  ///< the field as text, reals with all their digits; "<NOT SET>" for what is not set
    std::string after;
};

enum class ContainedRecords {
    Count,    ///< records inside a section, table or block are counted
    Compare,  ///< and compared pair by pair, at all depths
};

/// The fields, those of the base classes included, in which the records differ; nothing when they are equal.
/// Reals are equal when they are the same number, texts when they are the same characters. Pieces
/// (application data, extended data, header variables) are compared by the lines of their dump. Records of
/// different classes differ in "class" alone, and so does a record of a class that is not registered.
std::vector<FieldDifference> compare_records(const DxfSection_Object& before, const DxfSection_Object& after,
                                             ContainedRecords contained = ContainedRecords::Count);

/// The same by a given table, of which both are records or sub-records.
std::vector<FieldDifference> compare_fields(const RecordTable& table, const Transient& before,
                                            const Transient& after);

}  // namespace veltrane
