#pragma once

#include <QString>

namespace orlo
{

/// The text without the blanks at its beginning and end. Only blanks: tabs and the like stay.
inline QString WithoutBlanksAround(const QString& text)
{
    qsizetype first = 0;
    qsizetype end = text.size();
    while (first < end && text[first] == u' ') ++first;
    while (end > first && text[end - 1] == u' ') --end;
    return text.mid(first, end - first);
}

}  // namespace orlo
