#include "tests/registry/contenitore_fixture.h"

namespace orlo::contenitore_test
{

using ContenitoreEditing = ContenitoreTest;

TEST_F(ContenitoreEditing, ChoiceListsKeepTheirOrder)
{
    const auto items = [this](const char* name) {
        const auto& box = Control<QComboBox>(name);
        QStringList texts;
        for (int i = 0; i < box.count(); ++i) texts << box.itemText(i);
        return texts.join(u'|');
    };
    EXPECT_EQ(items("ComboRitardo"), QStringLiteral("0|,1|,2|,3|,4|,5|,6|,7|,8|,9"));
    EXPECT_EQ(items("ComboTipoTerminale"),
              QStringLiteral("Orlo II|OrloTre|SuperStrale|Strale N|Lumo|Orlo|Sipa|Strale"));
    EXPECT_EQ(items("ComboPorta"), QStringLiteral("Com 1|Com 2|Com 3|Com 4"));
    EXPECT_EQ(items("ComboVelocita"), QStringLiteral("1200|2400|4800|9600|14400|19200|38400"));
}

TEST_F(ContenitoreEditing, PickingATypeFillsOnlyWhatIsEmptyOrNought)
{
    struct Case {
        const char* type;
        const char* before;
        const char* after[5];  // speed, retries, priority, secondary priority, delay
    };
    const Case cases[] = {
        {"Orlo", "", {"38400", "3", "7", "6", ",5"}},
        {"Orlo", "0", {"38400", "3", "7", "6", ",5"}},
        {"Sipa", "", {"", "3", "", "", ""}},
        {"Sipa", "0", {"0", "3", "0", "0", "0"}},
        {"Orlo II", "", {"19200", "3", "", "", ""}},
        {"Strale", "", {"9600", "3", "", "", ""}},
        {"Strale N", "", {"9600", "3", "", "", ""}},
        {"Lumo", "", {"19200", "3", "", "", ""}},
        {"OrloTre", "", {"19200", "3", "", "", ""}},
        {"SuperStrale", "0", {"19200", "3", "0", "0", "0"}},
    };
    const char* const fields[] = {"ComboVelocita", "Tentativi", "Priorita", "Priorita2",
                                  "ComboRitardo"};
    RegisterOrlo(1);
    Select(0);
    for (const Case& c : cases) {
        const QString before = QString::fromUtf8(c.before);
        for (const char* name : {"Tentativi", "Priorita", "Priorita2"}) Write(name, c.before);
        Control<ChoiceBox>("ComboVelocita").Show(before);
        Control<ChoiceBox>("ComboRitardo").Show(before);
        PickType(c.type);
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(TextOf(fields[i]), QString::fromUtf8(c.after[i]))
                << c.type << ' ' << fields[i] << " from \"" << c.before << '"';
    }
}

TEST_F(ContenitoreEditing, PickingATypeLeavesOtherValuesAlone)
{
    RegisterOrlo(1);
    Select(0);
    Write("Tentativi", "9");
    Write("Priorita", "1");
    Write("Priorita2", "2");
    Control<ChoiceBox>("ComboVelocita").Show(QStringLiteral("1200"));
    Control<ChoiceBox>("ComboRitardo").Show(QStringLiteral(",1"));
    PickType("Orlo");
    EXPECT_EQ(TextOf("Tentativi"), QStringLiteral("9"));
    EXPECT_EQ(TextOf("Priorita"), QStringLiteral("1"));
    EXPECT_EQ(TextOf("Priorita2"), QStringLiteral("2"));
    EXPECT_EQ(TextOf("ComboVelocita"), QStringLiteral("1200"));
    EXPECT_EQ(TextOf("ComboRitardo"), QStringLiteral(",1"));
}

TEST_F(ContenitoreEditing, AKeyInTheTypeBoxPicksAndAnotherControlLeaves)
{
    RegisterOrlo(1);
    Open();
    Select(0);
    auto& type = Control<QComboBox>("ComboTipoTerminale");
    type.setFocus();
    Write("Tentativi", "0");
    Key("ComboTipoTerminale", Qt::Key_Home);
    EXPECT_EQ(TextOf("ComboTipoTerminale"), QStringLiteral("Orlo II"));
    EXPECT_EQ(TextOf("Tentativi"), QStringLiteral("3"));
    EXPECT_TRUE(Enabled("Priorita"));

    Control("CampoDescrizione").setFocus();
    for (const char* name : {"Priorita", "Priorita2", "ComboRitardo"})
        EXPECT_EQ(TextOf(name), QStringLiteral("0")) << name;
    for (const char* name :
         {"LabelPriorita1", "LabelPriorita2", "LabelRitardo", "Priorita", "Priorita2",
          "ComboRitardo", "ScrollPriorita", "ScrollPriorita2", "FrameFunzionamento"})
        EXPECT_FALSE(Enabled(name)) << name;
    EXPECT_EQ(Control<QScrollBar>("ScrollPriorita").value(), 0);
    EXPECT_EQ(Control<QScrollBar>("ScrollPriorita2").value(), 0);
    // The layout is the registered type's until the terminal is saved.
    EXPECT_TRUE(Shown("Priorita"));

    type.setFocus();
    type.setCurrentText(QStringLiteral("Sipa"));
    Control("CampoDescrizione").setFocus();
    for (const char* name :
         {"LabelPriorita1", "Priorita", "ComboRitardo", "ScrollPriorita2", "FrameFunzionamento"})
        EXPECT_TRUE(Enabled(name)) << name;
}

TEST_F(ContenitoreEditing, ScrollBarsDriveTheirFields)
{
    RegisterOrlo(1);
    Select(0);
    const std::pair<const char*, const char*> pairs[] = {{"ScrollPriorita", "Priorita"},
                                                         {"ScrollPriorita2", "Priorita2"},
                                                         {"ScrollTentativi", "Tentativi"}};
    int value = 4;
    for (const auto& [bar, field] : pairs) {
        Control<QScrollBar>(bar).setValue(++value);
        EXPECT_EQ(TextOf(field), QString::number(value)) << bar;
    }
}

TEST_F(ContenitoreEditing, TypingIntoTheLineChoicesEmptiesThem)
{
    RegisterOrlo(1);
    Open();
    Select(0);
    for (const char* name : {"ComboPorta", "ComboRitardo", "ComboVelocita"}) {
        ASSERT_FALSE(TextOf(name).isEmpty());
        Control(name).setFocus();
        Type(name, "1");
        EXPECT_EQ(TextOf(name), QString()) << name;
    }
}

TEST_F(ContenitoreEditing, UntickingClearsTheOptionsAndLeavesSaveAlone)
{
    RegisterStrale(1);
    Open();
    Select(0);
    Press("Abilitazione");
    ASSERT_FALSE(Ticked("Abilitazione"));
    for (const char* name : {"Modalita_0", "Modalita_1", "Modalita_2", "Funzionamento_0",
                             "Funzionamento_1", "Funzionamento_2"})
        EXPECT_FALSE(Ticked(name)) << name;
    for (const char* name : {"PannelloFunzioni", "FrameAcquisizione", "FrameFormatoBadge",
                             "CampoDescrizione", "ComboTipoTerminale"})
        EXPECT_FALSE(Enabled(name)) << name;
    EXPECT_TRUE(Enabled("cmdAggiorna"));
}

TEST_F(ContenitoreEditing, TickingPresetsTheFirstOptions)
{
    TerminalRecord slot = Terminal(1, TerminalType::Orlo, "Porta");
    slot.Attivo = kFalse;
    slot.Modalita = 0;
    slot.Funzionamento = 0;
    Register(slot);
    Open();
    Select(0);
    ASSERT_FALSE(Enabled("cmdAggiorna"));
    Press("Abilitazione");
    EXPECT_TRUE(Ticked("Modalita_0"));
    EXPECT_TRUE(Ticked("Funzionamento_0"));
    for (const char* name :
         {"PannelloFunzioni", "FrameAcquisizione", "FrameFormatoBadge", "cmdAggiorna"})
        EXPECT_TRUE(Enabled(name)) << name;
    EXPECT_EQ(TextOf("LabelAvviso"), QString());
}

TEST_F(ContenitoreEditing, ModemTickEnablesTelephoneAndPlantCode)
{
    RegisterStrale(1);
    Open();
    Select(0);
    Press("CheckModem");
    for (const char* name :
         {"LabelTelefono", "NumeroTelefono", "LabelCodiceImpianto", "CodiceImpianto"})
        EXPECT_TRUE(Enabled(name)) << name;
    Press("CheckModem");
    for (const char* name :
         {"LabelTelefono", "NumeroTelefono", "LabelCodiceImpianto", "CodiceImpianto"})
        EXPECT_FALSE(Enabled(name)) << name;
}

TEST_F(ContenitoreEditing, EveryEditIsCalledUnsavedUntilTakenBack)
{
    RegisterOrlo(1);
    Open();
    Select(0);
    const QString unsaved = QStringLiteral("Modifiche non salvate");
    EXPECT_EQ(TextOf("LabelModifiche"), QString());
    for (const char* name :
         {"CampoDescrizione", "NomeCard", "Tentativi", "Priorita", "Priorita2", "LenCard",
          "InizioImpianto", "LenImpianto", "InizioAzienda", "LenAzienda", "InizioBadge", "LenBadge",
          "NumeroTelefono", "CodiceImpianto"}) {
        const QByteArray before = TextOf(name).toUtf8();
        Write(name, "88");
        EXPECT_EQ(TextOf("LabelModifiche"), unsaved) << name;
        Write(name, before.constData());
        EXPECT_EQ(TextOf("LabelModifiche"), QString()) << name;
    }
    for (const char* name : {"BidirectionalCheck", "CheckModem"}) {
        Press(name);
        EXPECT_EQ(TextOf("LabelModifiche"), unsaved) << name;
        Press(name);
        EXPECT_EQ(TextOf("LabelModifiche"), QString()) << name;
    }
    for (const char* name : {"ComboPorta", "ComboVelocita", "ComboRitardo", "ComboTipoTerminale"}) {
        auto& box = Control<ChoiceBox>(name);
        const QString before = box.currentText();
        box.Show(box.itemText(box.currentIndex() == 0 ? 1 : 0));
        EXPECT_EQ(TextOf("LabelModifiche"), unsaved) << name;
        box.Show(before);
        EXPECT_EQ(TextOf("LabelModifiche"), QString()) << name;
    }
    Press("Modalita_2");
    EXPECT_EQ(TextOf("LabelModifiche"), unsaved);
    Select(0);
    EXPECT_EQ(TextOf("LabelModifiche"), QString());
}

}  // namespace orlo::contenitore_test
