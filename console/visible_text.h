#pragma once

#include <QString>

#include <string_view>

namespace orlo
{

/// An answer's bytes as the operator reads them: Windows-1252, a control character by its name,
/// as "<CR>"; by its number, as "<81>", one of the five bytes that the code page leaves undefined
/// and the two whose characters cannot be told from a blank or from nothing, A0 and AD.
QString VisibleText(std::string_view bytes);
QString VisibleText(const QString& text);

}  // namespace orlo
