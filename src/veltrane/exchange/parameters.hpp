// The process-wide table of named, typed parameters that configure reading and writing.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace veltrane {

/// The family of parameters that do not belong to one norm alone.
inline constexpr const char* kCommonFamily = "exchange";

/// What there is to tell about one parameter. Values are given as text; an enumeration's by name.
struct ParameterInfo {
    std::string family;
    std::string name;
    char type = 't';                       ///< 'e' enumeration, 'r' real, 't' text
    int first_value = 0;                   ///< integer of the first of value_names
    std::vector<std::string> value_names;  ///< of an enumeration, in the order of their integers
    std::string default_value;
    std::string value;
};

/// Parameters may be read and set from any thread. Registration is done once, at start-up.
class StaticParameters {
public:
    /// Registers a parameter of type 'e', 'r' or 't' with its initial value, which is also its default.
    /// Type '&' extends the enumeration `name`: "enum N" makes N the integer of its first value,
    /// "eval NAME" adds the next value. An enumeration registered with an empty initial value takes its
    /// default from the first value it is set to. False when the registration makes no sense: a name
    /// that is known already (its value then stays), an unknown type, an initial value of another type.
    static bool Register(std::string_view family, std::string_view name, char type, std::string_view initial);
    /// The same in one call for an enumeration whose values count up from `first`. False when the name is
    /// known already.
    static bool RegisterEnumeration(std::string_view family, std::string_view name, int first,
                                    std::initializer_list<std::string_view> values, std::string_view initial);
    static bool IsKnown(std::string_view name);

    /// Setting returns nothing on success, otherwise a sentence that tells what would be legal; the
    /// parameter then keeps its value. As text, an enumeration takes a value's name or its integer.
    static std::string SetInteger(std::string_view name, int value);
    static std::string SetReal(std::string_view name, double value);
    static std::string SetText(std::string_view name, std::string_view value);

    /// An enumeration yields its integer. Zero for a name that is not known and for other text.
    static int IntegerValue(std::string_view name);
    static double RealValue(std::string_view name);
    /// An enumeration yields the name of its value. Empty for a name that is not known.
    static std::string TextValue(std::string_view name);

    /// All parameters in the order of their registration.
    static std::vector<ParameterInfo> List();
};

}  // namespace veltrane
