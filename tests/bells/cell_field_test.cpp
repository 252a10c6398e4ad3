#include "bells/cell_field.h"

#include <QTest>

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

struct Case {
    const char* before;
    const char* typed;
    const char* shown;
};

TEST(TimeField, TakesOnlyTimes)
{
    const Case cases[] = {
        {"00:00", "0705", "07:05"},  {"12:30", "7:5", "7 :5 "},  {"12:30", "8", "8 :  "},
        {"00:00", "830", "8 :30"},   {"00:00", "8.30", "8 :30"}, {"00:00", "9,5", "9 :5 "},
        {"00:00", "17 45", "17:45"}, {"00:00", "2359", "23:59"}, {"00:00", "24", "2 :4 "},
        {"00:00", "1275", "12:7 "},  {"00:00", "ab7c", "7 :  "}, {"00:00", "12345", "12:34"},
        {"00:00", "99", "9 :9 "},    {"23:59", ":1", "23:19"},
    };
    for (const Case& test : cases) {
        TimeField field;
        field.setText(QString::fromLatin1(test.before));
        if (test.typed[0] == ':')
            field.setCursorPosition(0);
        else
            field.selectAll();
        QTest::keyClicks(&field, QString::fromLatin1(test.typed));
        EXPECT_EQ(field.displayText().toStdString(), test.shown) << test.typed;
        EXPECT_TRUE(field.isModified()) << test.typed;
    }
}

TEST(TimeField, AnHourThatBecomesNoHourGivesItsSecondDigitUp)
{
    TimeField field;
    field.setText(QStringLiteral("18:45"));
    field.setCursorPosition(0);
    QTest::keyClick(&field, Qt::Key_2);
    EXPECT_EQ(field.displayText(), QStringLiteral("2 :45"));
}

TEST(DurationField, TakesOnlyDigitsAndNoMoreThanItHasRoomFor)
{
    DurationField field;
    QTest::keyClicks(&field, QStringLiteral("a2-5"));
    EXPECT_EQ(field.text(), QStringLiteral("25"));
    field.clear();
    field.SetDigits(2);
    QTest::keyClicks(&field, QStringLiteral("123"));
    EXPECT_EQ(field.text(), QStringLiteral("12"));
}

}  // namespace
}  // namespace orlo
