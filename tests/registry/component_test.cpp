#include "registry/component_call.h"
#include "registry/contenitore.h"
#include "registry/contenitore_controls.h"
#include "registry/list_line.h"
#include "tests/support/fake_component.h"
#include "tests/support/test_workstation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace orlo
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The window with terminal 7 selected, and a component that a test may put there.
class ComponentTest : public ::testing::Test
{
protected:
    testing::TestWorkstation pc;
    testing::FakeComponent component;
    ProgramState state;
    Contenitore window{state, pc.workstation};

    void Select(TerminalType type, bool by_modem = false)
    {
        window.CaricaComboTipoTerminale();
        window.CaricaComboPorta();
        window.CaricaComboVelocita();
        TerminalRecord& slot = state.TerminalTable[6];
        slot.Terminale = 7;
        slot.Tipo = static_cast<std::int16_t>(type);
        slot.Attivo = kTrue;
        slot.Porta = 2;
        slot.Velocita = 38400;
        slot.Tentativi = 3;
        slot.Priorita = 6;
        slot.Modem = QStringLiteral("0123");
        slot.Impianto = 15;
        slot.AbilitazioneModem = by_modem ? kTrue : kFalse;
        window.AddTerminalLine(ListLine(7, slot, slot.Descrizione));
        window.SelectTerminalLine(window.Controls().ListaTerminali->count() - 1);
    }
    void Throw(const char* member, const char* text)
    {
        component.on_call = [member, text](const std::string& call) {
            if (call.starts_with(member)) throw std::runtime_error(text);
        };
    }
    QString Outcome() const { return window.Controls().PannelloComunicazione->text(); }
};

class PreparingTwice : public ComponentTest, public ::testing::WithParamInterface<TerminalType>
{
};

TEST_P(PreparingTwice, EndsOnceAndOpensTwice)
{
    state.Component = component.Make();
    Select(GetParam());
    EXPECT_TRUE(window.PrepareCurrentTerminal());
    EXPECT_TRUE(window.PrepareCurrentTerminal());
    EXPECT_THAT(component.calls, ElementsAre("OpenComunication(2, 38400)", "endcomunication()",
                                             "OpenComunication(2, 38400)"));
}

INSTANTIATE_TEST_SUITE_P(ObjectModels, PreparingTwice,
                         ::testing::Values(TerminalType::Orlo, TerminalType::Sipa));

TEST_F(ComponentTest, PreparingOpensTheLinkAndKeepsTheBlock)
{
    state.Component = component.Make();
    Select(TerminalType::Orlo);
    EXPECT_TRUE(window.PrepareCurrentTerminal());
    EXPECT_TRUE(state.TelegramLinkOpen);
    EXPECT_EQ(state.CurrentPort, 2) << "what the component does to its arguments stays there";
    EXPECT_EQ(state.CurrentSpeed, 38400);
}

TEST_F(ComponentTest, EmptyPortFieldIsPortZeroAndTheComponentsConcern)
{
    state.Component = component.Make();
    Select(TerminalType::Orlo);
    window.Controls().ComboPorta->setCurrentIndex(-1);
    EXPECT_EQ(window.Controls().ComboPorta->currentText(), QString());
    EXPECT_TRUE(window.PrepareCurrentTerminal());
    EXPECT_EQ(state.CurrentPort, 0);
    EXPECT_THAT(component.calls, ElementsAre("OpenComunication(0, 38400)"));
}

TEST_F(ComponentTest, SerialModelsLeaveTheComponentAlone)
{
    state.Component = component.Make();
    state.TelegramLinkOpen = true;
    Select(TerminalType::OrloII, /*by_modem=*/true);
    EXPECT_TRUE(window.PrepareCurrentTerminal());
    EXPECT_THAT(component.calls, IsEmpty());
    EXPECT_TRUE(state.TelegramLinkOpen);
}

TEST_F(ComponentTest, TerminalBehindAModemIsDialledWhenTheLineIsOpen)
{
    state.Component = component.Make();
    component.received_texts = {"CONNECT"};
    Select(TerminalType::Sipa, /*by_modem=*/true);
    EXPECT_TRUE(window.PrepareCurrentTerminal());
    EXPECT_THAT(component.calls,
                ElementsAre("OpenComunication(2, 38400)", "SendString(\"ATD0123\r\")",
                            "ReceiveString(1000, true)", "SendTelegram(7, 6, \"@@,15\", \"\")"));
}

TEST_F(ComponentTest, TheStripSaysThatEscapeEndsTheDial)
{
    state.Component = component.Make();
    component.received_texts = {"CONNECT"};
    Select(TerminalType::Orlo, /*by_modem=*/true);
    const QLabel* const hint = window.Controls().LabelEsc;
    std::vector<std::string> hinted;
    component.on_call = [&](const std::string& call) {
        if (!hint->isHidden()) hinted.push_back(call.substr(0, call.find('(')));
        if (call.starts_with("SendTelegram")) throw std::runtime_error("guasto");
    };
    EXPECT_FALSE(window.PrepareCurrentTerminal());
    EXPECT_THAT(hinted, ElementsAre("SendString", "ReceiveString", "SendTelegram"));
    EXPECT_TRUE(hint->isHidden());
}

