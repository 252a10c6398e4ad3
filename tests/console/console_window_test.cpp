#include "registry/widgets/outcome_panel.h"
#include "tests/console/console_fixture.h"

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>

namespace orlo::testing
{
namespace
{

class ConsoleWindow : public ConsoleTest
{
protected:
    void Connect()
    {
        ConnectedWindow::Connect(QStringLiteral("Strale"));
        form.open();
    }
    /// What stands in the command field after that key.
    QString After(int key)
    {
        QTest::keyClick(&Command(), static_cast<Qt::Key>(key));
        return Command().text();
    }
};

TEST_F(ConsoleWindow, EveryControlIsFoundByItsName)
{
    for (const char* name :
         {"CommandField", "DataField", "labelParametri", "LabelComando", "ReceivedDataLabel",
          "ReceveidCommand", "FrameComandi", "cmdTrasmetteComando", "cmdUscita"})
        EXPECT_NE(form.findChild<QWidget*>(QLatin1String(name)), nullptr) << name;
    EXPECT_EQ(form.objectName(), QStringLiteral("FrmComandi"));
}

TEST_F(ConsoleWindow, OpensModalWithItsTerminalsNumber)
{
    Register(4, QStringLiteral("Strale"));
    form.open();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Comandi Terminale n° 4"));
    EXPECT_EQ(form.windowModality(), Qt::WindowModal);
    EXPECT_EQ(form.focusWidget(), &Command());
}

TEST_F(ConsoleWindow, OpeningClosesThePortThatATestLeftOpen)
{
    ConnectedWindow::Connect(QStringLiteral("Strale"));
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    form.open();
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(ConsoleWindow, SerialModelsHaveNoParameters)
{
    int number = 1;
    for (const TerminalModel& model : TerminalModels()) {
        Register(number, model.name);
        window.SelectTerminalLine(number - 1);
        ++number;
        form.open();
        for (const char* name : {"labelParametri", "DataField", "LabelComando", "ReceveidCommand"})
            EXPECT_EQ(Find<QWidget>(name).isVisible(), model.family == LinkFamily::Object)
                << name << ", " << model.name.toStdString();
        form.close();
    }
}

TEST_F(ConsoleWindow, CommandTakesTheRoomOfTheParameters)
{
    Connect();
    const auto width = [this] {
        QApplication::processEvents();
        return Command().width();
    };
    const int alone = width();
    EXPECT_GT(alone, form.width() / 2);
    form.close();
    Register(5, QStringLiteral("Orlo"));
    window.SelectTerminalLine(1);
    form.open();
    EXPECT_LT(width(), alone);
    EXPECT_GE(Data().width(), Command().width() - 1);
}

TEST_F(ConsoleWindow, FieldAndButtonAreAsFarApartForEveryModel)
{
    Connect();
    const auto gap = [this] {
        QApplication::processEvents();
        const QLineEdit& last = Data().isVisible() ? Data() : Command();
        return Button("cmdTrasmetteComando").x() - last.geometry().right() - 1;
    };
    EXPECT_EQ(gap(), 6);
    form.close();
    Register(5, QStringLiteral("Orlo"));
    window.SelectTerminalLine(1);
    form.open();
    EXPECT_EQ(gap(), 6);
    form.close();
    window.SelectTerminalLine(0);
    form.open();
    EXPECT_EQ(gap(), 6);
}

TEST_F(ConsoleWindow, TitleIsAsFarFromWhatFollowsForEveryModel)
{
    Connect();
    const auto gap = [this](const char* next) {
        QApplication::processEvents();
        const auto& title = Find<QLabel>("LabelTitolo");
        const int words = title.geometry().bottom() - title.contentsMargins().bottom();
        return Find<QWidget>(next).y() - words - 1;
    };
    EXPECT_EQ(gap("CommandField"), 6);
    form.close();
    Register(5, QStringLiteral("Orlo"));
    window.SelectTerminalLine(1);
    form.open();
    EXPECT_EQ(gap("LabelComando"), 6);
}

TEST_F(ConsoleWindow, AltCLeadsToTheCommandForEveryModel)
{
    Connect();
    const auto lead = [this] {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        Button("cmdUscita").setFocus();
        QTest::keyClick(&form, Qt::Key_C, Qt::AltModifier);
        return form.focusWidget();
    };
    EXPECT_EQ(lead(), &Command());
    form.close();
    Register(5, QStringLiteral("Orlo"));
    window.SelectTerminalLine(1);
    form.open();
    EXPECT_EQ(lead(), &Command());
}

TEST_F(ConsoleWindow, SendAndCloseStandInOneColumn)
{
    Connect();
    QApplication::processEvents();
    const auto place = [this](const char* name) {
        return std::pair(Button(name).mapTo(&form, QPoint()).x(), Button(name).width());
    };
    EXPECT_EQ(place("cmdTrasmetteComando"), place("cmdUscita"));
}

TEST_F(ConsoleWindow, EnterSendsAsTheButtonDoes)
{
    Connect();
    Command().setText(QStringLiteral("03"));
    QTest::keyClick(&Command(), Qt::Key_Return);
    EXPECT_EQ(commands, QStringList{QStringLiteral("03")}) << "once";
    QTest::keyClick(&Command(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(commands.size(), 2);
}

TEST_F(ConsoleWindow, EnterInTheAnswerSendsNothing)
{
    Connect();
    Send("03");
    auto* view = form.findChild<QPlainTextEdit*>();
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(commands.size(), 1);
}

TEST_F(ConsoleWindow, TypingClearsTheAnswer)
{
    Connect();
    Send("03");
    ASSERT_FALSE(Answer().isEmpty());
    QTest::keyClicks(&Command(), QStringLiteral("x"));
    EXPECT_EQ(Answer(), QString());
    EXPECT_EQ(Label("ReceveidCommand"), QString());
    EXPECT_EQ(Status(), QString());
}

TEST_F(ConsoleWindow, ArrowsRecallTheCommandsOfTheSession)
{
    Connect();
    Send("03");
    Send("32");
    Command().setText(QStringLiteral("95"));
    EXPECT_EQ(After(Qt::Key_Up), QStringLiteral("32"));
    EXPECT_EQ(After(Qt::Key_Up), QStringLiteral("03"));
    EXPECT_EQ(After(Qt::Key_Down), QStringLiteral("32"));
    EXPECT_EQ(After(Qt::Key_Down), QStringLiteral("95"));
}

TEST_F(ConsoleWindow, FirstArrowUpBehindACommandRecallsTheOneBefore)
{
    Connect();
    Send("03");
    Send("32");
    EXPECT_EQ(After(Qt::Key_Up), QStringLiteral("03"));
}

TEST_F(ConsoleWindow, CommandsAreRecalledInAWindowOpenedAnew)
{
    Connect();
    Send("03");
    form.close();
    form.open();
    EXPECT_EQ(Command().text(), QString());
    EXPECT_EQ(Answer(), QString());
    EXPECT_EQ(Status(), QString());
    EXPECT_EQ(After(Qt::Key_Up), QStringLiteral("03"));
}

TEST_F(ConsoleWindow, AnswerIsCopiedByItsButton)
{
    Connect();
    EXPECT_FALSE(Button("cmdCopia").isEnabled());
    Send("x");
    ASSERT_EQ(Answer(), QStringLiteral("COMANDO SCONOSCIUTO"));
    EXPECT_TRUE(Button("cmdCopia").isEnabled());
    Button("cmdCopia").click();
    EXPECT_EQ(QApplication::clipboard()->text(), Answer());
    Command().clear();
    EXPECT_FALSE(Button("cmdCopia").isEnabled());
}

TEST_F(ConsoleWindow, LongestOutcomeIsWholeInTheNarrowestWindow)
{
    Connect();
    Send("03");
    form.resize(form.minimumSizeHint().width(), form.height());
    auto& panel = Find<OutcomePanel>("EsitoComando");
    panel.setText(QStringLiteral(
        "Errore: è collegata la linea della COM 1, non quella di questo terminale."));
    QApplication::processEvents();
    EXPECT_GE(panel.height(), panel.heightForWidth(panel.width()));
}

TEST_F(ConsoleWindow, NoAnswerWidensTheWindow)
{
    Connect();
    const QSize before = form.size();
    const QSize least = form.minimumSizeHint();
    Find<AnswerPanel>("ReceivedDataLabel").setText(QString(5000, u'W'));
    QApplication::processEvents();
    EXPECT_EQ(form.size(), before);
    EXPECT_EQ(form.minimumSizeHint(), least);
}

TEST_F(ConsoleWindow, EscapeClosesUnlessACommandRuns)
{
    Connect();
    pc.com1.answer_to = [this, carry = pc.com1.answer_to](std::string_view bytes) {
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_TRUE(form.isVisible());
        EXPECT_FALSE(Button("cmdTrasmetteComando").isEnabled());
        EXPECT_FALSE(Button("cmdUscita").isEnabled());
        return carry(bytes);
    };
    Send("03");
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(Answer().isEmpty());
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(ConsoleWindow, NoTwoMnemonicsAreAlikeAndEveryInputHasAName)
{
    Register(4, QStringLiteral("Orlo"));
    form.open();
    EXPECT_EQ(MnemonicsOf(form).size(), 5);
    EXPECT_PRED1(AllDifferent, MnemonicsOf(form));
    for (const char* name : {"CommandField", "DataField", "cmdTrasmetteComando", "cmdUscita",
                             "cmdCopia", "ReceivedDataLabel", "ReceveidCommand", "EsitoComando"})
        EXPECT_FALSE(Find<QWidget>(name).accessibleName().isEmpty()) << name;
    // What has the focus when the answer has it.
    EXPECT_EQ(form.findChild<QPlainTextEdit*>()->accessibleName(),
              QStringLiteral("Risposta del terminale"));
}

}  // namespace
}  // namespace orlo::testing
