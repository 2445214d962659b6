#include "veltrane/exchange/parameters.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <deque>
#include <mutex>
#include <optional>
#include <shared_mutex>

namespace veltrane {
namespace {

/// The whole text as a number, or nothing.
template <class Number>
std::optional<Number> parse(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<double> parse_finite(std::string_view text) {
    const auto number = parse<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::string quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

std::string real_text(double value) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return std::string(digits, end);
}

/// The integer that an enumeration's value name, or an integer within its range, stands for.
std::optional<int> enumeration_integer(const ParameterInfo& info, std::string_view value) {
    const auto& names = info.value_names;
    const auto found = std::find(names.begin(), names.end(), value);
    if (found != names.end()) return info.first_value + static_cast<int>(found - names.begin());
    const auto number = parse<int>(value);
    if (!number || *number < info.first_value) return std::nullopt;
    const auto index = static_cast<long long>(*number) - info.first_value;
    return index < static_cast<long long>(names.size()) ? number : std::nullopt;
}

std::string legal_values(const ParameterInfo& info) {
    if (info.type == 'r') return "a real number";
    std::string list;
    for (std::size_t i = 0; i < info.value_names.size(); ++i) {
        if (i > 0) list += ", ";
        list += info.value_names[i] + " (" + std::to_string(info.first_value + static_cast<int>(i)) + ")";
    }
    return list.empty() ? "no value yet" : list;
}

/// Takes a value if it is one of the parameter's; the text kept is what List() shows.
bool take(ParameterInfo& info, std::string_view value) {
    if (info.type == 'r' && !parse_finite(value)) return false;
    if (info.type != 'e') {
        info.value = value;
        return true;
    }
    const auto integer = enumeration_integer(info, value);
    if (!integer) return false;
    info.value = info.value_names[static_cast<std::size_t>(*integer - info.first_value)];
    if (info.default_value.empty()) info.default_value = info.value;
    return true;
}

/// "enum N" and "eval NAME".
bool extend(ParameterInfo& info, std::string_view definition) {
    const std::size_t blank = definition.find(' ');
    if (info.type != 'e' || blank == std::string_view::npos) return false;
    const std::string_view argument = definition.substr(blank + 1);
    if (definition.substr(0, blank) == "eval" && !argument.empty()) {
        info.value_names.emplace_back(argument);
        return true;
    }
    const auto number = parse<int>(argument);
    if (definition.substr(0, blank) != "enum" || !number) return false;
    info.first_value = *number;
    return true;
}

/// A dozen parameters: a list that is searched in order of registration serves as well as a map.
class Table {
public:
    static Table& instance() {
        static Table table;
        return table;
    }
    ParameterInfo* find(std::string_view name) {
        const auto found = std::find_if(parameters.begin(), parameters.end(),
                                        [&](const ParameterInfo& info) { return info.name == name; });
        return found == parameters.end() ? nullptr : &*found;
    }
    std::string unknown(std::string_view name) const {
        std::string text = quoted(name) + " is no parameter; known are";
        for (const ParameterInfo& info : parameters)
            text += (&info == &parameters[0] ? " " : ", ") + info.name;
        return text;
    }

    std::deque<ParameterInfo> parameters;
    std::shared_mutex mutex;
};

}  // namespace

bool StaticParameters::Register(std::string_view family, std::string_view name, char type,
                                std::string_view initial) {
    Table& table = Table::instance();
    const std::unique_lock lock(table.mutex);
    ParameterInfo* known = table.find(name);
    if (type == '&') return known && extend(*known, initial);
    if (known || (type != 'e' && type != 'r' && type != 't')) return false;

    ParameterInfo info;
    info.family = family;
    info.name = name;
    info.type = type;
    const bool has_value = type != 'e' || !initial.empty();
    if (has_value && !take(info, initial)) return false;
    info.default_value = info.value;
    table.parameters.push_back(std::move(info));
    return true;
}

bool StaticParameters::RegisterEnumeration(std::string_view family, std::string_view name, int first,
                                           std::initializer_list<std::string_view> values,
                                           std::string_view initial) {
    if (!Register(family, name, 'e', "")) return false;
    Register(family, name, '&', "enum " + std::to_string(first));
    for (std::string_view value : values) Register(family, name, '&', "eval " + std::string(value));
    return SetText(name, initial).empty();
}

bool StaticParameters::IsKnown(std::string_view name) {
    Table& table = Table::instance();
    const std::shared_lock lock(table.mutex);
    return table.find(name) != nullptr;
}

std::string StaticParameters::SetInteger(std::string_view name, int value) {
    return SetText(name, std::to_string(value));
}

std::string StaticParameters::SetReal(std::string_view name, double value) {
    return SetText(name, real_text(value));
}

std::string StaticParameters::SetText(std::string_view name, std::string_view value) {
    Table& table = Table::instance();
    const std::unique_lock lock(table.mutex);
    ParameterInfo* info = table.find(name);
    if (!info) return table.unknown(name);
    if (take(*info, value)) return {};
    return quoted(value) + " is no value of " + info->name + ", which takes " + legal_values(*info);
}

int StaticParameters::IntegerValue(std::string_view name) {
    Table& table = Table::instance();
    const std::shared_lock lock(table.mutex);
    const ParameterInfo* info = table.find(name);
    if (!info) return 0;
    if (info->type == 'e') return enumeration_integer(*info, info->value).value_or(0);
    return parse<int>(info->value).value_or(0);
}

double StaticParameters::RealValue(std::string_view name) {
    Table& table = Table::instance();
    const std::shared_lock lock(table.mutex);
    const ParameterInfo* info = table.find(name);
    if (!info) return 0;
    if (info->type == 'e') return enumeration_integer(*info, info->value).value_or(0);
    return parse_finite(info->value).value_or(0);
}

std::string StaticParameters::TextValue(std::string_view name) {
    Table& table = Table::instance();
    const std::shared_lock lock(table.mutex);
    const ParameterInfo* info = table.find(name);
    return info ? info->value : std::string();
}

std::vector<ParameterInfo> StaticParameters::List() {
    Table& table = Table::instance();
    const std::shared_lock lock(table.mutex);
    return {table.parameters.begin(), table.parameters.end()};
}

}  // namespace veltrane
