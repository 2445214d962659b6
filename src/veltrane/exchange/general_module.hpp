// What a norm tells about its records: what they share, how they are called.
#pragma once

#include "veltrane/exchange/check.hpp"
#include "veltrane/exchange/entity_iterator.hpp"
#include "veltrane/exchange/share_tool.hpp"

namespace veltrane {

/// Every operation is told the record's case number, which the protocol gives for its type.
class ExchangeGeneralModule : public Typed<ExchangeGeneralModule, Transient> {
public:
    static constexpr const char* kTypeName = "ExchangeGeneralModule";

    /// Adds the records that `record` owns directly.
    virtual void FillSharedCase(int number, const Transient* record, EntityIterator& shared) const = 0;
    /// Adds the records that `record` refers to without owning them.
    virtual void ListImpliedCase(int number, const Transient* record, EntityIterator& implied) const = 0;
    virtual void CheckCase(int number, const Transient* record, const ShareTool& shares,
                           Check& check) const = 0;
    /// Makes an empty record; false when the norm does not do that.
    virtual bool NewVoid(int number, Ref<Transient>& record) const = 0;
    virtual void CopyCase(int number, const Transient* from, Transient* to) const = 0;
    virtual int CategoryNumber(int number, const Transient* record, const ShareTool& shares) const = 0;
    /// The record's name; null when there is none to give.
    virtual Text Name(int number, const Transient* record, const ShareTool& shares) const = 0;
};

}  // namespace veltrane
