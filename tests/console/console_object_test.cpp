#include "tests/console/console_fixture.h"
#include "tests/support/fake_component.h"

#include <QApplication>
#include <QClipboard>

namespace orlo::testing
{
namespace
{

/// Terminal 4 behind a component in memory, of priority 7.
class ObjectConsole : public ConsoleTest
{
protected:
    FakeComponent component;

    void Connect(const char* model = "Orlo", bool by_modem = false)
    {
        state.Component = component.Make();
        state.TerminalTable[kTerminal - 1].AbilitazioneModem = by_modem ? kTrue : kFalse;
        RegisterObject(model);
        form.open();
    }
    void TearDown() override { state.Component.reset(); }

    using Calls = std::vector<std::string>;
};

TEST_F(ObjectConsole, CommandAndParametersGoThroughTheComponent)
{
    Connect();
    component.received_data = "V1.2";
    Data().setText(QStringLiteral("01,0"));
    Send("GETREL");
    EXPECT_EQ(component.calls,
              (Calls{"OpenComunication(1, 9600)", "SendTelegram(4, 7, \"GETREL\", \"01,0\")"}));
    EXPECT_EQ(Answer(), QStringLiteral("V1.2"));
    EXPECT_EQ(Label("ReceveidCommand"), QString());
    EXPECT_EQ(Status(), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
}

TEST_F(ObjectConsole, SipaIsSentToLikeAnOrlo)
{
    Connect("Sipa");
    Send("GETREL");
    EXPECT_EQ(component.calls.back(), "SendTelegram(4, 7, \"GETREL\", \"\")");
    EXPECT_EQ(Status(), QStringLiteral("Comunicazione OK"));
}

TEST_F(ObjectConsole, RefusalShowsItsCodeAndTheData)
{
    Connect();
    component.acknowledged_try = 0;
    component.received_command = "99,Time Out";
    component.received_data = "resto";
    Send("GETREL");
    EXPECT_EQ(Label("ReceveidCommand"), QStringLiteral("99,Time Out"));
    EXPECT_EQ(Find<QLabel>("ReceveidCommand").accessibleDescription(),
              QStringLiteral("99,Time Out"));
    EXPECT_EQ(Answer(), QStringLiteral("resto"));
    EXPECT_EQ(Status(), QString());
    EXPECT_EQ(Outcome(), QString());
    EXPECT_TRUE(
        Controls().LabelUltimoComando->text().endsWith(QStringLiteral("terminale 4: 99,Time Out")));
    EXPECT_EQ(component.CallsOf("SendTelegram").size(), 1U);
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(ObjectConsole, RefusalWithoutACodeIsSaidToBe)
{
    Connect();
    component.acknowledged_try = 0;
    component.received_data = "resto";
    Send("GETREL");
    EXPECT_EQ(Status(), QStringLiteral("Errore: il componente non dà un codice."));
    EXPECT_EQ(Label("ReceveidCommand"), QString());
    EXPECT_EQ(Answer(), QStringLiteral("resto"));
}

TEST_F(ObjectConsole, CodeWithoutDataIsCopied)
{
    Connect();
    component.acknowledged_try = 0;
    component.received_command = "99,Time Out";
    Send("GETREL");
    ASSERT_EQ(Answer(), QString());
    EXPECT_TRUE(Button("cmdCopia").isEnabled());
    Button("cmdCopia").click();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("99,Time Out"));
    Command().clear();
    EXPECT_FALSE(Button("cmdCopia").isEnabled());
}

TEST_F(ObjectConsole, ControlCharacterInTheParametersIsNotSent)
{
    Connect();
    Data().setText(QStringLiteral("01\n"));
    Send("GETREL");
    EXPECT_TRUE(component.calls.empty());
    EXPECT_EQ(Status(),
              QStringLiteral("Errore: il carattere \"<LF>\" (U+000A) non può essere inviato."));
}

TEST_F(ObjectConsole, ParameterOutsideTheCodePageIsNotSent)
{
    Connect();
    Data().setText(QStringLiteral("1Ω2"));
    Send("GETREL");
    EXPECT_TRUE(component.CallsOf("SendTelegram").empty());
    EXPECT_EQ(Status(),
              QStringLiteral("Errore: il carattere \"Ω\" (U+03A9) non può essere inviato."));
}

TEST_F(ObjectConsole, ThrowingComponentIsTheStatusNotTheEnd)
{
    Connect();
    component.on_call = [](const std::string& call) {
        if (call.starts_with("SendTelegram")) throw std::runtime_error("guasto");
    };
    Send("GETREL");
    EXPECT_EQ(Status(), QStringLiteral("Errore del componente: guasto"));
    EXPECT_TRUE(Button("cmdTrasmetteComando").isEnabled());
}

TEST_F(ObjectConsole, MissingComponentIsTheStatus)
{
    Connect();
    state.Component.reset();
    Send("GETREL");
    EXPECT_EQ(Status(), QStringLiteral("Errore: il componente per Orlo non è disponibile."));
}

TEST_F(ObjectConsole, OnlyTheModemOfAnOrloHangsUpBehindTheCommand)
{
    const std::pair<const char*, Calls> cases[] = {{"Orlo", {"DTR(false)", "DTR(true)"}},
                                                   {"Sipa", {}}};
    for (const auto& [model, pulses] : cases) {
        component.calls.clear();
        component.received_texts = {"CONNECT"};
        Connect(model, /*by_modem=*/true);
        window.SelectTerminalLine(Controls().ListaTerminali->count() - 1);
        Send("GETREL");
        Calls made = component.CallsOf("DTR");
        EXPECT_EQ(made, pulses) << model;
        form.close();
    }
}

}  // namespace
}  // namespace orlo::testing
