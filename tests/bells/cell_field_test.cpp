#include "bells/cell_field.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMimeData>
#include <QSignalSpy>
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
        {"00:00", "17 45", "17:45"}, {"00:00", "2359", "23:59"}, {"00:00", "235", "23:5 "},
        {"00:00", "2:35", "2 :35"},  {"00:00", "ab7c", "7 :  "}, {"00:00", "12345", "12:34"},
        {"00:00", "99", "9 :9 "},    {"12:06", ":5", "  :5 "},
    };
    for (const Case& test : cases) {
        TimeField field;
        field.setText(QString::fromLatin1(test.before));
        field.selectAll();
        QTest::keyClicks(&field, QString::fromLatin1(test.typed));
        EXPECT_EQ(field.displayText().toStdString(), test.shown) << test.typed;
        EXPECT_TRUE(field.isModified()) << test.typed;
    }
}

TEST(TimeField, WhatIsNoTimeLeavesTheOneFromBefore)
{
    for (const char* typed : {"24", "24:00", "2400", "25.30", "1260", "12:60", "999", "7:60"}) {
        TimeField field;
        field.setText(QStringLiteral("12:06"));
        field.selectAll();
        QTest::keyClicks(&field, QString::fromLatin1(typed));
        EXPECT_EQ(field.text(), QStringLiteral("12:06")) << typed;
        EXPECT_FALSE(field.isModified()) << typed;
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, QStringLiteral("2359"));
        EXPECT_EQ(field.text(), QStringLiteral("23:59")) << typed;
    }
}

TEST(TimeField, LetterLeavesTheTimeThatIsSelected)
{
    for (const char* typed : {"x", "-"}) {
        TimeField field;
        field.setText(QStringLiteral("07:05"));
        field.selectAll();
        QTest::keyClicks(&field, QString::fromLatin1(typed));
        EXPECT_EQ(field.text(), QStringLiteral("07:05")) << typed;
        EXPECT_FALSE(field.isModified()) << typed;
    }
}

TEST(TimeField, SaysWhatItRefuses)
{
    const std::pair<const char*, const char*> cases[] = {
        {"24", "24 non è un'ora"},         {"24:00", "24:00 non è un'ora"},
        {"1260", "12:60 non è un'ora"},    {"999", "9:99 non è un'ora"},
        {"24:0000", "24:00 non è un'ora"}, {"2490", "24:90 non è un'ora"},
        {"249000", "24:90 non è un'ora"},
    };
    for (const auto& [typed, why] : cases) {
        TimeField field;
        field.setText(QStringLiteral("18:45"));
        field.selectAll();
        const QSignalSpy refused(&field, &TimeField::Refused);
        QTest::keyClicks(&field, QString::fromLatin1(typed));
        ASSERT_FALSE(refused.empty()) << typed;
        EXPECT_EQ(refused.back()[0].toString().toStdString(), why) << typed;
    }
}

TEST(TimeField, ShiftForAColonIsNoNewBeginningAndAClickIsOne)
{
    TimeField field;
    field.setText(QStringLiteral("12:06"));
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("24"));
    QTest::keyClick(&field, Qt::Key_Shift);
    QTest::keyClick(&field, ':', Qt::ShiftModifier);
    QTest::keyClicks(&field, QStringLiteral("00"));
    EXPECT_EQ(field.text(), QStringLiteral("12:06"));
    QTest::mouseClick(&field, Qt::LeftButton);
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("0830"));
    EXPECT_EQ(field.text(), QStringLiteral("08:30"));
}

TEST(TimeField, AColonBehindAPlacedCursorGoesToTheMinutes)
{
    TimeField field;
    field.setText(QStringLiteral("23:59"));
    field.setCursorPosition(0);
    QTest::keyClicks(&field, QStringLiteral(":1"));
    EXPECT_EQ(field.displayText(), QStringLiteral("23:19"));
}

TEST(TimeField, AnHourThatBecomesNoHourGivesItsSecondDigitUp)
{
    TimeField field;
    field.setText(QStringLiteral("18:45"));
    field.setCursorPosition(0);
    QTest::keyClick(&field, Qt::Key_2);
    EXPECT_EQ(field.displayText(), QStringLiteral("2 :45"));
}

TEST(TimeField, NothingIsUndoneByKey)
{
    TimeField field;
    field.setText(QStringLiteral("08:30"));
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_9);
    for (int times = 0; times < 3; ++times) {
        QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(field.displayText(), QStringLiteral("9 :  "));
    }
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(field.displayText(), QStringLiteral("9 :  "));
}

