// Which differences of two records matter.
#pragma once

#include "veltrane/file/record_compare.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace veltrane {

/// True for the codes whose value the format defines to be a handle.
bool is_handle_code(int code);

/// When two handles, one of each drawing, refer to the same record.
enum class HandleRule {
    Any,    ///< always: nobody knows
    Equal,  ///< when they are one number
    Bound,  ///< when they are bound, or else when they are one number
};

class DifferenceFilter {
public:
    /// Refers to the labels.
    DifferenceFilter(const std::vector<std::string>& ignored, HandleRule rule)
        : ignored_(ignored), rule_(rule) {}

    void bind(std::int32_t before, std::int32_t after) { handles_.try_emplace(before, after); }

    bool is_ignored(std::string_view label) const;
    bool same_groups(const Ref<DxfSection_HSequenceOfDxfGroup>& before,
                     const Ref<DxfSection_HSequenceOfDxfGroup>& after) const;
    /// True for a difference of these two records, or of records inside them, that has to be told.
    bool matters(const FieldDifference& difference, const DxfSection_Object& before,
                 const DxfSection_Object& after) const;

private:
    bool same_handle(std::string_view before, std::string_view after) const;
    bool same_application_data(const DxfSection_Object& before, const DxfSection_Object& after) const;

    const std::vector<std::string>& ignored_;
    HandleRule rule_;
    std::unordered_map<std::int32_t, std::int32_t> handles_;
};

}  // namespace veltrane
