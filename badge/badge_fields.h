#pragma once

#include <array>
#include <string>
#include <string_view>

namespace orlo
{

/// The fields of the badge layout that the serial models know, in the order of their telegrams and
/// of their parameter numbers.
enum class LayoutField { InizioImpianto, LenImpianto, InizioBadge, LenBadge, NomeCard };

inline constexpr std::array kLayoutFields = {LayoutField::InizioImpianto, LayoutField::LenImpianto,
                                             LayoutField::InizioBadge, LayoutField::LenBadge,
                                             LayoutField::NomeCard};

// A parameter number means one field in one family of models and another in the other: 9 is the
// badge's length where the first number is 6, and the plant code's start where it is 9.

/// "95" and the field's number: "950006".
std::string ReadFieldCommand(int first_parameter, LayoutField field);

/// "94", the field's number, a blank and the value: "940006 05".
std::string WriteFieldCommand(int first_parameter, LayoutField field, std::string_view value);

}  // namespace orlo
