#include "veltrane/exchange/message_channel.hpp"

namespace veltrane {

MessageChannel::Sink MessageChannel::SetSink(Sink sink) {
    const std::lock_guard lock(mutex_);
    return std::exchange(sink_, std::move(sink));
}

void MessageChannel::Send(std::string_view text, Gravity gravity) {
    const std::lock_guard lock(mutex_);
    if (sink_) sink_(text, gravity);
}

const Ref<MessageChannel>& default_message_channel() {
    static const Ref<MessageChannel> channel = make<MessageChannel>();
    return channel;
}

}  // namespace veltrane