TEST_F(ComponentTest, ACallThatTheOperatorEndsIsHungUpAndNothingIsToBeAsked)
{
    state.Component = component.Make();
    pc.dialog.answer_yes = true;
    component.on_call = [this](const std::string& call) {
        if (!call.starts_with("ReceiveString")) return;
        pc.clock.Advance(std::chrono::seconds{1});
        pc.escape.pressed = true;
    };
    for (const TerminalType type : {TerminalType::Orlo, TerminalType::Sipa}) {
        component.calls.clear();
        state.TelegramLinkOpen = false;
        Select(type, /*by_modem=*/true);
        EXPECT_FALSE(window.PrepareCurrentTerminal());
        EXPECT_EQ(Outcome(), QStringLiteral("Chiamata interrotta."));
        EXPECT_THAT(component.calls,
                    ElementsAre("OpenComunication(2, 38400)", "SendString(\"ATD0123\r\")",
                                "ReceiveString(1000, true)", "DTR(false)", "DTR(true)"));
    }
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(ComponentTest, MissingComponentIsSaidAndNothingIsCalled)
{
    Select(TerminalType::Orlo, /*by_modem=*/true);
    EXPECT_FALSE(window.PrepareCurrentTerminal());
    EXPECT_EQ(Outcome(), QStringLiteral("Errore: il componente per Orlo non è disponibile."));
    EXPECT_FALSE(state.TelegramLinkOpen);
    EXPECT_TRUE(window.PulseModemLine());
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(ComponentTest, NothingIsCalledWhileAnotherTerminalsLineIsOpen)
{
    Select(TerminalType::Orlo, /*by_modem=*/true);
    state.Component = component.Make();
    window.Controls().Verde->show();
    for (const auto& [held, caption] :
         {std::pair(1, "Errore: è collegata la linea della COM 1, non quella di questo terminale."),
          std::pair(2, "Errore: la COM 2 è collegata. Premere Log-off.")}) {
        state.SessionPort = static_cast<std::int16_t>(held);
        EXPECT_FALSE(window.PrepareCurrentTerminal());
        EXPECT_EQ(window.Controls().PannelloComunicazione->text(), QString::fromUtf8(caption));
        EXPECT_THAT(component.calls, IsEmpty());
    }
}

TEST_F(ComponentTest, OpeningThatThrowsIsACaptionAndTheLinkCountsAsClosed)
{
    state.Component = component.Make();
    Throw("OpenComunication", "porta guasta");
    Select(TerminalType::Orlo);
    EXPECT_FALSE(window.PrepareCurrentTerminal());
    EXPECT_EQ(Outcome(), QStringLiteral("Errore del componente: porta guasta"));
    EXPECT_FALSE(state.TelegramLinkOpen);
}

TEST_F(ComponentTest, ClosingThatThrowsIsNotTriedForEver)
{
    state.Component = component.Make();
    Select(TerminalType::Orlo);
    ASSERT_TRUE(window.PrepareCurrentTerminal());
    Throw("endcomunication", "chiusura");
    EXPECT_FALSE(window.PrepareCurrentTerminal());
    EXPECT_TRUE(window.PrepareCurrentTerminal());
    EXPECT_THAT(component.CallsOf("endcomunication"), ElementsAre("endcomunication()"));
}

TEST_F(ComponentTest, PulseActsOnlyBehindAModem)
{
    state.Component = component.Make();
    state.TelegramLinkOpen = true;
    EXPECT_TRUE(window.PulseModemLine());
    EXPECT_THAT(component.calls, IsEmpty());
    state.CurrentModem = true;
    EXPECT_TRUE(window.PulseModemLine());
    EXPECT_THAT(component.calls, ElementsAre("DTR(false)", "DTR(true)"));
}

TEST_F(ComponentTest, LineThatWasNotOpenedIsNotPulsed)
{
    state.Component = component.Make();
    state.CurrentModem = true;
    EXPECT_TRUE(window.PulseModemLine());
    EXPECT_THAT(component.calls, IsEmpty());
}

TEST_F(ComponentTest, PulseThatThrowsIsACaption)
{
    state.Component = component.Make();
    state.TelegramLinkOpen = true;
    state.CurrentModem = true;
    component.on_call = [](const std::string&) { throw 7; };
    EXPECT_FALSE(window.PulseModemLine());
    EXPECT_EQ(Outcome(), QStringLiteral("Errore del componente: errore sconosciuto"));
}

TEST(ComponentText, IsFitForAPanel)
{
    const struct {
        const char* name;
        std::string bytes;
        QString shown;
    } cases[] = {
        {"plain", "99,Time Out", QStringLiteral("99,Time Out")},
        {"empty", "", QString()},
        {"Windows-1252", "gi\xE0 \x80", QStringLiteral("già €")},
        {"control characters",
         std::string("a\0b\r\nc\x7F"
                     "d\x81",
                     9),
         QStringLiteral("a b  c d ")},
        {"very long", std::string(1'000'000, 'x'), QString(200, u'x')},
    };
    for (const auto& test : cases) EXPECT_EQ(ComponentText(test.bytes), test.shown) << test.name;
}

}  // namespace
}  // namespace orlo
