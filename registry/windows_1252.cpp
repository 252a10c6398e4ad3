#include "registry/windows_1252.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace orlo
{

namespace
{

constexpr int kFirst = 0x80;

/// Characters of the bytes 80..9F; all other bytes are the characters of their number.
/// Source: https://www.unicode.org/Public/MAPPINGS/VENDORS/MICSFT/WINDOWS/CP1252.TXT
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ByteOf(QChar character)
{
    const auto found = std::find(kUpperControls.begin(), kUpperControls.end(), character.unicode());
    if (found != kUpperControls.end())
        return static_cast<char>(kFirst + (found - kUpperControls.begin()));
    const char16_t code = character.unicode();
    const bool same_number = code < kFirst || (code >= 0xA0 && code <= 0xFF);
    return same_number ? static_cast<char>(code) : '?';
}

}  // namespace

QString FromWindows1252(const QByteArray& bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar& character : text) {
        const int offset = character.unicode() - kFirst;
        if (offset >= 0 && offset < static_cast<int>(kUpperControls.size()))
            character = QChar(kUpperControls[static_cast<std::size_t>(offset)]);
    }
    return text;
}

QString FromUtf8OrWindows1252(const QByteArray& bytes)
{
    // Stateless, so that a letter cut off by the end is an error and not waited for.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8(bytes);
    return utf8.hasError() ? FromWindows1252(bytes) : text;
}

QString FirstOutsideWindows1252(const QString& text)
{
    for (qsizetype i = 0; i < text.size(); ++i)
        // A character beyond 16 bits is a pair.
        if (text[i] != u'?' && ByteOf(text[i]) == '?')
            return text.mid(i, text[i].isHighSurrogate() ? 2 : 1);
    return {};
}

QByteArray ToWindows1252(const QString& text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar character : text) bytes += ByteOf(character);
    return bytes;
}

}  // namespace orlo
