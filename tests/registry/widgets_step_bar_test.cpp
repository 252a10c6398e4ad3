#include "registry/widgets/step_bar.h"

#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

class StepBarTest : public testing::Test
{
protected:
    StepBarTest()
    {
        bar.Drive(&field);
        field.setGeometry(0, 0, 40, 24);
        bar.setGeometry(40, 0, 16, 24);
        window.show();
    }

    QString After(int y)
    {
        QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(8, y));
        return field.text();
    }

    QWidget window;
    QLineEdit field{&window};
    StepBar bar{&window};
};

}  // namespace

TEST_F(StepBarTest, UpperHalfRaisesAndLowerHalfLowers)
{
    field.setText(QStringLiteral("3"));
    EXPECT_EQ(After(4), QStringLiteral("4"));
    EXPECT_EQ(After(20), QStringLiteral("3"));
    EXPECT_EQ(After(20), QStringLiteral("2"));
}

TEST_F(StepBarTest, EveryChangeOfTheBarIsWrittenIntoTheField)
{
    bar.setValue(7);
    EXPECT_EQ(field.text(), QStringLiteral("7"));
    bar.setValue(0);
    EXPECT_EQ(field.text(), QStringLiteral("0"));
}

TEST_F(StepBarTest, ATypedNumberMovesTheBarAndIsKept)
{
    field.setText(QStringLiteral("99999"));
    EXPECT_EQ(field.text(), QStringLiteral("99999"));
    EXPECT_EQ(bar.value(), bar.maximum());
    field.setText(QStringLiteral("41"));
    EXPECT_EQ(bar.value(), 41);
}

TEST_F(StepBarTest, ArrowKeysInTheFieldStep)
{
    field.setText(QStringLiteral("5"));
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.text(), QStringLiteral("6"));
    QTest::keyClick(&field, Qt::Key_Down);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.text(), QStringLiteral("4"));
}

TEST_F(StepBarTest, WheelChangesNothing)
{
    field.setText(QStringLiteral("5"));
    QWheelEvent turn(QPointF(8, 8), bar.mapToGlobal(QPointF(8, 8)), {}, QPoint(0, 120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&bar, &turn);
    EXPECT_EQ(field.text(), QStringLiteral("5"));
}

TEST_F(StepBarTest, DoesNotGoBelowNought)
{
    field.setText(QStringLiteral("0"));
    EXPECT_EQ(After(20), QStringLiteral("0"));
}

}  // namespace orlo
