#include "tests/registry/contenitore_fixture.h"

#include <QSignalSpy>

namespace orlo::contenitore_test
{

class ContenitoreList : public ContenitoreTest
{
protected:
    void SetUp() override
    {
        for (int n = 1; n <= 4; ++n) RegisterStrale(n);
        Open();
    }
    QSignalSpy chosen{&List(), &RegisterList::LineChosen};
};

TEST_F(ContenitoreList, EveryWayOfChoosingShowsTheTerminalOnce)
{
    Select(0);
    EXPECT_EQ(chosen.count(), 1);
    ClickLine(2);
    EXPECT_EQ(chosen.count(), 2);
    EXPECT_EQ(TextOf("LabelTerminale"), QStringLiteral("Terminale n°3"));
    Key("ListaTerminali", Qt::Key_Down);
    EXPECT_EQ(chosen.count(), 3);
    EXPECT_EQ(TextOf("LabelTerminale"), QStringLiteral("Terminale n°4"));
    Key("ListaTerminali", Qt::Key_Home);
    EXPECT_EQ(chosen.count(), 4);
    EXPECT_EQ(TextOf("LabelTerminale"), QStringLiteral("Terminale n°1"));
    Select(1);
    EXPECT_EQ(chosen.count(), 5);
    EXPECT_EQ(TextOf("LabelTerminale"), QStringLiteral("Terminale n°2"));
}

TEST_F(ContenitoreList, ChoosingTheCurrentLineShowsItAgain)
{
    Select(1);
    Write("Tentativi", "8");
    ClickLine(1);
    EXPECT_EQ(TextOf("Tentativi"), QStringLiteral("3"));
    Write("Tentativi", "8");
    Select(1);
    EXPECT_EQ(TextOf("Tentativi"), QStringLiteral("3"));
    EXPECT_EQ(chosen.count(), 3);
}

TEST_F(ContenitoreList, APositionWithoutALineChoosesNothing)
{
    Select(1);
    Select(4);
    Select(-1);
    EXPECT_EQ(chosen.count(), 1);
    EXPECT_EQ(List().currentRow(), 1);
}

TEST_F(ContenitoreList, ControlClickDoesNotDeselect)
{
    Select(1);
    ClickLine(1, Qt::ControlModifier);
    EXPECT_EQ(List().selectedItems().value(0), List().item(1));
    EXPECT_EQ(TextOf("LabelTerminale"), QStringLiteral("Terminale n°2"));
}

TEST_F(ContenitoreList, TheFocusAloneChoosesNothing)
{
    Control("NomeFile").setFocus();
    List().setFocus();
    EXPECT_EQ(chosen.count(), 0);
    EXPECT_EQ(List().currentRow(), -1);
    EXPECT_FALSE(Enabled("PaginaTerminale"));
}

TEST_F(ContenitoreList, KeepsTheGivenLineAsTheItemsText)
{
    EXPECT_EQ(Lines().at(0), QStringLiteral("01 - Strale - Porta\t - Abilitazione\tSì\tPresenze"));
}

}  // namespace orlo::contenitore_test
