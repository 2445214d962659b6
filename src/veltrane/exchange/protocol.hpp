// What a norm tells about itself: which models are its own and how a new one is made.
#pragma once

#include "veltrane/base/ref.hpp"
#include "veltrane/exchange/model.hpp"

namespace veltrane {

class ExchangeProtocol : public Typed<ExchangeProtocol, Transient> {
public:
    static constexpr const char* kTypeName = "ExchangeProtocol";

    /// The protocols this one builds on, numbered from 1.
    virtual int NbResources() const = 0;
    virtual Ref<ExchangeProtocol> Resource(int number) const = 0;
    /// The case under which the general module knows records of a type; 0 when it knows none.
    virtual int TypeNumber(const Type& type) const = 0;
    virtual bool IsSuitableModel(const ExchangeModel* model) const = 0;
    /// A new empty model.
    virtual Ref<ExchangeModel> NewModel() const = 0;
    /// A record that stands for one of an unknown type; null when the norm has none.
    virtual Ref<Transient> UnknownEntity() const = 0;
    virtual bool IsUnknownEntity(const Transient* record) const = 0;
};

}  // namespace veltrane
