#include "registry/start_up.h"

#include "registry/windows_1252.h"
#include "tests/registry/start_up_fixture.h"

namespace orlo
{
namespace
{

TEST_F(StartUpTest, LoadsTheRegisterInTheTablesOrder)
{
    for (const char* sample : {"nimbo-full-2000.mdb", "nimbo-full-97.mdb"}) {
        QFile::remove(InFolder("nimbo.mdb"));
        Database(sample);
        ProgramState own_state;
        Contenitore own_window(own_state, pc.workstation);
        File("Configurazione.ini", "Databases          :" + folder.path().toUtf8() + "/\n");
        EXPECT_EQ(StartUp(own_window, InFolder("Configurazione.ini"), Factory()).end,
                  StartUpOutcome::End::Complete);
        const QListWidget& list = *own_window.Controls().ListaTerminali;
        ASSERT_EQ(list.count(), 8) << sample;
        EXPECT_EQ(list.item(0)->text(),
                  QStringLiteral("01 - Orlo II - Portineria\t - Esonero PIN \tSì\tPres/Acc"));
        EXPECT_EQ(
            list.item(2)->text(),
            QStringLiteral("03 - Sipa - Città alta - già attivo\t - Abilitazione\tSì\tPresenze"));
        EXPECT_EQ(own_state.TerminalTable[2].Descrizione, QStringLiteral("Città al"));
        EXPECT_EQ(own_window.Controls().LabelTerminale->text(), QStringLiteral("Terminale n°1"));
        EXPECT_TRUE(pc.dialog.told.empty());
        CloseRegister(own_state);
    }
}

TEST_F(StartUpTest, FillsEveryFieldOfASlot)
{
    Database("nimbo-full-97.mdb");
    Start();
    const TerminalRecord& slot = Slot(5);
    EXPECT_EQ(slot.Terminale, 5);
    EXPECT_EQ(slot.Tipo, 5);
    EXPECT_EQ(slot.Funzionamento, 3);
    EXPECT_EQ(slot.Descrizione, QStringLiteral("Universi"));
    EXPECT_EQ(slot.Attivo, -1);
    EXPECT_EQ(slot.Modalita, 3);
    EXPECT_EQ(slot.Porta, 1);
    EXPECT_EQ(slot.Priorita, 5);
    EXPECT_EQ(slot.PrioritaSecondaria, 5);
    EXPECT_EQ(slot.Velocita, 1200);
    EXPECT_EQ(slot.Modem, QStringLiteral("0464 910685         "));
    EXPECT_EQ(slot.AbilitazioneModem, -1);
    EXPECT_EQ(slot.Impianto, 15);
    EXPECT_EQ(slot.Tentativi, 1);
    EXPECT_EQ(slot.Ritardo, 0.5F);
    EXPECT_EQ(slot.NomeCard, QStringLiteral("Badge azienda       "));
    EXPECT_EQ(slot.LenCard, 12);
    EXPECT_EQ(slot.Bidirezionale, 0);
    EXPECT_EQ(slot.InizioImpianto, 1);
    EXPECT_EQ(slot.LenImpianto, 2);
    EXPECT_EQ(slot.InizioAzienda, 3);
    EXPECT_EQ(slot.LenAzienda, 4);
    EXPECT_EQ(slot.InizioBadge, 7);
    EXPECT_EQ(slot.LenBadge, 6);
}

TEST_F(StartUpTest, NullLeavesTheFieldAsItWas)
{
    Database("nimbo-full-2000.mdb");
    state.TerminalTable[5].Tentativi = 9;
    state.TerminalTable[5].NomeCard = QStringLiteral("vecchio");
    Start();
    EXPECT_EQ(Slot(6).Tentativi, 9);
    EXPECT_EQ(Slot(6).NomeCard, QStringLiteral("vecchio"));
}

TEST_F(StartUpTest, ShuffledRowsAreNotSorted)
{
    Database("nimbo-32-2003.mdb");
    Start();
    ASSERT_EQ(Lines().size(), 32);
    QStringList sorted = Lines();
    sorted.sort();
    EXPECT_NE(Lines(), sorted);
}

TEST_F(StartUpTest, ComponentIsMadeOnceForARegisterWithOrloOrSipa)
{
    Database("nimbo-full-97.mdb");
    EXPECT_EQ(Start().end, StartUpOutcome::End::Complete);
    EXPECT_EQ(components_made, 1);
    EXPECT_NE(state.Component, nullptr);
    EXPECT_TRUE(component.calls.empty()) << "made, not called";
}

TEST_F(StartUpTest, SerialTerminalsAloneNeedNoComponent)
{
    Database("nimbo-full-2000.mdb");
    RegisterEveryTerminalAs(TerminalType::Lumo);
    EXPECT_EQ(Start().end, StartUpOutcome::End::Complete);
    EXPECT_EQ(Lines().size(), 8);
    EXPECT_EQ(components_made, 0);
    EXPECT_EQ(state.Component, nullptr);
}

TEST_F(StartUpTest, ComponentThatCannotBeMadeIsToldWithItsNumber)
{
    Database("nimbo-full-97.mdb");
    const StartUpOutcome outcome = StartWithoutLibrary();
    EXPECT_EQ(outcome.end, StartUpOutcome::End::Incomplete);
    EXPECT_EQ(outcome.reason, QStringLiteral("429 Il componente non si può usare."));
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
    EXPECT_EQ(pc.dialog.told[0].title, QString());
    EXPECT_EQ(pc.dialog.told[0].text, QStringLiteral(" 429 Il componente non si può usare."));
    EXPECT_TRUE(pc.dialog.told[0].informative.contains(QStringLiteral("--componente")));
    EXPECT_EQ(window.Controls().LabelUltimoComando->text(),
              QStringLiteral("Avvio non completato: errore 429"));
    EXPECT_FALSE(window.Controls().LabelUltimoComando->isHidden());
}

TEST_F(StartUpTest, ComponentThatCannotBeMadeEndsTheStartUpBehindTheRegister)
{
    Database("nimbo-full-97.mdb");
    StartWithoutLibrary();
    EXPECT_EQ(Lines().size(), 8) << "what was filled stays";
    EXPECT_EQ(window.Controls().ComboRitardo->count(), 0) << "the steps behind are not done";
    EXPECT_EQ(window.Controls().ComboPorta->count(), 0);
    EXPECT_EQ(window.Controls().NomeFile->text(), QString());
    EXPECT_EQ(state.Component, nullptr);
}

TEST_F(StartUpTest, ComponentThatCannotBeMadeLeavesNoLockFileBehindTheProgram)
{
    Database("nimbo-full-97.mdb");
    StartWithoutLibrary();
    EXPECT_TRUE(QFile::exists(InFolder("nimbo.ldb"))) << "the window shows the register";
    CloseRegister(state);
    EXPECT_FALSE(QFile::exists(InFolder("nimbo.ldb")));
}

TEST_F(StartUpTest, FillsTheChoices)
{
    Database("nimbo-full-97.mdb");
    Start();
    const Ui::Contenitore& controls = window.Controls();
    EXPECT_EQ(Items(*controls.ComboRitardo).join(u' '),
              QStringLiteral("0 ,1 ,2 ,3 ,4 ,5 ,6 ,7 ,8 ,9"));
    EXPECT_EQ(Items(*controls.ComboTipoTerminale).join(u'|'),
              QStringLiteral("Orlo II|OrloTre|SuperStrale|Strale N|Lumo|Orlo|Sipa|Strale"));
    EXPECT_EQ(Items(*controls.ComboPorta).join(u'|'), QStringLiteral("Com 1|Com 2|Com 3|Com 4"));
    EXPECT_EQ(Items(*controls.ComboVelocita).join(u' '),
              QStringLiteral("1200 2400 4800 9600 14400 19200 38400"));
    EXPECT_EQ(controls.NomeFile->text(), QStringLiteral("TIMBRAT.TXT"));
}

TEST_F(StartUpTest, ShowsTheFirstTerminalWithItsChoices)
{
    Database("nimbo-full-97.mdb");
    Start();
    const Ui::Contenitore& controls = window.Controls();
    EXPECT_EQ(controls.ListaTerminali->currentRow(), 0);
    EXPECT_EQ(controls.ComboTipoTerminale->currentText(), QStringLiteral("Orlo II"));
    EXPECT_EQ(controls.ComboPorta->currentText(), QStringLiteral("Com 1"));
    EXPECT_EQ(controls.ComboVelocita->currentText(), QStringLiteral("2400"));
    EXPECT_EQ(controls.ComboRitardo->currentText(), QStringLiteral(",1"));
    EXPECT_TRUE(controls.LabelModifiche->text().isEmpty());
}

TEST_F(StartUpTest, OldDatabaseIsUpgradedColumnByColumn)
{
    for (const char* sample : {"nimbo-base-2000.mdb", "nimbo-base-97.mdb"}) {
        QFile::remove(InFolder("nimbo.mdb"));
        Database(sample);
        const QByteArray before = Exported("TERMINALI");
        File("Configurazione.ini", "Databases          :" + folder.path().toUtf8() + "/\n");
        ProgramState own_state;
        Contenitore own_window(own_state, pc.workstation);
        EXPECT_EQ(StartUp(own_window, InFolder("Configurazione.ini"), Factory()).end,
                  StartUpOutcome::End::Complete);
        const QListWidget& list = *own_window.Controls().ListaTerminali;
        ASSERT_EQ(list.count(), 5) << "every terminal once";
        EXPECT_TRUE(pc.dialog.told.empty());
        CloseRegister(own_state);
        // Half a second in the first row only; Null elsewhere, No for the two Yes/No columns.
        QList<QByteArray> expected = before.split('\n');
        expected[0] +=
            ",Tipo,Priorita_Secondaria,Modem,Abilitazione_Modem,Impianto,Tentativi,"
            "Ritardo,NomeCard,LenCard,Bidirezionale,InizioImpianto,InizioAzienda,"
            "InizioBadge,LenImpianto,LenAzienda,LenBadge";
        expected[1] += ",,,,0,,,0.5,,,0,,,,,,";
        for (int row = 2; row <= 5; ++row) expected[row] += ",,,,0,,,,,,0,,,,,,";
        EXPECT_EQ(Exported("TERMINALI"), expected.join('\n')) << sample;
    }
}

TEST_F(StartUpTest, UpgradedDatabaseIsNotChangedAgain)
{
    Database("nimbo-base-97.mdb");
    Start();
    CloseRegister(state);
    const QByteArray upgraded = Content("nimbo.mdb");
    ProgramState again;
    Contenitore second(again, pc.workstation);
    StartUp(second, InFolder("Configurazione.ini"), Factory());
    CloseRegister(again);
    EXPECT_EQ(Content("nimbo.mdb"), upgraded);
}

TEST_F(StartUpTest, SavedTerminalIsReadBackByAnotherReader)
{
    Database("nimbo-full-97.mdb");
    Start();
    window.SelectTerminalLine(3);
    window.Controls().CodiceImpianto->setText(QStringLiteral("77"));
    window.Controls().cmdAggiorna->click();
    EXPECT_TRUE(pc.dialog.told.empty());
    CloseRegister(state);
    EXPECT_TRUE(Exported("TERMINALI")
                    .contains("4,2,\"Magazzin\",1,2,4,4,19200,0.40000001,\"ISO Magstrip        "
                              "\",16,1,1,2,3,4,7,10,5,77,"))
        << Exported("TERMINALI").toStdString();
}

TEST_F(StartUpTest, ARegisterThatCanOnlyBeReadSaysSoOnSaving)
{
    Database("nimbo-full-2000.mdb");
    Start();
    state.TerminalsRecordset.reset();
    state.Database.reset();
    state.Database = jet::Database::Open(InFolder("nimbo.mdb").toStdString());
    state.TerminalsRecordset = state.Database->OpenTable(u"TERMINALI");
    const QByteArray file = Content("nimbo.mdb");
    const QStringList lines = Lines();
    const TerminalRecord before = Slot(1);
    window.Controls().Tentativi->setText(QStringLiteral("9"));
    window.Controls().cmdAggiorna->click();
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_TRUE(pc.dialog.told[0].text.startsWith(QStringLiteral(" 3027 ")))
        << pc.dialog.told[0].text.toStdString();
    EXPECT_EQ(Lines(), lines);
    EXPECT_TRUE(Slot(1) == before);
    EXPECT_EQ(window.Controls().Tentativi->text(), QStringLiteral("9"));
    EXPECT_EQ(Content("nimbo.mdb"), file);
}

TEST_F(StartUpTest, ATextThatTheFileCannotHoldIsRefusedWithItsFieldsName)
{
    Database("nimbo-full-97.mdb");
    Start();
    const QByteArray file = Content("nimbo.mdb");
    const TerminalRecord before = Slot(1);
    window.Controls().CampoDescrizione->setText(QStringLiteral("Ω"));
    window.Controls().cmdAggiorna->click();
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_TRUE(pc.dialog.told[0].text.contains(QStringLiteral("\"Descrizione\"")))
        << pc.dialog.told[0].text.toStdString();
    EXPECT_TRUE(Slot(1) == before);
    EXPECT_EQ(Lines().first().left(2), QStringLiteral("01"));
    EXPECT_EQ(Content("nimbo.mdb"), file);
}

TEST_F(StartUpTest, NumberOutOfRangeEndsTheFillWithoutABox)
{
    Database("nimbo-range-2000.mdb");
    EXPECT_EQ(Start().end, StartUpOutcome::End::Complete);
    EXPECT_TRUE(pc.dialog.told.empty());
    EXPECT_LT(Lines().size(), 6);
    EXPECT_EQ(
        window.Controls().PannelloComunicazione->Remark(),
        QStringLiteral("Il registro non è stato letto fino in fondo: 9 Il numero di terminale "
                       "0 non è compreso fra 1 e 32."));
    EXPECT_EQ(window.Controls().NomeFile->text(), QStringLiteral("TIMBRAT.TXT"))
        << "start-up went on";
}

TEST_F(StartUpTest, DatabaseWithoutARegisterIsTold)
{
    Database("nimbo-empty-jet4.mdb");
    EXPECT_EQ(Start().end, StartUpOutcome::End::Incomplete) << "it has no register at all";
    EXPECT_TRUE(Lines().isEmpty());
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_TRUE(pc.dialog.told[0].text.startsWith(QStringLiteral(" 3011 ")))
        << pc.dialog.told[0].text.toStdString();
    EXPECT_EQ(pc.dialog.told[0].title, QString());
}

TEST_F(StartUpTest, LockFileEndsTheProgram)
{
    Database("nimbo-full-97.mdb");
    File("nimbo.ldb", "x");
    EXPECT_EQ(Start().end, StartUpOutcome::End::InUse);
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
    EXPECT_EQ(pc.dialog.told[0].title, QStringLiteral("Attenzione"));
    EXPECT_EQ(pc.dialog.told[0].text,
              QStringLiteral("Attenzione! il programma è già aperto da un altro "
                             "utente/applicazione.\rNon è possibile continuare."));
    EXPECT_TRUE(pc.dialog.told[0].informative.contains(QStringLiteral("nimbo.ldb")));
    EXPECT_TRUE(Lines().isEmpty());
    EXPECT_TRUE(QFile::exists(InFolder("nimbo.ldb"))) << "it is never deleted";
    EXPECT_EQ(state.Database, nullptr);
}

TEST_F(StartUpTest, LockFileStandsWhileTheDatabaseIsOpen)
{
    Database("nimbo-full-97.mdb");
    Start();
    EXPECT_EQ(QFile(InFolder("nimbo.ldb")).size(), 64);
    CloseRegister(state);
    EXPECT_FALSE(QFile::exists(InFolder("nimbo.ldb")));
}

TEST_F(StartUpTest, SecondStartIsRefused)
{
    Database("nimbo-full-97.mdb");
    Start();
    ProgramState second_state;
    Contenitore second(second_state, pc.workstation);
    EXPECT_EQ(StartUp(second, InFolder("Configurazione.ini"), Factory()).end,
              StartUpOutcome::End::InUse);
}

TEST_F(StartUpTest, MissingDatabaseIsSilent)
{
    state.CurrentPriority = 7;
    const StartUpOutcome outcome = Start();
    EXPECT_EQ(outcome.end, StartUpOutcome::End::Incomplete);
    EXPECT_FALSE(outcome.reason.isEmpty());
    EXPECT_TRUE(pc.dialog.told.empty());
    EXPECT_EQ(state.CurrentPriority, 0);
    EXPECT_EQ(window.Controls().ComboPorta->count(), 0) << "the steps behind are not done";
    EXPECT_EQ(window.Controls().NomeFile->text(), QString());
    EXPECT_FALSE(QFile::exists(InFolder("nimbo.ldb")));
}

TEST_F(StartUpTest, FileThatIsNoDatabaseIsTold)
{
    File("nimbo.mdb", "This is not a database.");
    EXPECT_EQ(Start().end, StartUpOutcome::End::Incomplete);
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_TRUE(pc.dialog.told[0].text.startsWith(QStringLiteral(" 3343 ")))
        << pc.dialog.told[0].text.toStdString();
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
}

TEST_F(StartUpTest, NamesInCapitalsAreFound)
{
    Database("nimbo-full-97.mdb", "NIMBO.MDB");
    EXPECT_EQ(Start().end, StartUpOutcome::End::Complete);
    EXPECT_EQ(Lines().size(), 8);
}

TEST_F(StartUpTest, PasswordIsNoObstacle)
{
    Database("password-jet4.mdb");
    EXPECT_EQ(Start().end, StartUpOutcome::End::Complete);
    EXPECT_EQ(Lines().size(), 8);
}

TEST(Windows1252, GoesThereAndBack)
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(ToWindows1252(FromWindows1252(all)), all);
    EXPECT_EQ(FromWindows1252("\x80\xE0"), QStringLiteral("€à"));
    EXPECT_EQ(ToWindows1252(QStringLiteral("Ω")), "?");
}

}  // namespace
}  // namespace orlo
