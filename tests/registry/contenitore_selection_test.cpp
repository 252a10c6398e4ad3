#include "tests/registry/contenitore_fixture.h"

namespace orlo::contenitore_test
{

using ContenitoreSelection = ContenitoreTest;

TEST_F(ContenitoreSelection, ShowsEveryFieldOfTheSlot)
{
    TerminalRecord slot = Terminal(7, TerminalType::Orlo, "Ingresso");
    slot.Funzionamento = 3;
    slot.Modalita = 2;
    slot.Porta = 4;
    slot.Velocita = 38400;
    slot.Ritardo = 0.9F;
    slot.Priorita = 11;
    slot.PrioritaSecondaria = 12;
    slot.Tentativi = 13;
    slot.AbilitazioneModem = kTrue;
    slot.Modem = QStringLiteral("0451234567").leftJustified(kPhoneWidth);
    slot.Impianto = 321;
    slot.NomeCard = QStringLiteral("Tessera aziendale").leftJustified(kCardNameWidth);
    slot.LenCard = 16;
    slot.Bidirezionale = kTrue;
    slot.InizioImpianto = 1;
    slot.LenImpianto = 2;
    slot.InizioAzienda = 3;
    slot.LenAzienda = 4;
    slot.InizioBadge = 5;
    slot.LenBadge = 6;
    Register(slot);
    Select(0);

    const std::pair<const char*, const char*> texts[] = {
        {"LabelTerminale", "Terminale n°7"},
        {"CampoDescrizione", "Ingresso"},
        {"ComboTipoTerminale", "Orlo"},
        {"ComboPorta", "Com 4"},
        {"ComboVelocita", "38400"},
        {"ComboRitardo", ",9"},
        {"Priorita", "11"},
        {"Priorita2", "12"},
        {"Tentativi", "13"},
        {"NumeroTelefono", "0451234567"},
        {"CodiceImpianto", "321"},
        {"NomeCard", "Tessera aziendale"},
        {"LenCard", "16"},
        {"InizioImpianto", "1"},
        {"LenImpianto", "2"},
        {"InizioAzienda", "3"},
        {"LenAzienda", "4"},
        {"InizioBadge", "5"},
        {"LenBadge", "6"},
        {"LabelModifiche", ""},
    };
    for (const auto& [name, text] : texts) EXPECT_EQ(TextOf(name), QString::fromUtf8(text)) << name;
    for (const char* name :
         {"Abilitazione", "CheckModem", "BidirectionalCheck", "Modalita_1", "Funzionamento_2"})
        EXPECT_TRUE(Ticked(name)) << name;
    for (const char* name : {"Modalita_0", "Modalita_2", "Funzionamento_0", "Funzionamento_1"})
        EXPECT_FALSE(Ticked(name)) << name;
}

TEST_F(ContenitoreSelection, WritesTrimmedTextsBackIntoTheSlot)
{
    RegisterStrale(1, "Porta");
    ASSERT_EQ(Slot(1).Descrizione, QStringLiteral("Porta   "));
    Select(0);
    EXPECT_EQ(Slot(1).Descrizione, QStringLiteral("Porta"));
    EXPECT_EQ(Slot(1).Modem, QString());
    EXPECT_EQ(Slot(1).NomeCard, QStringLiteral("1275"));
    EXPECT_EQ(TextOf("CampoDescrizione"), QStringLiteral("Porta"));
}

TEST_F(ContenitoreSelection, ShowsTheDelayAsOneOfTheChoices)
{
    const std::pair<float, const char*> delays[] = {
        {0.0F, "0"},  {0.1F, ",1"}, {0.5F, ",5"}, {0.9F, ",9"},
        {0.3F, ",3"}, {1.5F, ",9"}, {-0.2F, "0"}, {0.04F, "0"},
    };
    RegisterOrlo(1);
    for (const auto& [delay, text] : delays) {
        Slot(1).Ritardo = delay;
        Select(0);
        EXPECT_EQ(TextOf("ComboRitardo"), QString::fromUtf8(text)) << delay;
    }
}

TEST_F(ContenitoreSelection, LaysOutByTheRegisteredType)
{
    const char* const of_object[] = {
        "LabelPriorita1",     "LabelPriorita2", "LabelRitardo",       "Priorita",
        "Priorita2",          "ComboRitardo",   "ScrollPriorita",     "ScrollPriorita2",
        "FrameFunzionamento", "LabelLenCard",   "LabelAzienda",       "LenCard",
        "InizioAzienda",      "LenAzienda",     "BidirectionalCheck",
    };
    for (const TerminalModel& model : TerminalModels())
        Register(Terminal(static_cast<int>(model.type), model.type, "Porta"));
    // Object-driven ones last and first: what was hidden must come back.
    for (const int position : {0, 4, 1, 2, 3, 5, 6, 7, 0}) {
        Select(position);
        const bool object = position < 2;
        for (const char* name : of_object)
            EXPECT_EQ(Shown(name), object) << name << ' ' << position;
        EXPECT_EQ(TextOf("LabelTimbrature"), object ? QStringLiteral("Timbrature Flaggate:")
                                                    : QStringLiteral("Timbrature In Memoria:"));
        EXPECT_EQ(TextOf("LabelNomeCard"),
                  object ? QStringLiteral("Nome:") : QStringLiteral("Cod.Impianto:"));
        EXPECT_EQ(Control<QLineEdit>("NomeCard").maxLength(), object ? 20 : 12);
        EXPECT_EQ(Enabled("PannelloFree"), object);
        EXPECT_EQ(Enabled("LabelFree"), object);
        EXPECT_TRUE(Shown("LabelTimbrature"));
        EXPECT_TRUE(Shown("LabelImpianto"));
        EXPECT_TRUE(Shown("cmdMonitorTimbrature"));
    }
}

TEST_F(ContenitoreSelection, ANameLongerThanTheLimitIsShownCut)
{
    TerminalRecord slot = Terminal(1, TerminalType::Strale, "Porta");
    slot.NomeCard = QStringLiteral("Tessera aziendale   ");
    Register(slot);
    Select(0);
    EXPECT_EQ(TextOf("NomeCard"), QStringLiteral("Tessera azie"));
    EXPECT_TRUE(TextOf("LabelModifiche").isEmpty());
}

TEST_F(ContenitoreSelection, AnUnknownTypeKeepsTheLayoutAndShowsNoName)
{
    RegisterStrale(1);
    TerminalRecord slot = Terminal(2, TerminalType::Strale, "Porta");
    slot.Tipo = 9;
    Register(slot);
    Select(0);
    Select(1);
    EXPECT_EQ(TextOf("ComboTipoTerminale"), QString());
    EXPECT_EQ(window.ShownModel(), nullptr);
    EXPECT_FALSE(Shown("Priorita"));
    EXPECT_EQ(TextOf("LabelModifiche"), QString());
}

TEST_F(ContenitoreSelection, AnInactiveTerminalCannotBeCommandedOrSaved)
{
    TerminalRecord slot = Terminal(1, TerminalType::Strale, "Porta");
    slot.Attivo = kFalse;
    slot.Modalita = 2;
    slot.Funzionamento = 2;
    Register(slot);
    RegisterStrale(2);
    for (auto* button : {window.Controls().cmdLogIn, window.Controls().cmdLogOff})
        window.SetFeatureAvailable(button, true);
    Select(0);
    EXPECT_TRUE(Enabled("cmdLogOff")) << "the open line may be another terminal's";
    for (const char* name : {"cmdAggiorna", "PannelloFunzioni", "FrameAcquisizione", "cmdLogIn",
                             "FrameFormatoBadge", "CampoDescrizione", "ComboTipoTerminale"})
        EXPECT_FALSE(Enabled(name)) << name;
    EXPECT_FALSE(Ticked("Abilitazione"));
    EXPECT_EQ(TextOf("LabelAvviso"),
              QStringLiteral("Terminale non attivo: i comandi non sono disponibili."));
    // Showing it is not the click that clears the options.
    EXPECT_TRUE(Ticked("Modalita_1"));
    EXPECT_TRUE(Ticked("Funzionamento_1"));

    Select(1);
    for (const char* name : {"cmdAggiorna", "PannelloFunzioni", "FrameAcquisizione", "cmdLogIn",
                             "FrameFormatoBadge", "CampoDescrizione", "ComboTipoTerminale"})
        EXPECT_TRUE(Enabled(name)) << name;
    EXPECT_EQ(TextOf("LabelAvviso"), QString());
}

TEST_F(ContenitoreSelection, TelephoneFieldsFollowTheModem)
{
    TerminalRecord slot = Terminal(1, TerminalType::Strale, "Porta");
    slot.AbilitazioneModem = kTrue;
    Register(slot);
    RegisterStrale(2);
    Select(0);
    EXPECT_TRUE(Enabled("NumeroTelefono"));
    EXPECT_TRUE(Enabled("CodiceImpianto"));
    Select(1);
    EXPECT_FALSE(Enabled("NumeroTelefono"));
    EXPECT_FALSE(Enabled("CodiceImpianto"));
}

TEST_F(ContenitoreSelection, NumbersBeyondTheBarsAreShownAsStored)
{
    RegisterOrlo(1);
    Slot(1).Priorita = 32767;
    Slot(1).Tentativi = -5;
    Select(0);
    EXPECT_EQ(TextOf("Priorita"), QStringLiteral("32767"));
    EXPECT_EQ(TextOf("Tentativi"), QStringLiteral("-5"));
}

TEST_F(ContenitoreSelection, EmptiesThePanelsOfAnotherTerminalButKeepsTheOutcome)
{
    RegisterStrale(1);
    RegisterStrale(2);
    Select(0);
    Control<NumberPanel>("PannelloTimbrature").setText(QStringLiteral("42"));
    Control<OutcomePanel>("PannelloComunicazione").setText(QStringLiteral("Comunicazione OK"));
    Select(0);
    EXPECT_EQ(TextOf("PannelloTimbrature"), QStringLiteral("42"));
    Select(1);
    EXPECT_EQ(TextOf("PannelloTimbrature"), QString());
    EXPECT_EQ(TextOf("PannelloComunicazione"), QStringLiteral("Comunicazione OK"));
}

TEST_F(ContenitoreSelection, AnEmptyRegisterDisablesTheTerminalSide)
{
    EXPECT_FALSE(Enabled("PaginaTerminale"));
    EXPECT_FALSE(Enabled("cmdLogIn"));
    EXPECT_TRUE(Enabled("cmdUscita"));
    EXPECT_EQ(TextOf("LabelTerminale"), QStringLiteral("Terminale n°"));
    EXPECT_EQ(List().currentRow(), -1);
}

}  // namespace orlo::contenitore_test
