#include "registry/widgets/register_columns.h"
#include "tests/registry/contenitore_fixture.h"

#include <QSignalSpy>

namespace orlo::contenitore_test
{

class ContenitoreSaving : public ContenitoreTest
{
protected:
    void Five()
    {
        for (int n = 1; n <= 5; ++n) RegisterStrale(n);
        Open();
    }
    QString Numbers()
    {
        QString numbers;
        for (const QString& line : Lines()) numbers += line.left(2) + u' ';
        return numbers.trimmed();
    }
};

TEST_F(ContenitoreSaving, MovesTheLineToTheEndAndShowsTheNextTerminal)
{
    Five();
    Select(2);
    Write("Tentativi", "9");
    const QSignalSpy chosen(&List(), &RegisterList::LineChosen);
    Press("cmdAggiorna");
    EXPECT_EQ(Numbers(), QStringLiteral("01 02 04 05 03"));
    EXPECT_EQ(List().currentRow(), 2);
    EXPECT_EQ(TextOf("LabelTerminale"), QStringLiteral("Terminale n°4"));
    EXPECT_EQ(TextOf("Tentativi"), QStringLiteral("3"));
    EXPECT_EQ(Slot(3).Tentativi, 9);
    EXPECT_EQ(chosen.count(), 1);
    EXPECT_EQ(TextOf("LabelModifiche"), QString());
}

TEST_F(ContenitoreSaving, ByItsKeyLeavesTheTypeFieldFirst)
{
    RegisterOrlo(1);
    Open();
    Select(0);
    Control("ComboTipoTerminale").setFocus();
    PickType("Orlo II");
    Key("ComboTipoTerminale", Qt::Key_S, Qt::AltModifier);
    // A button pressed by its key is shown pressed for a moment first.
    ASSERT_TRUE(QTest::qWaitFor([this] { return Slot(1).Tipo == 3; }));
    EXPECT_EQ(Slot(1).Priorita, 0) << "a serial terminal has no priority";
    EXPECT_EQ(Slot(1).Ritardo, 0.0F);
}

TEST_F(ContenitoreSaving, TheLastLineStaysAndIsShownAgain)
{
    Five();
    Select(4);
    const QSignalSpy chosen(&List(), &RegisterList::LineChosen);
    Press("cmdAggiorna");
    EXPECT_EQ(Numbers(), QStringLiteral("01 02 03 04 05"));
    EXPECT_EQ(TextOf("LabelTerminale"), QStringLiteral("Terminale n°5"));
    EXPECT_EQ(chosen.count(), 1);
}

TEST_F(ContenitoreSaving, TheOnlyLineStaysAndIsShownAgain)
{
    RegisterStrale(9);
    Open();
    Select(0);
    const QSignalSpy chosen(&List(), &RegisterList::LineChosen);
    Press("cmdAggiorna");
    EXPECT_EQ(Numbers(), QStringLiteral("09"));
    EXPECT_EQ(List().currentRow(), 0);
    EXPECT_EQ(chosen.count(), 1);
}

TEST_F(ContenitoreSaving, CopiesEveryControlIntoTheSlot)
{
    RegisterOrlo(1);
    RegisterStrale(2);
    Open();
    Select(0);
    Press("CheckModem");
    const std::pair<const char*, const char*> texts[] = {
        {"CampoDescrizione", "Nuovo"},
        {"NumeroTelefono", "045"},
        {"NomeCard", "Tessera"},
        {"Priorita", "1"},
        {"Priorita2", "2"},
        {"Tentativi", "3"},
        {"CodiceImpianto", "4"},
        {"LenCard", "5"},
        {"InizioImpianto", "6"},
        {"LenImpianto", "7"},
        {"InizioAzienda", "8"},
        {"LenAzienda", "9"},
        {"InizioBadge", "10"},
        {"LenBadge", "11"},
    };
    for (const auto& [name, text] : texts) Write(name, text);
    Control<ChoiceBox>("ComboTipoTerminale").Show(QStringLiteral("Sipa"));
    Control<ChoiceBox>("ComboPorta").Show(QStringLiteral("Com 3"));
    Control<ChoiceBox>("ComboVelocita").Show(QStringLiteral("14400"));
    Control<ChoiceBox>("ComboRitardo").Show(QStringLiteral(",9"));
    Press("BidirectionalCheck");
    Press("Modalita_2");
    Press("Funzionamento_1");
    Press("cmdAggiorna");

    TerminalRecord expected;
    expected.Terminale = 1;
    expected.Tipo = 2;
    expected.Funzionamento = 2;
    expected.Descrizione = QStringLiteral("Nuovo   ");
    expected.Attivo = kTrue;
    expected.Modalita = 3;
    expected.Porta = 3;
    expected.Priorita = 1;
    expected.PrioritaSecondaria = 2;
    expected.Velocita = 14400;
    expected.Modem = QStringLiteral("045                 ");
    expected.AbilitazioneModem = kTrue;
    expected.Impianto = 4;
    expected.Tentativi = 3;
    expected.NomeCard = QStringLiteral("Tessera             ");
    expected.LenCard = 5;
    expected.Bidirezionale = kTrue;
    expected.InizioImpianto = 6;
    expected.LenImpianto = 7;
    expected.InizioAzienda = 8;
    expected.LenAzienda = 9;
    expected.InizioBadge = 10;
    expected.LenBadge = 11;
    expected.Ritardo = 0.9F;
    EXPECT_TRUE(Slot(1) == expected);
}

TEST_F(ContenitoreSaving, OfTheDelayOnlyTheLastCharacterIsKept)
{
    RegisterOrlo(1);
    Open();
    const std::pair<const char*, float> delays[] = {
        {",5", 0.5F}, {"0,5", 0.5F}, {"0", 0.0F}, {",9", 0.9F}, {"", 0.0F}};
    for (const auto& [text, delay] : delays) {
        Select(0);
        Control<ChoiceBox>("ComboRitardo").Show(QString::fromUtf8(text));
        Press("cmdAggiorna");
        EXPECT_FLOAT_EQ(Slot(1).Ritardo, delay) << text;
    }
}

TEST_F(ContenitoreSaving, AnInactiveTerminalHasNeitherModeNorFunction)
{
    RegisterStrale(1);
    Open();
    Select(0);
    Press("Abilitazione");
    Press("cmdAggiorna");
    EXPECT_EQ(Slot(1).Attivo, kFalse);
    EXPECT_EQ(Slot(1).Modalita, 0);
    EXPECT_EQ(Slot(1).Funzionamento, 0);
    EXPECT_EQ(Lines().at(0), QStringLiteral("01 - Strale - Porta\t\t\t               \tNo"));
    EXPECT_FALSE(Enabled("cmdAggiorna"));
}

TEST_F(ContenitoreSaving, ATypeThatHasNoNameIsKept)
{
    TerminalRecord slot = Terminal(1, TerminalType::Strale, "Porta");
    slot.Tipo = 9;
    Register(slot);
    Open();
    Select(0);
    Press("cmdAggiorna");
    EXPECT_EQ(Slot(1).Tipo, 9);
}

TEST_F(ContenitoreSaving, HiddenValuesAreKept)
{
    TerminalRecord slot = Terminal(1, TerminalType::Strale, "Porta");
    slot.Priorita = 7;
    slot.Ritardo = 0.5F;
    slot.LenCard = 16;
    slot.Bidirezionale = kTrue;
    Register(slot);
    Open();
    Select(0);
    Press("cmdAggiorna");
    EXPECT_EQ(Slot(1).Priorita, 7);
    EXPECT_FLOAT_EQ(Slot(1).Ritardo, 0.5F);
    EXPECT_EQ(Slot(1).LenCard, 16);
    EXPECT_EQ(Slot(1).Bidirezionale, kTrue);
}

TEST_F(ContenitoreSaving, TextThatIsNoNumberIsNought)
{
    RegisterStrale(1);
    Open();
    Select(0);
    Write("Tentativi", "tre");
    Write("LenBadge", "12abc");
    Write("InizioBadge", "");
    Press("cmdAggiorna");
    EXPECT_EQ(Slot(1).Tentativi, 0);
    EXPECT_EQ(Slot(1).LenBadge, 12);
    EXPECT_EQ(Slot(1).InizioBadge, 0);
}

TEST_F(ContenitoreSaving, ANumberItsColumnCannotHoldIsToldAndNothingChanges)
{
    Five();
    const std::pair<const char*, const char*> fields[] = {
        {"Tentativi", "Numero di tentativi"},          {"Priorita", "Priorità"},
        {"Priorita2", "Priorità secondaria"},          {"LenCard", "Lunghezza del badge"},
        {"CodiceImpianto", "Codice dell'impianto"},    {"InizioBadge", "Inizio del numero badge"},
        {"LenAzienda", "Lunghezza del codice azienda"}};
    for (const auto& [name, spoken] : fields) {
        Select(2);
        const TerminalRecord before = Slot(3);
        Write("NomeCard", "999");
        Write(name, "32768");
        Press("cmdAggiorna");
        EXPECT_TRUE(Slot(3) == before) << name;
        EXPECT_EQ(Numbers(), QStringLiteral("01 02 03 04 05"));
        EXPECT_EQ(TextOf(name), QStringLiteral("32768"));
        const auto& field = Control<QLineEdit>(name);
        if (field.isEnabled() && field.isVisible()) {
            EXPECT_TRUE(field.hasFocus()) << name;
            EXPECT_EQ(field.selectedText(), QStringLiteral("32768"));
        }
        EXPECT_TRUE(TextOf("LabelUltimoComando")
                        .endsWith(QStringLiteral("Salvataggio, terminale 3: non salvato")));
        ASSERT_FALSE(dialog.told.empty());
        EXPECT_EQ(dialog.told.back(),
                  QStringLiteral("Attenzione|Il numero scritto nel campo «%1» è troppo grande.")
                      .arg(QString::fromUtf8(spoken)));
    }
    EXPECT_EQ(dialog.told.size(), std::size(fields));
}

TEST_F(ContenitoreSaving, ASpeedBeyondItsColumnIsTold)
{
    RegisterStrale(1);
    Open();
    Select(0);
    Control<ChoiceBox>("ComboVelocita").Show(QStringLiteral("2147483648"));
    Press("cmdAggiorna");
    EXPECT_EQ(Slot(1).Velocita, 9600);
    ASSERT_EQ(dialog.told.size(), 1U);
    EXPECT_EQ(
        dialog.told.front(),
        QStringLiteral("Attenzione|Il numero scritto nel campo «Velocità in bit al secondo» è "
                       "troppo grande."));
    EXPECT_TRUE(Control("ComboVelocita").hasFocus());
}

TEST_F(ContenitoreSaving, WritesTheColumnsIntoTheTerminalsRow)
{
    RegisterStrale(1);
    RegisterStrale(2);
    Open();
    auto rows = std::make_unique<RowsByNumber>(
        std::map<int, jet::Value>{{1, jet::Text(u"Altra")}, {2, jet::Text(u"Porta di servizio")}});
    const RowsByNumber& cursor = *rows;
    state.TerminalsRecordset = std::move(rows);
    Select(1);
    Write("CodiceImpianto", "12");
    Press("cmdAggiorna");

    EXPECT_EQ(cursor.index, u"TERMINALE");
    EXPECT_EQ(cursor.updates, 1);
    using Text = jet::Text;
    const std::vector<std::pair<std::u16string, jet::Value>> expected = {
        {u"TIPO", 4},
        {u"Funzionamento", 1},
        {u"Descrizione", Text(u"Porta   ")},
        {u"Attivo", true},
        {u"Modalita", 1},
        {u"Porta", 2},
        {u"Priorita", 0},
        {u"Priorita_Secondaria", 0},
        {u"Velocita", 9600},
        {u"Modem", Text(20, u' ')},
        {u"Abilitazione_Modem", false},
        {u"Impianto", 12},
        {u"Tentativi", 3},
        {u"Ritardo", 0.0F},
        {u"NomeCard", Text(u"1275                ")},
        {u"LenCard", 0},
        {u"Bidirezionale", false},
        {u"InizioImpianto", 1},
        {u"InizioAzienda", 0},
        {u"InizioBadge", 6},
        {u"LenImpianto", 5},
        {u"LenAzienda", 0},
        {u"LenBadge", 6},
    };
    EXPECT_EQ(cursor.edited, expected);
    EXPECT_TRUE(TextOf("LabelUltimoComando")
                    .endsWith(QStringLiteral("Salvataggio, terminale 2: salvato nel registro")))
        << "the terminal that was saved, not the one shown now";
    EXPECT_EQ(Lines().last(),
              QStringLiteral("02 - Strale - Porta   \t - Abilitazione\tSì\tPresenze"))
        << "the description is the one in the table";
}

TEST_F(ContenitoreSaving, AValueThatItsColumnCannotHoldChangesNothing)
{
    Five();
    auto rows = std::make_unique<RowsByNumber>(std::map<int, jet::Value>{{3, jet::Text(u"P")}});
    rows->refuses = u"Impianto";
    const RowsByNumber& cursor = *rows;
    state.TerminalsRecordset = std::move(rows);
    Select(2);
    Write("Tentativi", "9");
    Press("cmdAggiorna");
    EXPECT_EQ(cursor.updates, 0);
    EXPECT_EQ(Slot(3).Tentativi, 3);
    EXPECT_EQ(Numbers(), QStringLiteral("01 02 03 04 05"));
    EXPECT_EQ(TextOf("Tentativi"), QStringLiteral("9")) << "what was entered is still there";
    ASSERT_EQ(dialog.told.size(), 1U);
    EXPECT_EQ(dialog.told.front(), QStringLiteral("| 3349 valore troppo grande"));
    EXPECT_TRUE(TextOf("LabelUltimoComando").endsWith(QStringLiteral("3: non salvato")));
}

TEST_F(ContenitoreSaving, WithoutARowTheSlotsDescriptionIsShown)
{
    RegisterStrale(1);
    Open();
    state.TerminalsRecordset =
        std::make_unique<RowsByNumber>(std::map<int, jet::Value>{{2, jet::Text(u"Altra")}});
    Select(0);
    Write("CampoDescrizione", "Nuova");
    Press("cmdAggiorna");
    EXPECT_EQ(SplitRegisterLine(Lines().at(0)).description, QStringLiteral("Nuova"));
    EXPECT_TRUE(dialog.told.empty());
}

TEST_F(ContenitoreSaving, AnErrorOfTheDatabaseIsToldAndTheListStays)
{
    Five();
    auto rows = std::make_unique<RowsByNumber>(std::map<int, jet::Value>{{3, jet::Text(u"P")}});
    rows->failure = jet::kDiskError;
    state.TerminalsRecordset = std::move(rows);
    Select(2);
    Press("cmdAggiorna");
    EXPECT_EQ(Numbers(), QStringLiteral("01 02 03 04 05"));
    ASSERT_EQ(dialog.told.size(), 1U);
    EXPECT_EQ(dialog.told.front(), QStringLiteral("| 3043 disco guasto"));
}

TEST_F(ContenitoreSaving, ARowThatCannotBeReadAgainIsShownAsEntered)
{
    Five();
    auto rows = std::make_unique<RowsByNumber>(std::map<int, jet::Value>{{3, jet::Text(u"P")}});
    rows->unreadable = true;
    state.TerminalsRecordset = std::move(rows);
    Select(2);
    Write("CampoDescrizione", "Nuova");
    Press("cmdAggiorna");
    EXPECT_EQ(Numbers(), QStringLiteral("01 02 04 05 03"));
    EXPECT_EQ(SplitRegisterLine(Lines().last()).description, QStringLiteral("Nuova"));
    EXPECT_EQ(Slot(3).Descrizione, QStringLiteral("Nuova   "));
    ASSERT_EQ(dialog.told.size(), 1U);
    EXPECT_EQ(dialog.told.front(), QStringLiteral("| 3043 disco guasto"));
}

}  // namespace orlo::contenitore_test
