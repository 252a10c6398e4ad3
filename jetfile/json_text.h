#pragma once

#include <string>
#include <string_view>

// The parts of JSON text that jetfile writes: UTF-8, one value a line, a blank behind , and :.

namespace jetfile
{

/// A string in quotes; only what must be escaped is.
std::string JsonString(std::string_view utf8);
std::string JsonString(std::u16string_view text);

inline std::string JsonBool(bool yes)
{
    return yes ? "true" : "false";
}

/// The shortest digits that read back as the same number, always with a point or an exponent:
/// "1.0", "0.0001", "1e-05", "1e+16". What is no number is NaN, Infinity or -Infinity, which
/// strict JSON does not have.
std::string JsonDouble(double number);

}  // namespace jetfile
