// Groups gathered for a list of them.
#pragma once

#include "veltrane/file/file_reader.hpp"

#include <cstddef>
#include <iterator>

namespace veltrane {

/// The list is made once, at the end and at its right size: in drawings of many records that keep groups it
/// is most of what is kept.
class GatheredGroups {
public:
    explicit GatheredGroups(DxfFile_FileReader& reader)
        : reader_(reader), first_(static_cast<std::ptrdiff_t>(reader.GroupBuffer().size())) {}

    /// Takes the reader's current group.
    void take() { reader_.GroupBuffer().push_back({reader_.Code(), reader_.Value()}); }

    /// What was taken since the last list; null when that is nothing.
    Ref<DxfSection_HSequenceOfDxfGroup> list() {
        std::vector<DxfSection_DxfGroup>& gathered = reader_.GroupBuffer();
        const auto begin = gathered.begin() + first_;
        if (begin == gathered.end()) return nullptr;
        auto list = make<DxfSection_HSequenceOfDxfGroup>(std::vector<DxfSection_DxfGroup>(
            std::make_move_iterator(begin), std::make_move_iterator(gathered.end())));
        gathered.erase(begin, gathered.end());
        return list;
    }

private:
    DxfFile_FileReader& reader_;
    std::ptrdiff_t first_;
};

}  // namespace veltrane
