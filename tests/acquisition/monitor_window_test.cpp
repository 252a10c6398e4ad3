#include "registry/widgets/outcome_panel.h"
#include "tests/acquisition/monitor_fixture.h"
#include "tests/support/small_screen.h"

#include <QAccessible>
#include <QTimer>

namespace orlo::testing
{
namespace
{

class MonitorWindow : public MonitorTest
{
protected:
    void TearDown() override
    {
        EXPECT_TRUE(!deed_awaited_ || deeds_ > 0) << "block 1 was never asked for";
        MonitorTest::TearDown();
    }
    /// Does that while block 1 is asked for, which must happen in this test.
    void InTheMiddle(std::function<void()> deed)
    {
        deed_awaited_ = true;
        pc.com1.answer_to = [this, deed = std::move(deed),
                             carry = pc.com1.answer_to](std::string_view bytes) {
            std::vector<Arrival> arrivals = carry(bytes);
            if (commands.back() != QStringLiteral("301")) return arrivals;
            deed();
            ++deeds_;
            return arrivals;
        };
    }

private:
    bool deed_awaited_ = false;
    int deeds_ = 0;
};

TEST_F(MonitorWindow, EveryControlIsFoundByItsName)
{
    for (const char* name :
         {"ListaMonitor", "LabelTransazioni", "LabelScaricate", "CheckMemo", "ChkTuttaMemoria",
          "LabelTuttaMemoria", "cmdMonitor", "cmdUscita", "FiltroMonitor"})
        EXPECT_NE(form.findChild<QWidget*>(QLatin1String(name)), nullptr) << name;
    EXPECT_EQ(form.objectName(), QStringLiteral("FrmMonitor"));
    EXPECT_EQ(Label("LabelTuttaMemoria"), QStringLiteral("Tutta la memoria"));
}

TEST_F(MonitorWindow, OpensModalWithItsTerminalsNumber)
{
    Register(4, QStringLiteral("Strale"));
    Register(12, QStringLiteral("Lumo"));
    form.open();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Monitor Terminale n° 4"));
    EXPECT_EQ(form.windowModality(), Qt::WindowModal);
    EXPECT_TRUE(pc.com1.sent.empty()) << "nothing is asked before Leggi";
    form.close();
    window.SelectTerminalLine(1);
    form.open();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Monitor Terminale n° 12"));
}

TEST_F(MonitorWindow, WholeMemoryIsOfferedToOrloAndSipaOnly)
{
    int number = 1;
    for (const TerminalModel& model : TerminalModels()) {
        Register(number, model.name);
        window.SelectTerminalLine(number - 1);
        ++number;
        form.open();
        const bool object_driven = model.family == LinkFamily::Object;
        EXPECT_EQ(Find<QCheckBox>("ChkTuttaMemoria").isVisible(), object_driven);
        EXPECT_EQ(Find<QLabel>("LabelTuttaMemoria").isVisible(), object_driven);
        EXPECT_GE(Find<QComboBox>("FiltroStato")
                      .findText(object_driven ? QStringLiteral("Non Inviata")
                                              : QStringLiteral("Da Acquisire")),
                  1);
        form.close();
    }
}

TEST_F(MonitorWindow, OutcomeOfTwoLinesMovesNothing)
{
    Register(4, QStringLiteral("Strale"));
    form.open();
    const auto place = [this] {
        QCoreApplication::processEvents();
        return List().mapTo(&form, List().rect().bottomRight());
    };
    const QPoint before = place();
    auto& outcome = Find<OutcomePanel>("EsitoMonitor");
    outcome.setText(QStringLiteral(
        "Errore: è collegata la linea della COM 2, non quella di questo terminale."));
    ASSERT_GT(outcome.heightForWidth(outcome.width()), 2 * outcome.fontMetrics().height());
    EXPECT_EQ(place(), before);
}

TEST_F(MonitorWindow, PressOnItsLabelTicksWholeMemory)
{
    Register(4, QStringLiteral("Orlo"));
    form.open();
    QTest::mouseClick(&Find<QLabel>("LabelTuttaMemoria"), Qt::RightButton);
    EXPECT_FALSE(Find<QCheckBox>("ChkTuttaMemoria").isChecked());
    QTest::mouseClick(&Find<QLabel>("LabelTuttaMemoria"), Qt::LeftButton);
    EXPECT_TRUE(Find<QCheckBox>("ChkTuttaMemoria").isChecked());
}

TEST_F(MonitorWindow, EscapeAndTheButtonClose)
{
    Register(4, QStringLiteral("Strale"));
    form.open();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    form.open();
    Button("cmdUscita").click();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(MonitorWindow, EscapeDoesNotCloseWhileItReads)
{
    Connect(QStringLiteral("Strale"), "timbrature=25");
    InTheMiddle([this] {
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_TRUE(form.isVisible());
    });
    Read();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Lines().size(), 25);
}

TEST_F(MonitorWindow, CloseAskedForWhileItReadsFollowsTheReading)
{
    Connect(QStringLiteral("Strale"), "timbrature=25");
    InTheMiddle([this] {
        form.close();
        EXPECT_TRUE(form.isVisible());
    });
    Read();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Lines().size(), 25);
}

TEST_F(MonitorWindow, LeavingTheProgramFollowsTheReading)
{
    Connect(QStringLiteral("Strale"), "timbrature=25");
    int leaving = 0;
    QObject::connect(&window, &Contenitore::LeaveRequested, &window, [&] {
        ++leaving;
        EXPECT_EQ(Lines().size(), 25);
    });
    InTheMiddle([this] { window.close(); });
    Read();
    EXPECT_EQ(leaving, 1);
    form.open();
    window.close();
    EXPECT_EQ(leaving, 2) << "an open window that does nothing holds nobody back";
}

TEST_F(MonitorWindow, EverythingIsInertWhileItReads)
{
    Connect(QStringLiteral("Strale"), "timbrature=25");
    InTheMiddle([this] {
        EXPECT_FALSE(Button("cmdMonitor").isEnabled());
        EXPECT_FALSE(Button("cmdUscita").isEnabled());
        EXPECT_FALSE(Controls().cmdAcquisisce->isEnabled());
        EXPECT_TRUE(Find<QLabel>("LabelEsc").isVisible());
        QTest::keyClicks(&Find<QLineEdit>("FiltroMonitor"), QStringLiteral("9"));
        QTest::mouseClick(&Find<QCheckBox>("CheckMemo"), Qt::LeftButton);
    });
    Read();
    EXPECT_EQ(Find<QLineEdit>("FiltroMonitor").text(), QString());
    EXPECT_FALSE(Find<QCheckBox>("CheckMemo").isChecked());
    EXPECT_FALSE(Find<QLabel>("LabelEsc").isVisible());
    EXPECT_TRUE(Button("cmdMonitor").isEnabled());
    EXPECT_TRUE(Controls().cmdAcquisisce->isEnabled());
}

TEST_F(MonitorWindow, NothingIsSaidToGoOnWhileTheBoxSaysHowItEnded)
{
    Connect(QStringLiteral("Strale"), "timbrature=25");
    const auto nothing_goes_on = [this] {
        EXPECT_FALSE(Find<QLabel>("LabelEsc").isVisible());
        EXPECT_FALSE(Controls().LabelEsc->isVisible());
        EXPECT_EQ(Controls().LabelAvviso->text(), QString());
    };
    InTheMiddle([this] {
        EXPECT_TRUE(Controls().LabelEsc->isVisible());
        EXPECT_NE(Controls().LabelAvviso->text(), QString());
    });
    pc.dialog.on_tell = nothing_goes_on;
    window.show();
    Read();
    ASSERT_TRUE(QDir::current().mkdir(FileName())) << "no file can be made there";
    WantFile();
    ReadAgain();
    EXPECT_EQ(pc.dialog.told.size(), 2U);
}

TEST_F(MonitorWindow, ProgressRisesAndEndsAtZero)
{
    Connect(QStringLiteral("Strale"), "timbrature=60");
    QList<int> values;
    QObject::connect(&Find<QProgressBar>("PercentualeMonitor"), &QProgressBar::valueChanged, &form,
                     [&values](int value) { values << value; });
    Read();
    EXPECT_EQ(values, (QList<int>{14, 28, 42, 57, 71, 85, 100, 0}));
    EXPECT_EQ(Label("LabelPercentuale"), QStringLiteral("Completato:"));
}

TEST_F(MonitorWindow, FilteredLinesAndTheirCountAreSeenWhileItReads)
{
    Connect(QStringLiteral("Strale"), "timbrature=25,acquisite=18");
    form.open();
    Find<QComboBox>("FiltroStato").setCurrentText(QStringLiteral("Acquisita"));
    EXPECT_EQ(Label("LabelFiltrate"), QStringLiteral("0 di 0"));
    bool seen = false;
    InTheMiddle([this, &seen] {
        EXPECT_EQ(Label("LabelFiltrate"), QStringLiteral("3 di 10"));
        const QImage picture = List().viewport()->grab().toImage();
        const QRgb ground = picture.pixel(picture.width() - 1, picture.height() - 1);
        for (int x = 0; x < picture.width(); ++x)
            for (int y = 0; y < List().sizeHintForRow(0); ++y)
                seen = seen || picture.pixel(x, y) != ground;
    });
    ReadAgain();
    EXPECT_TRUE(seen) << "the first line shown";
    EXPECT_EQ(Label("LabelFiltrate"), QStringLiteral("18 di 25"));
}

TEST_F(MonitorWindow, CountOfTheReadingBeforeIsGoneWhenTheNextBegins)
{
    Connect(QStringLiteral("Strale"), "timbrature=5");
    form.open();
    Find<QLineEdit>("FiltroMonitor").setText(QStringLiteral("Da"));
    ReadAgain();
    ASSERT_EQ(Label("LabelFiltrate"), QStringLiteral("5 di 5"));
    QString count;
    pc.com1.answer_to = [this, &count](std::string_view) {
        count = Label("LabelFiltrate");
        return std::vector<Arrival>();
    };
    ReadAgain();
    EXPECT_EQ(count, QStringLiteral("0 di 0"));
}

TEST_F(MonitorWindow, ClockIsNotReadWhileItIsOpen)
{
    Connect(QStringLiteral("Strale"), "timbrature=5");
    int reads = 0;
    int ticks = 0;
    auto* timer = window.findChild<QTimer*>(QStringLiteral("Timer1"));
    QObject::connect(timer, &QTimer::timeout, &window, [&ticks] { ++ticks; });
    window.SetPeriodicRead([&reads] { ++reads; });
    Read();
    timer->setInterval(1);
    ASSERT_TRUE(QTest::qWaitFor([&ticks] { return ticks >= 3; }));
    EXPECT_EQ(reads, 0);
    form.close();
    ASSERT_TRUE(QTest::qWaitFor([&reads] { return reads > 0; }));
}

TEST_F(MonitorWindow, OpenLineIsUsedAndLeftOpen)
{
    Connect(QStringLiteral("Strale"), "timbrature=5");
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    Read();
    EXPECT_EQ(Lines().size(), 5);
    EXPECT_TRUE(pc.com1.PortOpen());
    EXPECT_EQ(pc.com1.times_opened, 1);
}

TEST_F(MonitorWindow, LongestOutcomeIsWholeAtTheSmallestSize)
{
    Connect(QStringLiteral("Strale"), "timbrature=25");
    Read();
    form.resize(form.minimumSizeHint());
    auto& panel = Find<OutcomePanel>("EsitoMonitor");
    for (const char* outcome : {"Errore: stato della memoria non arrivato: fare Log-in",
                                "Errore: la linea è caduta. Premere Log-off.",
                                "Errore: è collegata la linea della COM 1, non quella di questo "
                                "terminale."}) {
        panel.setText(QString::fromUtf8(outcome));
        QApplication::processEvents();
        EXPECT_GE(panel.height(), panel.heightForWidth(panel.width())) << outcome;
    }
}

TEST_F(MonitorWindow, TheListGivesWayToALongOutcomeWithoutScrolling)
{
    Connect(QStringLiteral("Strale"), "timbrature=25");
    Read();
    form.resize(form.minimumSize());
    auto& panel = Find<OutcomePanel>("EsitoMonitor");
    panel.setText(
        QStringLiteral("Errore: è collegata la linea della COM 1, non quella di questo "
                       "terminale."));
    QApplication::processEvents();
    EXPECT_GT(panel.height(), 2 * form.fontMetrics().height()) << "takes no line more";
    EXPECT_FALSE(Find<ScrollingPage>("ScorrimentoMonitor").verticalScrollBar()->isVisible());
}

TEST_F(MonitorWindow, OnAScreenThatIsTooSmallTheListScrollsAndTheButtonsStay)
{
    Register(4, QStringLiteral("Strale"));
    Register(12, QStringLiteral("Orlo"));
    form.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    const auto& scrolling = Find<ScrollingPage>("ScorrimentoMonitor");
    ExpectNoScrolling(scrolling);
    form.close();
    EnlargeFontOf(form, 1.25);
    // A row with one control more, too.
    for (const int row : {0, 1}) {
        window.SelectTerminalLine(row);
        form.open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        ExpectToStayOnTheScreen(form, scrolling);
        form.close();
    }
}

TEST_F(MonitorWindow, ReadAndCloseAreAsWide)
{
    Register(4, QStringLiteral("Strale"));
    form.open();
    EXPECT_EQ(Button("cmdMonitor").width(), Button("cmdUscita").width());
    EXPECT_LE(form.minimumSizeHint().width(), 720);
}

TEST_F(MonitorWindow, NoTwoMnemonicsAreAlikeAndEveryInputHasAName)
{
    // Alt+T is of ChkTuttaMemoria, whose text stands in a label of its own.
    EXPECT_PRED1(AllDifferent, MnemonicsOf(form) + u'T');
    for (const char* name :
         {"ListaMonitor", "CheckMemo", "ChkTuttaMemoria", "cmdMonitor", "cmdUscita", "cmdCopia",
          "FiltroMonitor", "FiltroStato", "EsitoMonitor"})
        EXPECT_FALSE(Find<QWidget>(name).accessibleName().isEmpty()) << name;
}

TEST_F(MonitorWindow, CountsAndOutcomeAreThereForAssistivePrograms)
{
    Connect(QStringLiteral("Strale"), "timbrature=5");
    Read();
    const auto said = [this](const char* name, QAccessible::Text kind) {
        return QAccessible::queryAccessibleInterface(&Find<QLabel>(name))->text(kind);
    };
    EXPECT_EQ(said("LabelTransazioni", QAccessible::Name),
              QStringLiteral("Transazioni Presenti:  5"));
    EXPECT_EQ(said("LabelScaricate", QAccessible::Name),
              QStringLiteral("Transazioni Acquisite: 5"));
    EXPECT_EQ(said("EsitoMonitor", QAccessible::Description), QStringLiteral("Comunicazione OK"));
}

}  // namespace
}  // namespace orlo::testing
