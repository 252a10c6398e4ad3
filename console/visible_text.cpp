#include "console/visible_text.h"

#include "registry/windows_1252.h"

#include <array>

namespace orlo
{

namespace
{

constexpr std::array<const char*, 32> kControlNames = {
    "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "HT",  "LF",
    "VT",  "FF",  "CR",  "SO",  "SI",  "DLE", "DC1", "DC2", "DC3", "DC4", "NAK",
    "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US"};
constexpr char16_t kDelete = 0x7F;
constexpr char16_t kNoBreakSpace = 0xA0;
constexpr char16_t kSoftHyphen = 0xAD;

/// A no-break space looks like a blank, and is copied as one; a soft hyphen like nothing.
bool IsToBeNamed(QChar character)
{
    return character.category() == QChar::Other_Control || character == kNoBreakSpace ||
           character == kSoftHyphen;
}

QString NameOf(QChar character)
{
    const char16_t code = character.unicode();
    if (code < kControlNames.size()) return QLatin1String(kControlNames[code]);
    if (code == kDelete) return QStringLiteral("DEL");
    return QString::number(code, 16).toUpper();
}

}  // namespace

QString VisibleText(std::string_view bytes)
{
    return VisibleText(
        FromWindows1252(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()))));
}

QString VisibleText(const QString& text)
{
    QString visible;
    for (const QChar character : text)
        visible += IsToBeNamed(character) ? u'<' + NameOf(character) + u'>' : QString(character);
    return visible;
}

}  // namespace orlo
