#include "registry/widgets/choice_box.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

class ChoiceBoxTest : public testing::Test
{
protected:
    ChoiceBoxTest()
    {
        box.setEditable(true);
        box.SetRoom(QStringLiteral("00000"));
        box.addItems({QStringLiteral("1200"), QStringLiteral("2400"), QStringLiteral("4800")});
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&box);
        column->addWidget(&other);
        window.show();
        window.activateWindow();
        box.setFocus();
    }

    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&window)); }

    void TurnWheel()
    {
        QWheelEvent turn(QPointF(5, 5), box.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&box, &turn);
    }

    QWidget window;
    ChoiceBox box{&window};
    QLineEdit other{&window};
};

}  // namespace

TEST_F(ChoiceBoxTest, ATypedKeyEmptiesTheText)
{
    for (const Qt::Key key :
         {Qt::Key_9, Qt::Key_A, Qt::Key_Space, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Comma}) {
        box.Show(QStringLiteral("2400"));
        QTest::keyClick(&box, key);
        EXPECT_EQ(box.currentText(), QString()) << key;
    }
}

TEST_F(ChoiceBoxTest, APastedTextEmptiesTheText)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("300"));
    box.Show(QStringLiteral("2400"));
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box.currentText(), QString());
}

TEST_F(ChoiceBoxTest, ArrowsChooseFromTheList)
{
    box.Show(QStringLiteral("1200"));
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(box.currentText(), QStringLiteral("2400"));
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_EQ(box.currentText(), QStringLiteral("1200"));
}

TEST_F(ChoiceBoxTest, ArrowChoosesAgainAfterATypedKey)
{
    box.Show(QStringLiteral("4800"));
    QTest::keyClick(&box, Qt::Key_7);
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(box.currentText(), QStringLiteral("1200"));
}

TEST_F(ChoiceBoxTest, F4OpensTheListAndEnterChooses)
{
    box.Show(QStringLiteral("1200"));
    QTest::keyClick(&box, Qt::Key_F4);
    ASSERT_TRUE(QTest::qWaitFor([this] { return box.view()->isVisible(); }));
    QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Return);
    EXPECT_EQ(box.currentText(), QStringLiteral("2400"));
}

TEST_F(ChoiceBoxTest, ShowsAStoredValueThatIsNotInTheList)
{
    box.Show(QStringLiteral("300"));
    EXPECT_EQ(box.currentText(), QStringLiteral("300"));
    EXPECT_EQ(box.currentIndex(), -1);
}

TEST_F(ChoiceBoxTest, WheelChangesNothingWithoutTheFocus)
{
    box.Show(QStringLiteral("2400"));
    other.setFocus();
    TurnWheel();
    EXPECT_EQ(box.currentText(), QStringLiteral("2400"));
    box.setFocus();
    TurnWheel();
    EXPECT_EQ(box.currentText(), QStringLiteral("4800"));
}

TEST_F(ChoiceBoxTest, OpeningTheListIsNotLeaving)
{
    const QSignalSpy left(&box, &ChoiceBox::Left);
    box.showPopup();
    box.hidePopup();
    EXPECT_EQ(left.count(), 0);
    other.setFocus();
    EXPECT_EQ(left.count(), 1);
}

}  // namespace orlo
