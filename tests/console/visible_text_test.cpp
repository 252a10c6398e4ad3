#include "console/visible_text.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

TEST(VisibleText, ControlCharactersAreNamed)
{
    const struct {
        std::string bytes;
        QString shown;
    } cases[] = {
        {"", QString()},
        {"005", QStringLiteral("005")},
        {" a b ", QStringLiteral(" a b ")},
        {"1\r\n2", QStringLiteral("1<CR><LF>2")},
        {std::string(1, '\0'), QStringLiteral("<NUL>")},
        {"\x01\x02\x1B\x1F", QStringLiteral("<SOH><STX><ESC><US>")},
        {"\t\x7F", QStringLiteral("<HT><DEL>")},
        {"<b>x</b>", QStringLiteral("<b>x</b>")},
        {"\xE0\xE8\x80", QStringLiteral("àè€")},
        {"\x81\x9D", QStringLiteral("<81><9D>")},
        {"a\xA0-\xAD\xAE", QStringLiteral("a<A0>-<AD>®")},
    };
    for (const auto& [bytes, shown] : cases)
        EXPECT_EQ(VisibleText(bytes), shown) << shown.toStdString();
}

}  // namespace
}  // namespace orlo
