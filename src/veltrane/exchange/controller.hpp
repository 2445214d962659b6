// A norm as a whole: its protocol, its work library and its two actors.
#pragma once

#include "veltrane/exchange/actor.hpp"
#include "veltrane/exchange/protocol.hpp"
#include "veltrane/exchange/work_library.hpp"

#include <string>
#include <string_view>

namespace veltrane {

class ExchangeController : public Typed<ExchangeController, Transient> {
public:
    static constexpr const char* kTypeName = "ExchangeController";

    ExchangeController(std::string_view long_name, std::string_view short_name)
        : long_name_(long_name), short_name_(short_name) {}

    const std::string& LongName() const { return long_name_; }
    const std::string& ShortName() const { return short_name_; }
    const Ref<ExchangeProtocol>& Protocol() const { return protocol_; }
    const Ref<ExchangeWorkLibrary>& WorkLibrary() const { return work_library_; }
    const Ref<ReadActor>& ActorRead() const { return read_actor_; }
    const Ref<WriteActor>& ActorWrite() const { return write_actor_; }
    /// A new model, ready to be written into.
    virtual Ref<ExchangeModel> NewModel() const = 0;

    /// Makes the controller known to the process under a name; replaces an earlier one of that name.
    void Record(std::string_view name);
    /// Null when no controller has that name.
    static Ref<ExchangeController> Recorded(std::string_view name);

protected:
    void SetProtocol(Ref<ExchangeProtocol> protocol) { protocol_ = std::move(protocol); }
    void SetWorkLibrary(Ref<ExchangeWorkLibrary> library) { work_library_ = std::move(library); }
    void SetActorRead(Ref<ReadActor> actor) { read_actor_ = std::move(actor); }
    void SetActorWrite(Ref<WriteActor> actor) { write_actor_ = std::move(actor); }

private:
    std::string long_name_;
    std::string short_name_;
    Ref<ExchangeProtocol> protocol_;
    Ref<ExchangeWorkLibrary> work_library_;
    Ref<ReadActor> read_actor_;
    Ref<WriteActor> write_actor_;
};

}  // namespace veltrane
