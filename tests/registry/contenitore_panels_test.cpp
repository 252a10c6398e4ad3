#include "tests/registry/contenitore_fixture.h"

#include <QFileDialog>
#include <QTimer>

namespace orlo::contenitore_test
{

using ContenitorePanels = ContenitoreTest;

TEST_F(ContenitorePanels, PointerOverACaptionClearsIt)
{
    Open();
    for (const char* name : {"PannelloComunicazione", "PannelloTentativi"}) {
        auto& panel = Control<TextPanel>(name);
        panel.setText(QStringLiteral("Timeout"));
        QTest::mouseMove(&panel, panel.rect().center());
        ASSERT_TRUE(QTest::qWaitFor([&] { return panel.text().isEmpty(); })) << name;
    }
}

TEST_F(ContenitorePanels, PointerElsewhereClearsNothing)
{
    Open();
    auto& panel = Control<TextPanel>("PannelloComunicazione");
    panel.setText(QStringLiteral("Timeout"));
    auto& other = Control("LabelTerminale");
    QMouseEvent move(QEvent::MouseMove, QPointF(3, 3), other.mapToGlobal(QPointF(3, 3)),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&other, &move);
    EXPECT_EQ(panel.text(), QStringLiteral("Timeout"));
}

TEST_F(ContenitorePanels, AzzeraLabelEmptiesTheStatusPanels)
{
    const char* const panels[] = {
        "PannelloComunicazione", "PannelloCapacita", "PannelloTimbrature", "PannelloFree",
        "PannelloAcquisire",     "PannelloStato",    "PannelloVersione",   "OraTerminale",
        "DataTerminale",         "Sistema",          "PannelloTentativi",  "PanelTentativi"};
    for (const char* name : panels) Control<TextPanel>(name).setText(QStringLiteral("12"));
    window.AzzeraLabel();
    for (const char* name : panels) EXPECT_EQ(TextOf(name), QString()) << name;
}

TEST_F(ContenitorePanels, RipulisceParametriEmptiesTheEditControls)
{
    RegisterOrlo(1);
    Select(0);
    Write("NomeFile", "TIMBRAT.TXT");
    window.RipulisceParametri();
    for (const char* name :
         {"CampoDescrizione", "ComboTipoTerminale", "ComboPorta", "ComboVelocita", "ComboRitardo",
          "Priorita", "Priorita2", "Tentativi", "NumeroTelefono", "CodiceImpianto", "NomeCard",
          "LenCard", "InizioImpianto", "LenImpianto", "InizioAzienda", "LenAzienda", "InizioBadge",
          "LenBadge"})
        EXPECT_EQ(TextOf(name), QString()) << name;
    for (const char* name :
         {"Abilitazione", "CheckModem", "BidirectionalCheck", "Modalita_0", "Funzionamento_0"})
        EXPECT_FALSE(Ticked(name)) << name;
    EXPECT_EQ(TextOf("NomeFile"), QStringLiteral("TIMBRAT.TXT"));
}

TEST_F(ContenitorePanels, PreparingFillsTheCurrentTerminalBlock)
{
    RegisterStrale(12);
    RegisterOrlo(7);
    Select(1);
    Control<ChoiceBox>("ComboPorta").Show(QStringLiteral("Com 3"));
    Control<ChoiceBox>("ComboVelocita").Show(QStringLiteral("38400"));
    Write("Tentativi", "5");
    Write("Priorita", " 8");
    Write("Priorita2", "99999");
    Write("NumeroTelefono", " 045 ");
    Write("CodiceImpianto", " 12 ");
    Control<QCheckBox>("CheckModem").setChecked(true);
    Control<ElidedPanel>("PannelloStato").setText(QStringLiteral("x"));
    Control<ElidedPanel>("PannelloVersione").setText(QStringLiteral("x"));
    window.PrepareCurrentTerminal();
    EXPECT_EQ(state.CurrentPort, 3);
    EXPECT_EQ(state.CurrentSpeed, 38400);
    EXPECT_EQ(state.CurrentTerminalNumber, 7);
    EXPECT_EQ(state.CurrentRetries, 5);
    EXPECT_EQ(state.CurrentPriority, 8);
    EXPECT_EQ(state.CurrentPriority2, 0);
    EXPECT_TRUE(state.CurrentModem);
    EXPECT_EQ(state.CurrentPhoneNumber, QStringLiteral("045"));
    EXPECT_EQ(state.CurrentPlantCode, QStringLiteral("12"));
    EXPECT_EQ(TextOf("PannelloStato"), QString());
    EXPECT_EQ(TextOf("PannelloVersione"), QString());
}

TEST_F(ContenitorePanels, PreparingWithAnEmptiedPortGivesNone)
{
    RegisterStrale(1);
    Select(0);
    Control<ChoiceBox>("ComboPorta").Show(QString());
    window.PrepareCurrentTerminal();
    EXPECT_EQ(state.CurrentPort, 0);
}

TEST_F(ContenitorePanels, GaugeFollowsTheCounters)
{
    RegisterStrale(1);
    RegisterOrlo(2);
    auto& gauge = Control<MemoryGauge>("MisuratoreMemoria");
    const auto show = [this](const char* capacity, const char* punches, const char* to_acquire) {
        Control<NumberPanel>("PannelloCapacita").setText(QString::fromUtf8(capacity));
        Control<NumberPanel>("PannelloTimbrature").setText(QString::fromUtf8(punches));
        Control<NumberPanel>("PannelloAcquisire").setText(QString::fromUtf8(to_acquire));
    };
    Select(0);
    show("2500", "1482", "128");
    EXPECT_EQ(gauge.Parts(), (MemoryParts{2500, 1354, 128}));
    Select(1);
    EXPECT_EQ(gauge.Parts(), MemoryParts{});
    show("10000", "300", "200");
    EXPECT_EQ(gauge.Parts(), (MemoryParts{10000, 300, 200}));
    window.AzzeraLabel();
    EXPECT_EQ(gauge.Parts(), MemoryParts{});
}

TEST_F(ContenitorePanels, BadgeDrawingFollowsItsFields)
{
    RegisterOrlo(1);
    Select(0);
    const auto& drawing = Control<BadgeDrawing>("DisegnoBadge");
    EXPECT_EQ(drawing.Layout(), (BadgeLayout{{1, 5}, {0, 0}, {6, 6}, 0}));
    Write("InizioAzienda", "4");
    Write("LenAzienda", "2");
    Write("LenCard", "20");
    EXPECT_EQ(drawing.Layout(), (BadgeLayout{{1, 5}, {4, 2}, {6, 6}, 20}));
    EXPECT_EQ(drawing.toolTip(), QStringLiteral("Due campi del badge si sovrappongono."));
}

TEST_F(ContenitorePanels, BadgeDrawingOfASerialTypeHasNeitherCompanyNorLength)
{
    TerminalRecord slot = Terminal(1, TerminalType::Strale, "Porta");
    slot.InizioAzienda = 12;
    slot.LenAzienda = 3;
    slot.LenCard = 20;
    Register(slot);
    Select(0);
    const auto& drawing = Control<BadgeDrawing>("DisegnoBadge");
    EXPECT_EQ(drawing.Layout(), (BadgeLayout{{1, 5}, {0, 0}, {6, 6}, 0}));
    PickType("Orlo");
    EXPECT_EQ(drawing.Layout(), (BadgeLayout{{1, 5}, {12, 3}, {6, 6}, 20}));
}

TEST_F(ContenitorePanels, PunchFileIsChosenToBeAddedTo)
{
    Open();
    RegisterStrale(1);
    Select(0);
    Write("NomeFile", "/tmp/PRIMA.TXT");
    QTimer::singleShot(0, &window, [this] {
        auto* box = window.findChild<QFileDialog*>();
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->windowTitle(), QStringLiteral("File a cui aggiungere le timbrature"));
        EXPECT_EQ(box->labelText(QFileDialog::Accept), QStringLiteral("Scegli"));
        EXPECT_TRUE(box->testOption(QFileDialog::DontConfirmOverwrite));
        EXPECT_TRUE(box->selectedFiles().constFirst().endsWith(QStringLiteral("/PRIMA.TXT")));
        box->selectFile(QStringLiteral("DOPO.TXT"));
        static_cast<QDialog*>(box)->accept();
    });
    Press("cmdSfoglia");
    EXPECT_EQ(TextOf("NomeFile"), QStringLiteral("/tmp/DOPO.TXT"));
}

