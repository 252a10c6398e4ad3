#include "tests/registry/contenitore_fixture.h"
#include "tests/support/paint_count.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalSpy>

namespace orlo::contenitore_test
{

class ContenitoreCommands : public ContenitoreTest
{
protected:
    void SetUp() override
    {
        RegisterStrale(1);
        RegisterStrale(2);
        Open();
        Select(0);
    }
    void Run(const std::function<void()>& command, EscapeUse use = EscapeUse::Heeded)
    {
        window.RunCommand(&Control<QAbstractButton>("cmdAcquisisce"),
                          QStringLiteral("Acquisizione in corso…"), use, command);
    }
    QSignalSpy leave{&window, &Contenitore::LeaveRequested};
};

const char* const kCommands[] = {
    "cmdAcquisisce", "cmdSfoglia",       "cmdLeggeOra",          "cmdSincro",
    "cmdTest",       "cmdSuonerie",      "cmdMonitorTimbrature", "cmdComandi",
    "cmdRiceveCard", "cmdTrasmetteCard", "cmdAggiorna",          "cmdLogIn",
    "cmdLogOff",     "cmdUscita"};

TEST_F(ContenitoreCommands, OnlyBuiltFeaturesHaveAnEnabledButton)
{
    for (const char* name : {"cmdAcquisisce", "cmdSfoglia", "cmdAggiorna", "cmdUscita"})
        EXPECT_TRUE(Enabled(name)) << name;
    for (const char* name :
         {"cmdLeggeOra", "cmdSincro", "cmdTest", "cmdSuonerie", "cmdMonitorTimbrature",
          "cmdComandi", "cmdRiceveCard", "cmdTrasmetteCard", "cmdLogIn", "cmdLogOff"}) {
        EXPECT_FALSE(Enabled(name)) << name;
        EXPECT_FALSE(Control(name).toolTip().isEmpty()) << name;
    }
}

TEST_F(ContenitoreCommands, NothingEnablesAButtonWithoutItsFeature)
{
    Run([] {});
    Select(1);
    Press("Abilitazione");
    Press("Abilitazione");
    EXPECT_FALSE(Enabled("cmdTest"));
    window.SetFeatureAvailable(&Control<QAbstractButton>("cmdTest"), true);
    EXPECT_TRUE(Enabled("cmdTest"));
    window.SetFeatureAvailable(&Control<QAbstractButton>("cmdTest"), false);
    EXPECT_FALSE(Enabled("cmdTest"));
}

TEST_F(ContenitoreCommands, AClearedOutcomeIsOffTheScreenBeforeTheTerminalIsTalkedTo)
{
    TextPanel& caption = Control<TextPanel>("PannelloComunicazione");
    caption.setText(QStringLiteral("Comunicazione OK"));
    const testing::PaintCount painted(caption, [&caption] { return caption.text().isEmpty(); });
    Run([this, &caption, &painted] {
        caption.clear();
        const int before = painted.times;
        EXPECT_TRUE(window.PrepareCurrentTerminal());
        EXPECT_GT(painted.times, before);
    });
}

TEST_F(ContenitoreCommands, WhileOneRunsEveryButtonIsDisabledButNoFrame)
{
    Run([this] {
        EXPECT_TRUE(window.CommandRunning());
        for (const char* name : kCommands) EXPECT_FALSE(Enabled(name)) << name;
        for (const char* name : {"FrameAcquisizione", "PannelloFunzioni", "FrameFormatoBadge",
                                 "PaginaTerminale", "ListaTerminali"})
            EXPECT_TRUE(Enabled(name)) << name;
        EXPECT_EQ(TextOf("LabelAvviso"), QStringLiteral("Acquisizione in corso…"));
    });
    EXPECT_FALSE(window.CommandRunning());
    for (const char* name : {"cmdAcquisisce", "cmdSfoglia", "cmdAggiorna", "cmdUscita"})
        EXPECT_TRUE(Enabled(name)) << name;
    EXPECT_EQ(TextOf("LabelAvviso"), QString());
}

TEST_F(ContenitoreCommands, WhileOneRunsListAndFieldsTakeNoInput)
{
    Run([this] {
        ClickLine(1);
        Key("ListaTerminali", Qt::Key_Down);
        EXPECT_EQ(List().currentRow(), 0);
        Type("CampoDescrizione", "xyz");
        EXPECT_EQ(TextOf("CampoDescrizione"), QStringLiteral("Porta"));
        Press("CheckModem");
        EXPECT_FALSE(Ticked("CheckModem"));
        Press("Modalita_2");
        EXPECT_FALSE(Ticked("Modalita_2"));
        Key("ComboTipoTerminale", Qt::Key_Home);
        EXPECT_EQ(TextOf("ComboTipoTerminale"), QStringLiteral("Strale"));
        Type("ComboPorta", "1");
        EXPECT_EQ(TextOf("ComboPorta"), QStringLiteral("Com 2"));
        QTest::mouseClick(&Control("ScrollTentativi"), Qt::LeftButton, {}, QPoint(5, 3));
        EXPECT_EQ(TextOf("Tentativi"), QStringLiteral("3"));
        // The mnemonic of a caption would take the focus away.
        QTest::keyClick(&window, Qt::Key_D, Qt::AltModifier);
        EXPECT_TRUE(List().hasFocus());
    });
    ClickLine(1);
    EXPECT_EQ(List().currentRow(), 1);
}

TEST_F(ContenitoreCommands, WhatWasPressedDuringOneIsNotCarriedOutBehindIt)
{
    int runs = 0;
    QObject::connect(&Control<QAbstractButton>("cmdAcquisisce"), &QAbstractButton::clicked, &window,
                     [&runs] { ++runs; });
    Run([this] {
        // Input that waits in the queue, as it does while an exchange sleeps.
        QWidget* const button = &Control("cmdAcquisisce");
        const QPointF middle = button->rect().center();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            QCoreApplication::postEvent(
                button, new QMouseEvent(type, middle, button->mapToGlobal(middle), Qt::LeftButton,
                                        Qt::LeftButton, Qt::NoModifier));
        QCoreApplication::postEvent(&Control("ListaTerminali"),
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier));
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(TextOf("LabelTerminale"), QStringLiteral("Terminale n°1"));
}

TEST_F(ContenitoreCommands, EscapeReachesWhoeverListens)
{
    struct Listener : QObject {
        bool heard = false;
        bool eventFilter(QObject*, QEvent* event) override
        {
            heard |= event->type() == QEvent::KeyPress &&
                     static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
            return false;
        }
    } listener;
    List().installEventFilter(&listener);
    Run([this] { Key("ListaTerminali", Qt::Key_Escape); });
    EXPECT_TRUE(listener.heard);
}

TEST_F(ContenitoreCommands, TheStripSaysWhetherEscapeIsHeeded)
{
    EXPECT_FALSE(Shown("LabelEsc"));
    Run([this] { EXPECT_TRUE(Shown("LabelEsc")); }, EscapeUse::Heeded);
    EXPECT_FALSE(Shown("LabelEsc"));
    Run([this] { EXPECT_FALSE(Shown("LabelEsc")); }, EscapeUse::Ignored);
}

TEST_F(ContenitoreCommands, AttemptsOfACommandBeforeAreGoneWhenTheNextBegins)
{
    window.Controls().PannelloTentativi->setText(QStringLiteral("Tentativi3/3"));
    Run([this] { EXPECT_EQ(TextOf("PannelloTentativi"), QString()); });
}

TEST_F(ContenitoreCommands, TheFocusParksInTheListAndReturnsToTheButton)
{
    Control("cmdAcquisisce").setFocus();
    Run([this] { EXPECT_TRUE(List().hasFocus()); });
    EXPECT_TRUE(Control("cmdAcquisisce").hasFocus());
}

TEST_F(ContenitoreCommands, ThePointerIsAnHourglassOverAllButTheStrip)
{
    const auto shape = [this](const char* name) { return Control(name).cursor().shape(); };
    Run([&] {
        for (const char* name : {"ListaTerminali", "PaginaTerminale", "CampoDescrizione"})
            EXPECT_EQ(shape(name), Qt::WaitCursor) << name;
        EXPECT_EQ(shape("PannelloComunicazione"), Qt::ArrowCursor);
    });
    EXPECT_EQ(shape("PaginaTerminale"), Qt::ArrowCursor);
    EXPECT_EQ(shape("CampoDescrizione"), Qt::IBeamCursor);
}

TEST_F(ContenitoreCommands, OutcomeStaysReadableWhenItsCaptionIsGone)
{
    auto& caption = Control<OutcomePanel>("PannelloComunicazione");
    Run([&] {
        caption.setText(QStringLiteral("RX Error"));
        caption.setText(QStringLiteral("Comunicazione OK"));
        // As when the pointer passes over it.
        caption.clear();
    });
    const QString outcome = QStringLiteral("14:07:09 Acquisizione, terminale 1: Comunicazione OK");
    EXPECT_EQ(TextOf("LabelUltimoComando"), outcome);
    caption.setText(QStringLiteral("Timeout"));
    EXPECT_EQ(TextOf("LabelUltimoComando"), outcome);
}

TEST_F(ContenitoreCommands, OutcomeTakesThePlaceOfTheAttemptsBehindTheCommand)
{
    EXPECT_FALSE(Shown("LabelUltimoComando"));
    Run([this] {
        EXPECT_TRUE(Shown("PannelloTentativi"));
        window.NoteOutcome(QStringLiteral("Timeout"));
    });
    EXPECT_TRUE(Shown("LabelUltimoComando"));
    EXPECT_FALSE(Shown("PannelloTentativi"));
    Run([this] {
        EXPECT_FALSE(Shown("LabelUltimoComando"));
        EXPECT_TRUE(Shown("PannelloTentativi"));
    });
    EXPECT_TRUE(Shown("LabelUltimoComando"));
}

TEST_F(ContenitoreCommands, OutcomeBearsTheGlyphOfItsOwnWords)
{
    Run([this] { window.NoteOutcome(QStringLiteral("Errore aprendo la COM")); });
    QCoreApplication::processEvents();
    const auto& line = Control<OutcomePanel>("LabelUltimoComando");
    const QImage picture = Control("LabelUltimoComando").grab().toImage();
    const QColor failure = OutcomeColour(Outcome::Failure, line.palette());
    int painted = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.height(); ++x)
            if (picture.pixelColor(x, y) == failure) ++painted;
    EXPECT_GT(painted, 50);
}

TEST_F(ContenitoreCommands, TheLightSaysWhichLineIsOpen)
{
    state.SessionPort = 3;
    Run([this] { Control("Verde").show(); });
    const QString open = QStringLiteral("Linea aperta sulla COM 3");
    EXPECT_EQ(Control("Verde").toolTip(), open);
    EXPECT_EQ(Control("Verde").accessibleDescription(), open);
    EXPECT_EQ(Control("cmdLogIn").toolTip(), QStringLiteral("La linea è già aperta: richiama"));
    Run([this] { Control("Verde").hide(); });
    EXPECT_EQ(Control("cmdLogIn").toolTip(), QStringLiteral("Apre il collegamento: log-in"));
}

TEST_F(ContenitoreCommands, OutcomeOfACommandThatHadNoneIsThatOfTheOneBefore)
{
    Run([this] { window.NoteOutcome(QStringLiteral("Errore = ER")); });
    Run([] {});
    EXPECT_EQ(TextOf("LabelUltimoComando"),
              QStringLiteral("14:07:09 Acquisizione, terminale 1: Errore = ER"));
}

TEST_F(ContenitoreCommands, TheSameCaptionOnceMoreIsAnOutcomeOfItsOwn)
{
    const auto refuse = [this] {
        Control<OutcomePanel>("PannelloComunicazione").setText(QStringLiteral("Timeout"));
    };
    Run(refuse);
    Control<OutcomePanel>("LabelUltimoComando").clear();
    Run(refuse);
    EXPECT_EQ(TextOf("LabelUltimoComando"),
              QStringLiteral("14:07:09 Acquisizione, terminale 1: Timeout"));
}

TEST_F(ContenitoreCommands, NotedOutcomeCountsMoreThanTheCaption)
{
    Run([this] {
        window.NoteOutcome(QStringLiteral("risposte 5 su 5"));
        Control<OutcomePanel>("PannelloComunicazione").setText(QStringLiteral("Timeout"));
    });
    EXPECT_EQ(TextOf("LabelUltimoComando"),
              QStringLiteral("14:07:09 Acquisizione, terminale 1: risposte 5 su 5"));
}

TEST_F(ContenitoreCommands, ASecondOneDoesNotRunInsideTheFirst)
{
    int runs = 0;
    Run([&] {
        ++runs;
        Run([&] { ++runs; });
        Press("cmdAcquisisce");
    });
    EXPECT_EQ(runs, 1);
}

TEST_F(ContenitoreCommands, AMessageBoxKeepsTheWindowInert)
{
    dialog.while_shown = [this] {
        EXPECT_TRUE(window.CommandRunning());
        ClickLine(1);
        window.close();
    };
    Write("Tentativi", "99999");
    Press("cmdAggiorna");
    EXPECT_EQ(dialog.told.size(), 1U);
    EXPECT_EQ(List().currentRow(), 0);
    EXPECT_EQ(leave.count(), 1);
}

TEST_F(ContenitoreCommands, AWindowOfTheCommandTakesInput)
{
    QLineEdit box;
    box.show();
    Run([&] { QTest::keyClicks(&box, QStringLiteral("si")); });
    EXPECT_EQ(box.text(), QStringLiteral("si"));
}

TEST_F(ContenitoreCommands, LeavingIsAskedByButtonAndByClosing)
{
    Press("cmdUscita");
    EXPECT_EQ(leave.count(), 1);
    window.close();
    EXPECT_EQ(leave.count(), 2);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(ContenitoreCommands, WhoeverHearsThatMayCloseTheWindow)
{
    QObject::connect(&window, &Contenitore::LeaveRequested, &window, [this] { window.close(); });
    Run([this] { window.close(); });
    EXPECT_EQ(leave.count(), 1);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(ContenitoreCommands, ACloseAskedForMeanwhileFollowsTheCommandOnce)
{
    Run([this] {
        window.close();
        window.close();
        EXPECT_EQ(leave.count(), 0);
    });
    EXPECT_EQ(leave.count(), 1);
    Run([] {});
    EXPECT_EQ(leave.count(), 1);
}

TEST_F(ContenitoreCommands, AfterAFailureTheWindowIsUsableAgain)
{
    EXPECT_THROW(Run([] { throw std::runtime_error("guasto"); }), std::runtime_error);
    EXPECT_FALSE(window.CommandRunning());
    EXPECT_TRUE(Enabled("cmdAcquisisce"));
    EXPECT_EQ(Control("PaginaTerminale").cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ContenitoreCommands, AnInactiveTerminalsNoticeComesBackAfterwards)
{
    Press("Abilitazione");
    const QString notice = QStringLiteral("Terminale non attivo: i comandi non sono disponibili.");
    EXPECT_EQ(TextOf("LabelAvviso"), notice);
    Run([this] { EXPECT_EQ(TextOf("LabelAvviso"), QStringLiteral("Acquisizione in corso…")); });
    EXPECT_EQ(TextOf("LabelAvviso"), notice);
}

}  // namespace orlo::contenitore_test
