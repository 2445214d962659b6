#include "veltrane/exchange/message.hpp"

namespace veltrane {

std::string Message::text() const {
    std::string result(source());
    if (!format_) return result;
    std::size_t from = 0;
    for (int number : numbers_) {
        const std::size_t at = result.find("%d", from);
        if (at == std::string::npos) break;
        const std::string digits = std::to_string(number);
        result.replace(at, 2, digits);
        from = at + digits.size();
    }
    return result;
}

}  // namespace veltrane
