#include "badge/badge_fields.h"

#include "badge/badge_values.h"

namespace orlo
{

namespace
{

constexpr std::size_t kNumberWidth = 4;

std::string ParameterNumber(int first_parameter, LayoutField field)
{
    return ZeroFilled(std::to_string(first_parameter + static_cast<int>(field)), kNumberWidth);
}

}  // namespace

std::string ReadFieldCommand(int first_parameter, LayoutField field)
{
    return "95" + ParameterNumber(first_parameter, field);
}

std::string WriteFieldCommand(int first_parameter, LayoutField field, std::string_view value)
{
    return "94" + ParameterNumber(first_parameter, field) + " " + std::string(value);
}

}  // namespace orlo
