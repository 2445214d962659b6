// The framework's model: an ordered container of records, with what there is to report on each.
#pragma once

#include "veltrane/base/ref.hpp"
#include "veltrane/exchange/check.hpp"

#include <cstdint>
#include <iosfwd>
#include <unordered_map>
#include <vector>

namespace veltrane {

/// Records are numbered from 1 in the order in which they were first added; each stands once.
/// The model owns a use of every record it lists.
class ExchangeModel : public Typed<ExchangeModel, Transient> {
public:
    static constexpr const char* kTypeName = "ExchangeModel";

    int NbEntities() const { return static_cast<int>(records_.size()); }
    /// `number` runs from 1 to NbEntities(); anything else throws std::out_of_range.
    const Ref<Transient>& Value(int number) const {
        return records_.at(static_cast<std::size_t>(number) - 1);
    }
    /// The record's number, 0 when it is not in the list. Constant time.
    int Number(const Transient* record) const;
    /// Adds a record unless it is listed already; returns its number, 0 for null. `line` is where the
    /// record stands in the file it was read from, 0 when it was not read.
    int AddEntity(const Ref<Transient>& record, int line = 0);
    /// The line given with a record; 0 when none was.
    int Line(int number) const;
    /// Plain iteration in order of number.
    const std::vector<Ref<Transient>>& records() const { return records_; }

    /// Empties the record list and forgets all reports.
    virtual void Clear();
    /// Empties the record list only.
    void ClearEntities();

    /// Problems of the model as a whole.
    Check& GlobalCheck() { return *global_check_; }
    const Check& GlobalCheck() const { return *global_check_; }
    /// The report entry of a record; null when there is none.
    Check* CheckOf(int number) const;
    /// The same, made when there is none. `number` is that of a listed record.
    Check& ChangeCheck(int number);
    /// True when a fail was reported on the model or on any record.
    bool HasFailed() const;

    virtual void ClearHeader() = 0;
    virtual void ClearLabels() = 0;
    virtual void GetFromAnother(const ExchangeModel& other) = 0;
    virtual Ref<ExchangeModel> NewEmptyModel() const = 0;
    virtual void DumpHeader(std::ostream& out, int level) const = 0;
    virtual void PrintLabel(const Transient* record, std::ostream& out) const = 0;
    virtual Text StringLabel(const Transient* record) const = 0;
    virtual int NextNumberForLabel(std::string_view label, int last, bool exact) const = 0;

private:
    std::vector<Ref<Transient>> records_;
    std::vector<std::int32_t> lines_;  // by number - 1; no longer than the last record with a line
    std::vector<Ref<Check>> reports_;  // by number - 1; no longer than the last record with a report
    Ref<Check> global_check_ = make<Check>();
    /// Numbers of records whose own slot a later model has taken over.
    mutable std::unordered_map<const Transient*, int> numbers_;
    mutable bool numbers_filled_ = false;
    bool shares_records_ = false;  // some record came with the slot of another model
};

}  // namespace veltrane
