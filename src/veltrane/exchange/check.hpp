// The fails and warnings of one record, or of a whole model.
#pragma once

#include "veltrane/base/ref.hpp"
#include "veltrane/exchange/message.hpp"

#include <vector>

namespace veltrane {

class Check : public Typed<Check, Transient> {
public:
    static constexpr const char* kTypeName = "Check";

    void AddFail(Message message) { fails_.push_back(std::move(message)); }
    void AddWarning(Message message) { warnings_.push_back(std::move(message)); }

    const std::vector<Message>& Fails() const { return fails_; }
    const std::vector<Message>& Warnings() const { return warnings_; }
    bool HasFailed() const { return !fails_.empty(); }
    bool HasWarnings() const { return !warnings_.empty(); }

private:
    std::vector<Message> fails_;
    std::vector<Message> warnings_;
};

}  // namespace veltrane
