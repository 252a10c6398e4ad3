#include "registry/widgets/colours.h"
#include "tests/acquisition/monitor_fixture.h"

#include <QApplication>
#include <QClipboard>

namespace orlo::testing
{
namespace
{

/// Twelve punches of a Strale, the newest seven of them still to be acquired.
class MonitorList : public MonitorTest
{
protected:
    void SetUp() override
    {
        MonitorTest::SetUp();
        Connect(QStringLiteral("Strale"), "timbrature=12,acquisite=5");
        Read();
        QApplication::clipboard()->clear();
    }

    void FilterBy(const QString& text) { Find<QLineEdit>("FiltroMonitor").setText(text); }
    void FilterByState(const QString& wanted)
    {
        auto& box = Find<QComboBox>("FiltroStato");
        box.setCurrentIndex(box.findText(wanted));
    }
    QStringList LinesSeen() const
    {
        QStringList lines;
        for (int row = 0; row < List().count(); ++row)
            if (!List().isRowHidden(row)) lines << List().item(row)->text();
        return lines;
    }
    void PressCopy() { QTest::keyClick(&List(), Qt::Key_C, Qt::ControlModifier); }
    static QString Copied() { return QApplication::clipboard()->text(); }
};

TEST_F(MonitorList, BadgeFilterHidesTheOtherLinesAndChangesNone)
{
    const QStringList before = Lines();
    FilterBy(before[3].mid(8, 6));
    EXPECT_EQ(LinesSeen(), before.mid(3, 1));
    EXPECT_EQ(Lines(), before);
    EXPECT_EQ(Label("LabelFiltrate"), QStringLiteral("1 di 12"));
    FilterBy(QString());
    EXPECT_EQ(LinesSeen(), before);
    EXPECT_EQ(Label("LabelFiltrate"), QString());
}

TEST_F(MonitorList, StateFilterShowsOneState)
{
    FilterByState(QStringLiteral("Da Acquisire"));
    EXPECT_EQ(LinesSeen(), Lines().mid(0, 7));
    FilterByState(QStringLiteral("Acquisita"));
    EXPECT_EQ(LinesSeen(), Lines().mid(7));
    FilterByState(QStringLiteral("Tutti gli stati"));
    EXPECT_EQ(LinesSeen().size(), 12);
}

TEST_F(MonitorList, BothFiltersHoldTogetherAndForAReadingToCome)
{
    FilterByState(QStringLiteral("Acquisita"));
    FilterBy(Lines()[9].mid(8, 6));
    EXPECT_EQ(LinesSeen(), Lines().mid(9, 1));
    ReadAgain();
    EXPECT_EQ(LinesSeen(), Lines().mid(9, 1));
    EXPECT_EQ(Label("LabelFiltrate"), QStringLiteral("1 di 12"));
}

TEST_F(MonitorList, OpeningAnewForgetsTheFilter)
{
    FilterByState(QStringLiteral("Acquisita"));
    FilterBy(QStringLiteral("1"));
    form.close();
    Read();
    EXPECT_EQ(LinesSeen().size(), 12);
    EXPECT_EQ(Find<QLineEdit>("FiltroMonitor").text(), QString());
}

TEST_F(MonitorList, SelectedLinesAreCopiedInTheirOrder)
{
    List().item(5)->setSelected(true);
    List().item(1)->setSelected(true);
    PressCopy();
    EXPECT_EQ(Copied(), Lines()[1] + u'\n' + Lines()[5]);
}

TEST_F(MonitorList, AllThatIsSeenIsCopiedAndNothingElse)
{
    FilterByState(QStringLiteral("Acquisita"));
    QTest::keyClick(&List(), Qt::Key_A, Qt::ControlModifier);
    PressCopy();
    EXPECT_EQ(Copied(), Lines().mid(7).join(u'\n'));
}

TEST_F(MonitorList, NothingSelectedLeavesTheClipboardAlone)
{
    QApplication::clipboard()->setText(QStringLiteral("altro"));
    List().clearSelection();
    PressCopy();
    EXPECT_EQ(Copied(), QStringLiteral("altro"));
}

TEST_F(MonitorList, EnterInAFilterReadsNothing)
{
    for (const char* name : {"FiltroMonitor", "FiltroStato"}) {
        auto& filter = Find<QWidget>(name);
        filter.setFocus();
        commands.clear();
        QTest::keyClick(&filter, Qt::Key_Return);
        EXPECT_TRUE(commands.isEmpty()) << name;
        EXPECT_EQ(Lines().size(), 12) << name;
        EXPECT_TRUE(List().hasFocus()) << name;
    }
}

TEST_F(MonitorList, EnterInAListThatIsNotEmptyReadsNothing)
{
    commands.clear();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        List().setFocus();
        QTest::keyClick(&List(), key);
        EXPECT_TRUE(commands.isEmpty());
        EXPECT_EQ(Lines().size(), 12);
    }
    List().Empty();
    QTest::keyClick(&List(), Qt::Key_Return);
    EXPECT_EQ(commands.size(), 4) << "32, 300, 301, 302: there is nothing to lose";
}

TEST_F(MonitorList, EnterOnTheTickReadsNothingWhileThereIsAList)
{
    auto& tick = Find<QCheckBox>("CheckMemo");
    tick.setFocus();
    commands.clear();
    QTest::keyClick(&tick, Qt::Key_Return);
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Lines().size(), 12);
    Button("cmdMonitor").setFocus();
    QTest::keyClick(&Button("cmdMonitor"), Qt::Key_Return);
    EXPECT_EQ(commands.size(), 4) << "the button reads";
}

