#include "bells/ring_telegram.h"

#include "link/fields.h"

namespace orlo
{

namespace
{

std::string DayFlags(const std::string& line)
{
    std::string flags;
    for (std::size_t column = 23; column <= 37; column += 2) flags += Field(line, column, 1);
    return flags;
}

std::string Relay(const std::string& line)
{
    if (Field(line, 42, 1) == "1") return "1";
    return Field(line, 44, 1) == "1" ? "2" : "0";
}

}  // namespace

std::optional<std::string> RingTelegram(BellTelegram form, const QString& line)
{
    const std::string text = line.toLatin1().toStdString();
    const std::string flags = DayFlags(text);
    if (form == BellTelegram::Dense && flags == "00000000") return std::nullopt;
    const bool spaced = form == BellTelegram::Spaced;
    return (spaced ? "13 " : "13") + Field(text, 1, 2) + " " + Field(text, 6, 2) + " " +
           Field(text, 9, 2) + " " + flags + " " + Relay(text) + (spaced ? " " : " 0") +
           Field(text, 16, 2);
}

}  // namespace orlo