TEST(TimeField, TheContextMenuOffersNoUndoAndKeepsTheRest)
{
    TimeField field;
    field.setText(QStringLiteral("08:30"));
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("9"));
    field.setSelection(0, 1);
    ASSERT_TRUE(field.isUndoAvailable());
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&field, &event);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    ASSERT_GE(menu->actions().size(), 4);
    EXPECT_TRUE(menu->actions()[0]->text().startsWith(QStringLiteral("&Undo")));
    EXPECT_FALSE(menu->actions()[0]->isEnabled());
    EXPECT_FALSE(menu->actions()[1]->isEnabled()) << "redo";
    menu->close();
    EXPECT_EQ(field.displayText(), QStringLiteral("9 :  "));
    EXPECT_EQ(field.selectedText(), QStringLiteral("9"));
    EXPECT_TRUE(field.isModified());
}

struct Brought {
    const char* text;
    const char* shown;
};
// What is no time leaves the one from before.
const Brought kBrought[] = {
    {"09:45", "09:45"}, {"0945", "09:45"}, {"25:00", "08:30"},
    {"08:75", "08:30"}, {"2400", "08:30"},
};

TEST(TimeField, APastedTimeIsTakenAndWhatIsNoneIsNot)
{
    for (const Brought& test : kBrought) {
        TimeField field;
        field.setText(QStringLiteral("08:30"));
        field.selectAll();
        QApplication::clipboard()->setText(QString::fromLatin1(test.text));
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(field.displayText().toStdString(), test.shown) << test.text;
    }
}

TEST(TimeField, ADroppedTimeIsTakenAndWhatIsNoneIsNot)
{
    for (const Brought& test : kBrought) {
        TimeField field;
        field.setText(QStringLiteral("08:30"));
        field.selectAll();
        QMimeData dragged;
        dragged.setText(QString::fromLatin1(test.text));
        QDragEnterEvent entry({0, 0}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&field, &entry);
        ASSERT_TRUE(entry.isAccepted());
        QDropEvent event({0, 0}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&field, &event);
        EXPECT_EQ(field.displayText().toStdString(), test.shown) << test.text;
    }
}

TEST(TimeField, SelectingAllIsANewBeginning)
{
    TimeField field;
    field.setText(QStringLiteral("12:06"));
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("24:00"));
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, QStringLiteral("0730"));
    EXPECT_EQ(field.text(), QStringLiteral("07:30"));
}

TEST(DurationField, TakesDigitsAndPassesOverLetters)
{
    for (const char* typed : {"25", "a2x5"}) {
        DurationField field;
        QTest::keyClicks(&field, QString::fromLatin1(typed));
        EXPECT_EQ(field.text(), QStringLiteral("25")) << typed;
    }
}

// The rest of them would be another duration.
TEST(DurationField, WhatIsNoDurationLeavesTheOneFromBefore)
{
    const std::pair<const char*, const char*> cases[] = {
        {"1,5", "1,5 non è una durata"},
        {"-3", "-3 non è una durata"},
        {"100", "100 non è una durata"},
        {"1000000", "100000 non è una durata"},
    };
    for (const auto& [typed, why] : cases) {
        DurationField field;
        field.SetDigits(2);
        field.setText(QStringLiteral("07"));
        field.selectAll();
        const QSignalSpy refused(&field, &CellField::Refused);
        QTest::keyClicks(&field, QString::fromLatin1(typed));
        EXPECT_EQ(field.text(), QStringLiteral("07")) << typed;
        ASSERT_FALSE(refused.empty()) << typed;
        EXPECT_EQ(refused.back()[0].toString().toStdString(), why);
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, QStringLiteral("12"));
        EXPECT_EQ(field.text(), QStringLiteral("12")) << typed;
    }
}

TEST(DurationField, PastingIsANewBeginning)
{
    DurationField field;
    field.SetDigits(2);
    field.setText(QStringLiteral("07"));
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("1,"));
    QApplication::clipboard()->setText(QStringLiteral("12"));
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field.text(), QStringLiteral("12"));
    const QSignalSpy refused(&field, &CellField::Refused);
    QTest::keyClick(&field, Qt::Key_3);
    ASSERT_EQ(refused.size(), 1);
    EXPECT_EQ(refused[0][0].toString(), QStringLiteral("123 non è una durata")) << "not 1,3";
}

TEST(DurationField, APastedDurationIsTakenWholeOrNotAtAll)
{
    const std::pair<const char*, const char*> cases[] = {
        {"12", "12"}, {"100", "07"}, {"1,5", "07"}, {"-3", "07"}};
    for (const auto& [pasted, shown] : cases) {
        DurationField field;
        field.SetDigits(2);
        field.setText(QStringLiteral("07"));
        field.selectAll();
        QApplication::clipboard()->setText(QString::fromLatin1(pasted));
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(field.text().toStdString(), shown) << pasted;
    }
}

}  // namespace
}  // namespace orlo
