#include "veltrane/exchange/work_library.hpp"

namespace veltrane {

std::string_view ExchangeWorkLibrary::DumpHelp(int level) const {
    if (level < 0 || level > MaxDumpLevel()) return {};
    return level_help_[static_cast<std::size_t>(level)];
}

void ExchangeWorkLibrary::SetDumpLevels(int default_level, int max_level) {
    default_level_ = default_level;
    level_help_.resize(static_cast<std::size_t>(max_level) + 1);
}

void ExchangeWorkLibrary::SetDumpHelp(int level, std::string_view help) {
    level_help_.at(static_cast<std::size_t>(level)) = help;
}

}  // namespace veltrane