TEST_F(ContenitorePanels, ClockDifferenceIsShownWhenBothAreRead)
{
    Control<NumberPanel>("OraTerminale").setText(QStringLiteral("14:07:12"));
    Control<ElidedPanel>("DataTerminale").setText(QStringLiteral("05/03/2006"));
    EXPECT_EQ(TextOf("LabelScarto"), QString());
    Control<TwoLineLabel>("Sistema").setText(QStringLiteral("05/03/2006 - 14:07:09"));
    EXPECT_EQ(TextOf("LabelScarto"), QStringLiteral("+3 s"));
    window.AzzeraLabel();
    EXPECT_EQ(TextOf("LabelScarto"), QString());
}

TEST_F(ContenitorePanels, ARemarkStandsWhileThereIsNoOutcome)
{
    window.ShowRemark(QStringLiteral("Il registro non è completo."));
    const auto& panel = Control<OutcomePanel>("PannelloComunicazione");
    EXPECT_EQ(panel.Remark(), QStringLiteral("Il registro non è completo."));
    EXPECT_EQ(panel.text(), QString());
    window.AzzeraLabel();
    EXPECT_EQ(panel.Remark(), QStringLiteral("Il registro non è completo."));
}

TEST_F(ContenitorePanels, TheLineIsOpenWhileTheGreenLightIsOn)
{
    EXPECT_FALSE(window.LineIsOpen());
    Control("Verde").show();
    EXPECT_TRUE(window.LineIsOpen());
    Control("Verde").hide();
    EXPECT_FALSE(window.LineIsOpen());
}

}  // namespace orlo::contenitore_test