TEST_F(MonitorList, CopyButtonTakesTheChosenLinesOrAllThatAreShown)
{
    List().clearSelection();
    FilterByState(QStringLiteral("Acquisita"));
    Button("cmdCopia").click();
    EXPECT_EQ(Copied(), Lines().mid(7).join(u'\n'));
    List().item(8)->setSelected(true);
    Button("cmdCopia").click();
    EXPECT_EQ(Copied(), Lines()[8]);
}

TEST_F(MonitorList, NothingShownIsNothingToCopy)
{
    EXPECT_TRUE(Button("cmdCopia").isEnabled());
    FilterBy(QStringLiteral("nessuno"));
    EXPECT_FALSE(Button("cmdCopia").isEnabled());
    FilterBy(QString());
    EXPECT_TRUE(Button("cmdCopia").isEnabled());
    form.close();
    form.open();
    EXPECT_FALSE(Button("cmdCopia").isEnabled());
}

TEST_F(MonitorList, HeadingStandsOverTheColumns)
{
    const auto& heading = Find<QLabel>("LabelTestata");
    EXPECT_EQ(
        heading.text(),
        QStringLiteral("Numero  Badge   Data          Ora       Tipo         Causale  Stato"));
    EXPECT_EQ(heading.font(), List().font());
    EXPECT_TRUE(QFontInfo(heading.font()).fixedPitch());
    EXPECT_EQ(heading.mapTo(&form, QPoint(heading.contentsMargins().left(), 0)).x(),
              List().mapTo(&form, QPoint(List().TextLeft(), 0)).x());
    EXPECT_LE(List().WidthOfLines(), List().width());
}

/// Pixels of the row that are neither ground nor shades between ground and text, by columns.
int LeftmostInk(const QImage& row)
{
    const QRgb ground = row.pixel(row.width() - 1, 0);
    for (int x = 0; x < row.width(); ++x)
        for (int y = 0; y < row.height(); ++y)
            if (ContrastRatio(QColor(row.pixel(x, y)), QColor(ground)) > 2) return x;
    return -1;
}

TEST_F(MonitorList, LinesAddedAreThereForTheNextRepaint)
{
    FilterByState(QStringLiteral("Acquisita"));
    List().Empty();
    MonitorPunch punch;
    punch.badge = "123456";
    std::vector<MonitorPunch> block;
    for (const char* wanted : {"Da Acquisire", "Acquisita", "Da Acquisire"}) {
        punch.state = wanted;
        block.push_back(punch);
    }
    List().Add(block);
    // No event runs before it, as between two blocks.
    const QRect first_line(0, 0, List().viewport()->width(), List().fontMetrics().height());
    EXPECT_GE(LeftmostInk(List().viewport()->grab(first_line).toImage()), 0);
}

TEST_F(MonitorList, OnlyPunchesToAcquireHaveADotBeforeTheirLine)
{
    List().setCurrentItem(nullptr);
    List().clearSelection();
    const auto left_of = [this](int row) {
        const QRect place = List().visualItemRect(List().item(row));
        return LeftmostInk(List().viewport()->grab(place).toImage());
    };
    const int text = List().TextLeft() - List().frameWidth();
    EXPECT_LT(left_of(6), text);
    EXPECT_GE(left_of(7), text);
}

}  // namespace
}  // namespace orlo::testing
