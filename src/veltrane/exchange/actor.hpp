// The two workers of a norm: one turns records into results, the other shapes into records.
#pragma once

#include "veltrane/exchange/binder.hpp"
#include "veltrane/exchange/progress.hpp"
#include "veltrane/exchange/read_process.hpp"
#include "veltrane/exchange/write_process.hpp"

namespace veltrane {

class ReadActor : public Typed<ReadActor, Transient> {
public:
    static constexpr const char* kTypeName = "ReadActor";

    /// Whether Transfer can be asked about an object.
    virtual bool Recognize(const Ref<Transient>& start) const = 0;
    /// What becomes of an object and all below it; null when the actor declines. Details are reported on
    /// the records in `process`. May throw; the reader turns that into a fail on `start`.
    virtual Ref<TransferBinder> Transfer(const Ref<Transient>& start, const Ref<ReadProcess>& process,
                                         const Progress& progress) = 0;
};

class WriteActor : public Typed<WriteActor, Transient> {
public:
    static constexpr const char* kTypeName = "WriteActor";

    virtual bool Recognize(const Ref<Transient>& start) const { return bool(as<ShapeKey>(start)); }
    /// Writes a shape, given as its key, into the model of `process`; null when the actor declines. May
    /// throw; the writer turns that into a fail on the key.
    virtual Ref<TransferBinder> Transfer(const Ref<Transient>& start, const Ref<WriteProcess>& process,
                                         const Progress& progress) = 0;
};

}  // namespace veltrane
