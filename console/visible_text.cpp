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

QString NameOf(QChar control)
{
    const char16_t code = control.unicode();
    if (code < kControlNames.size()) return QLatin1String(kControlNames[code]);
    if (code == kDelete) return QStringLiteral("DEL");
    return QString::number(code, 16).toUpper();
}

}  // namespace

QString VisibleText(std::string_view bytes)
{
    const QString text =
        FromWindows1252(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
    QString visible;
    for (const QChar character : text)
        visible += character.category() == QChar::Other_Control ? u'<' + NameOf(character) + u'>'
                                                                : QString(character);
    return visible;
}

}  // namespace orlo
