#pragma once

#include <QString>

#include <string_view>

namespace orlo
{

/// An answer's bytes as the operator reads them: Windows-1252, a control character by its name,
/// as "<CR>", and one of the five bytes that the code page leaves undefined by its number, as
/// "<81>".
QString VisibleText(std::string_view bytes);

}  // namespace orlo
