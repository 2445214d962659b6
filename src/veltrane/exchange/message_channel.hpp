// Where messages go that belong to no record and no model.
#pragma once

#include "veltrane/base/ref.hpp"

#include <functional>
#include <mutex>
#include <string_view>

namespace veltrane {

enum class Gravity { Trace, Info, Warning, Alarm, Fail };

/// Hands texts to a sink. Without one, texts are dropped: the library itself never prints.
class MessageChannel : public Typed<MessageChannel, Transient> {
public:
    static constexpr const char* kTypeName = "MessageChannel";
    using Sink = std::function<void(std::string_view text, Gravity gravity)>;

    /// Returns the sink that was there before. The sink is called by one thread at a time and must not
    /// send to its own channel.
    Sink SetSink(Sink sink);
    void Send(std::string_view text, Gravity gravity = Gravity::Warning);

private:
    std::mutex mutex_;
    Sink sink_;
};

/// The channel of the process.
const Ref<MessageChannel>& default_message_channel();

}  // namespace veltrane
