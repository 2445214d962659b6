#include "veltrane/file/record_table.hpp"

#include <stdexcept>
#include <string>

namespace veltrane {

RecordTable::RecordTable(const char* class_name, std::vector<Row> rows)
    : class_name_(class_name), rows_(std::move(rows)) {
    index_.fill(kNoRow);
    // A group is kept where any row can keep it: rows that drop it come last.
    for (const bool dropping : {false, true}) {
        for (const Row& row : rows_) {
            if ((row.kind == ValueKind::Marker || row.kind == ValueKind::Constant) == dropping) index(row);
        }
    }
    for (const Row& row : rows_) {
        if (row.has_absent) with_absent_.push_back(&row);
    }
    if (base_)
        with_absent_.insert(with_absent_.end(), base_->with_absent_.begin(), base_->with_absent_.end());
    // Own rows come before the base's, so that a record may give a common code its own meaning.
    for (int code = 0; base_ && code < kCodes; ++code) {
        const Row* inherited = base_->find(code);
        if (inherited && !find(code)) index(*inherited, code);
    }
}

const Row* RecordTable::alternative_to(const Row& row) const {
    for (const Row& other : rows_) {
        if (&other > &row && other.code == row.code) return &other;
    }
    return nullptr;
}

void RecordTable::index(const Row& row) {
    if (row.kind == ValueKind::Base) {
        base_ = row.base;
        dumps_base_ = row.is_dumped;
    }
    if (row.kind == ValueKind::Groups && row.is_read) rest_ = &row;
    if (row.keeps_last) keeps_last_ = true;
    if (row.code < 0 || !row.is_read) return;
    index(row, row.code);
    if (row.kind != ValueKind::Coordinates) return;
    index(row, row.code + 10);
    index(row, row.code + 20);
}

void RecordTable::index(const Row& row, int code) {
    if (find(code)) return;  // a second row of a code is for writing
    if (readers_.size() >= kNoRow) throw std::logic_error(std::string("too many codes in ") + class_name_);
    index_[static_cast<std::size_t>(code)] = static_cast<std::uint8_t>(readers_.size());
    readers_.push_back(&row);
}

}  // namespace veltrane
