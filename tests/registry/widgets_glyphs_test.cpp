#include "registry/widgets/glyphs.h"

#include <gtest/gtest.h>

namespace orlo
{

TEST(Outcome, IsToldByTheWordsOfTheCaption)
{
    struct Case {
        const char* caption;
        Outcome outcome;
    };
    const Case cases[] = {
        {"", Outcome::None},
        {"Comunicazione OK", Outcome::Good},
        {"Modem Log In", Outcome::Good},
        {"Modem Log Off", Outcome::Good},
        {"Errore aprendo la COM", Outcome::Failure},
        {"Errore:99,Time Out", Outcome::Failure},
        {"Timeout", Outcome::Warning},
        {"RX Error", Outcome::Warning},
        {"Modem Log In fallito", Outcome::Warning},
        {"5/32 Comunicazione OK", Outcome::Good},
        {"Comunicazione OK, 19 timbrature in TIMBRAT.TXT", Outcome::Good},
        {"Comunicazione OK, nessuna timbratura da acquisire", Outcome::Good},
        {"Comunicazione OK, senza le modifiche non salvate", Outcome::Warning},
        {"Ricezione dati OK", Outcome::Good},
        {"Spedizione dati OK", Outcome::Good},
        {"Trasmissione Dati Ok", Outcome::Good},
        {"risposte 6 su 6", Outcome::Good},
        {"risposte 5 su 6", Outcome::Warning},
        {"risposte 6 su 66", Outcome::Warning},
        {"salvato nel registro", Outcome::Good},
        {"non salvato", Outcome::Failure},
        {"suoneria salvata", Outcome::Good},
        {"non salvata", Outcome::Failure},
        {"Acquisizione interrotta.", Outcome::Warning},
        {"Impossibile aprire il file \"X\": manca.", Outcome::Failure},
        {"Avvio non completato: errore 429", Outcome::Failure},
    };
    for (const Case& c : cases)
        EXPECT_EQ(OutcomeOf(QString::fromUtf8(c.caption)), c.outcome) << c.caption;
}

TEST(Colours, OfTheRolesReadOnLightAndDarkGrounds)
{
    for (const bool dark : {false, true}) {
        QPalette palette;
        palette.setColor(QPalette::Window, dark ? QColor(0x34, 0x37, 0x3c) : QColor(0xefefef));
        palette.setColor(QPalette::WindowText, dark ? QColor(0xf0f0f0) : QColor(Qt::black));
        palette.setColor(QPalette::Base, dark ? QColor(0x1d1e20) : QColor(Qt::white));
        palette.setColor(QPalette::Text, palette.color(QPalette::WindowText));
        palette.setColor(QPalette::Highlight, QColor(0x308cc6));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        const QColor window = palette.color(QPalette::Window);
        EXPECT_GE(ContrastRatio(SecondaryOnWindow(palette), window), 5.3) << dark;
        EXPECT_GE(ContrastRatio(SecondaryOnBase(palette), palette.color(QPalette::Base)), 5.3)
            << dark;
        EXPECT_GE(ContrastRatio(FilledColour(palette), Qt::white), 4.5) << dark;
        for (const Outcome outcome : {Outcome::Good, Outcome::Warning, Outcome::Failure})
            EXPECT_GE(ContrastRatio(OutcomeColour(outcome, palette), window), 4.5) << dark;
    }
}

TEST(Colours, ContrastRunsFromOneToTwentyOne)
{
    EXPECT_NEAR(ContrastRatio(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(ContrastRatio(Qt::white, Qt::white), 1, 0.01);
    EXPECT_NEAR(ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

}  // namespace orlo
