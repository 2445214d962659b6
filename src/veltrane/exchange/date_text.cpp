#include "veltrane/exchange/date_text.hpp"

#include <cstdio>

namespace veltrane {

std::string date_text(const char* format, const std::tm& date) {
    char text[128];
    std::snprintf(text, sizeof text, format, date.tm_year + 1900, date.tm_mon + 1, date.tm_mday, date.tm_hour,
                  date.tm_min, date.tm_sec);
    return text;
}

std::string current_date_text(const char* format) {
    const std::time_t now = std::time(nullptr);
    std::tm date{};
    localtime_r(&now, &date);
    return date_text(format, date);
}

}  // namespace veltrane
