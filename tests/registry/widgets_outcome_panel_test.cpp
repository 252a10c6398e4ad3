#include "registry/widgets/outcome_panel.h"

#include <gtest/gtest.h>

#include <vector>

namespace orlo
{

TEST(OutcomePanel, GoodAndFailedOutcomesAreReadOut)
{
    struct Panel : OutcomePanel {
        std::vector<QString> alerts;
        void Alert() override { alerts.push_back(text()); }
    } panel;
    for (const char* caption :
         {"Comunicazione OK", "", "Timeout", "Errore aprendo la COM", "Errore aprendo la COM"})
        panel.setText(QString::fromUtf8(caption));
    EXPECT_EQ(panel.alerts, (std::vector<QString>{QStringLiteral("Comunicazione OK"),
                                                  QStringLiteral("Errore aprendo la COM")}));
}

TEST(OutcomePanel, OutcomeIsItsDescriptionBeforeItIsReadOut)
{
    struct Panel : OutcomePanel {
        QString described;
        void Alert() override { described = accessibleDescription(); }
    } panel;
    panel.setText(QStringLiteral("Errore aprendo la COM"));
    EXPECT_EQ(panel.described, QStringLiteral("Errore aprendo la COM"));
    panel.clear();
    EXPECT_EQ(panel.accessibleDescription(), QString());
}

TEST(OutcomePanel, WhatIsShownIsItsDescription)
{
    OutcomePanel panel;
    panel.SetRemark(QStringLiteral("Modifiche non salvate"));
    EXPECT_EQ(panel.accessibleDescription(), QStringLiteral("Modifiche non salvate"));
    panel.setText(QStringLiteral("Timeout"));
    EXPECT_EQ(panel.accessibleDescription(), QStringLiteral("Timeout"));
    panel.clear();
    EXPECT_EQ(panel.accessibleDescription(), QStringLiteral("Modifiche non salvate"));
    panel.setText(QStringLiteral("Timeout"));
    panel.SetRemark(QString());
    EXPECT_EQ(panel.accessibleDescription(), QStringLiteral("Timeout"));
}

TEST(OutcomePanel, ALineIsReadOutByTheOutcomeItIsGiven)
{
    struct Panel : OutcomePanel {
        int alerts = 0;
        void Alert() override { ++alerts; }
    } panel;
    panel.ShowLine(QStringLiteral("08:00 Prova: Comunicazione OK"), Outcome::Warning);
    EXPECT_EQ(panel.alerts, 0);
    panel.ShowLine(QStringLiteral("08:01 Prova: Errore"), Outcome::Failure);
    EXPECT_EQ(panel.alerts, 1);
}

TEST(OutcomePanel, AGoodCaptionWithANoteIsAWarning)
{
    struct Panel : OutcomePanel {
        std::vector<QString> alerts;
        void Alert() override { alerts.push_back(accessibleDescription()); }
    } panel;
    panel.resize(400, 20);
    const auto bears = [&panel](Outcome outcome) {
        const QImage picture = panel.grab().toImage();
        const QColor colour = OutcomeColour(outcome, panel.palette());
        for (int x = 0; x < picture.height(); ++x)
            for (int y = 0; y < picture.height(); ++y)
                if (picture.pixelColor(x, y) == colour) return true;
        return false;
    };
    const QString good = QStringLiteral("Comunicazione OK");
    const QString noted = QStringLiteral("Comunicazione OK (risposte 31 su 32)");

    panel.ShowNoted(good, QStringLiteral("risposte 31 su 32"));
    EXPECT_EQ(panel.text(), good);
    EXPECT_EQ(panel.Caption(), noted);
    EXPECT_EQ(panel.accessibleDescription(), noted);
    EXPECT_TRUE(panel.alerts.empty()) << "it would be read out as if all were well";
    EXPECT_TRUE(bears(Outcome::Warning));
    EXPECT_FALSE(bears(Outcome::Good));

    panel.ShowNoted(good, {});
    EXPECT_EQ(panel.Caption(), good) << "the note went with its caption";
    EXPECT_EQ(panel.alerts, std::vector{good});
    EXPECT_TRUE(bears(Outcome::Good));

    panel.ShowNoted(QStringLiteral("Errore"), QStringLiteral("riga 3 di 32"));
    EXPECT_EQ(panel.alerts.back(), QStringLiteral("Errore (riga 3 di 32)"));
    panel.clear();
    panel.setText(good);
    EXPECT_EQ(panel.Caption(), good);
}

TEST(OutcomePanel, PaintsTheGlyphOfTheOutcomeGivenWithALine)
{
    OutcomePanel panel;
    panel.resize(400, 20);
    const QString line = QStringLiteral("08:00 Prova, terminale 1: Acquisizione interrotta.");
    panel.ShowLine(line, Outcome::Good);
    const QImage good = panel.grab().toImage();
    panel.ShowLine(line, Outcome::Failure);
    const QImage failure = panel.grab().toImage();
    EXPECT_NE(good, failure);
    EXPECT_EQ(failure.pixelColor(3, 10), OutcomeColour(Outcome::Failure, panel.palette()));
}

TEST(OutcomePanel, ATextWrittenAsIntoAnyLabelIsNoticedWhenPainted)
{
    OutcomePanel panel;
    panel.resize(400, 20);
    int changes = 0;
    QObject::connect(&panel, &TextPanel::TextChanged, &panel, [&changes] { ++changes; });
    static_cast<QLabel&>(panel).setText(QStringLiteral("Timeout"));
    panel.grab();
    panel.grab();
    EXPECT_EQ(changes, 1);
}

TEST(OutcomePanel, ACaptionThatIsCutIsShownInFullAsToolTip)
{
    OutcomePanel panel;
    panel.setText(QStringLiteral("Timeout"));
    panel.resize(400, 20);
    panel.show();
    EXPECT_EQ(panel.toolTip(), QString());
    panel.resize(30, 20);
    EXPECT_EQ(panel.toolTip(), QStringLiteral("Timeout"));
}

TEST(OutcomePanel, AsksForTheRoomOfItsCaptionAndMakesDoWithLess)
{
    OutcomePanel panel;
    const QSize smallest = panel.minimumSizeHint();
    EXPECT_EQ(panel.sizeHint(), smallest);
    panel.setText(QString(300, u'x'));
    EXPECT_EQ(panel.minimumSizeHint(), smallest);
    EXPECT_GT(panel.sizeHint().width(), smallest.width());
    panel.show();
    panel.resize(panel.sizeHint());
    EXPECT_EQ(panel.toolTip(), QString()) << "nothing is cut";
}

TEST(OutcomePanel, ACaptionThatIsTooLongIsBrokenWhereThePanelMay)
{
    OutcomePanel panel;
    panel.setWordWrap(true);
    panel.setText(QStringLiteral("Errore aprendo la COM"));
    const int wide = panel.sizeHint().width();
    const int one_line = panel.heightForWidth(wide);
    EXPECT_EQ(one_line, panel.sizeHint().height());
    EXPECT_GE(panel.heightForWidth(wide * 2 / 3), one_line + panel.fontMetrics().height() - 2);
    EXPECT_TRUE(panel.sizePolicy().hasHeightForWidth());
    panel.show();
    panel.resize(wide * 2 / 3, 2 * one_line);
    EXPECT_EQ(panel.toolTip(), QString()) << "nothing is cut";
}

}  // namespace orlo
