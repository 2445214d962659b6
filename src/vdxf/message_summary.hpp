// Fails and warnings, gathered by kind.
#pragma once

#include "veltrane/exchange/read_process.hpp"
#include "veltrane/section/model.hpp"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace veltrane::tool {

class DrawingText;

/// One message where it stands.
struct PlacedMessage {
    const DxfSection_Object* record = nullptr;  ///< null for the drawing as a whole
    int line = 0;                               ///< 0 when it is not known
    bool is_fail = false;
    std::string text;
};

/// Visits what was reported on the model, the drawing as a whole first, then its records in order.
void visit_messages(const DxfSection_Model& model, const std::function<void(const PlacedMessage&)>& visitor);
/// Visits what was reported while the records of the model were translated.
void visit_messages(const DxfSection_Model& model, const ReadProcess& process,
                    const std::function<void(const PlacedMessage&)>& visitor);

/// Messages of one text, lines in it set aside, on records of one type.
struct MessageKind {
    std::string type;  ///< of the records; empty for the drawing as a whole
    std::string text;
    bool is_fail = false;
    std::size_t count = 0;
    int first_line = 0;
};

struct MessageSummary {
    std::size_t fails = 0;
    std::size_t warnings = 0;
    std::vector<MessageKind> kinds;  ///< fails before warnings, the most frequent first

    bool is_empty() const { return kinds.empty(); }
    /// "2 fails and 31 warnings"; empty when there are none.
    std::string counts() const;
};

MessageSummary summarize_reading(const DxfSection_Model& model);
MessageSummary summarize_translation(const DxfSection_Model& model, const ReadProcess& process);

/// A message's text without the class that reports it, which tells users nothing.
std::string plain(std::string_view text);
/// "3 x LAYER: ... (first at line 120)".
std::string line_of(const MessageKind& kind);
/// "warning: LINE #2F, line 812: ...".
std::string line_of(const PlacedMessage& message, const DrawingText& text);
nlohmann::ordered_json to_json(const MessageSummary& summary);

}  // namespace veltrane::tool
