#include "tests/badge/serial_badge_fixture.h"

namespace orlo::testing
{
namespace
{

TEST_F(SerialBadgeFormat, IsReadFieldByFieldAndTheClockAfterIt)
{
    Connect(QStringLiteral("Strale"), "badge=2/5/8/6/00123");
    Receive();
    EXPECT_EQ(Shown(), Of("2", "5", "8", "6", "123"));
    EXPECT_EQ(commands, (QStringList{QStringLiteral("950006"), QStringLiteral("950007"),
                                     QStringLiteral("950008"), QStringLiteral("950009"),
                                     QStringLiteral("950010")}));
    EXPECT_EQ(clock_reads, 1);
    EXPECT_FALSE(pc.com1.PortOpen());
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(SerialBadgeFormat, OfEveryModelIsReadFromItsOwnParameters)
{
    for (const QString& model : kSerialModels) {
        Connect(model, "badge=2/5/8/6/00123");
        Receive();
        EXPECT_EQ(Shown(), Of("2", "5", "8", "6", "123")) << model.toStdString();
    }
}

TEST_F(SerialBadgeFormat, SameTelegramReadsAnotherFieldInTheOtherFamily)
{
    Connect(QStringLiteral("Strale"));
    const auto only_parameter_9 = [](std::string_view request) {
        // SOH, address, "077" or "000", checksum, CR.
        const bool nine = request.find("950009") != std::string_view::npos;
        return std::vector<Arrival>{{{},
                                     nine ? "\x01\x84"
                                            "077\xA3\r"
                                          : "\x01\x84"
                                            "000\x95\r"}};
    };
    pc.com1.answer_to = only_parameter_9;
    Receive();
    EXPECT_EQ(Shown(), Of("0", "0", "0", "77", "0"));
    Connect(QStringLiteral("Orlo II"));
    pc.com1.answer_to = only_parameter_9;
    Receive();
    EXPECT_EQ(Shown(), Of("77", "0", "0", "0", "0"));
}

TEST_F(SerialBadgeFormat, IsSentWithZerosInFront)
{
    Connect(QStringLiteral("Strale"));
    Enter(Of("5", "5", "7", "12", "123"));
    Send();
    EXPECT_EQ(commands, (QStringList{QStringLiteral("940006 05"), QStringLiteral("940007 05"),
                                     QStringLiteral("940008 07"), QStringLiteral("940009 12"),
                                     QStringLiteral("940010 00123"), QStringLiteral("97STORE")}));
    EXPECT_FALSE(pc.com1.PortOpen());
    EXPECT_TRUE(pc.dialog.told.empty()) << "there is no message of success";
    EXPECT_EQ(clock_reads, 0);
}

TEST_F(SerialBadgeFormat, IsSentToTheOtherFamilyUnderItsNumbers)
{
    Connect(QStringLiteral("Lumo"));
    Enter(Of("0", " 3 ", "7", "6", " 99 "));
    Send();
    EXPECT_EQ(commands, (QStringList{QStringLiteral("940009 00"), QStringLiteral("940010 03"),
                                     QStringLiteral("940011 07"), QStringLiteral("940012 06"),
                                     QStringLiteral("940013 099"), QStringLiteral("97STORE")}));
}

TEST_F(SerialBadgeFormat, ReadBackEqualsWhatWasSent)
{
    for (const QString& model : kSerialModels) {
        Connect(model);
        Enter(Of("3", "4", "9", "10", "1275"));
        Send();
        EXPECT_EQ(Terminal().Badge().Stored().plant_code, "1275") << model.toStdString();
        Enter(Of("", "", "", "", ""));
        Receive();
        EXPECT_EQ(Shown(), Of("3", "4", "9", "10", "1275")) << model.toStdString();
    }
}

TEST_F(SerialBadgeFormat, OnlyTheSlowModelsAreGivenALongWaitForStoring)
{
    for (const QString& model : kSerialModels) {
        Connect(model, {}, {"97*:silenzio"});
        Enter(Of("1", "5", "6", "6", "1"));
        const std::chrono::milliseconds start = pc.clock.Passed();
        Send();
        const long waited = static_cast<long>((pc.clock.Passed() - start).count());
        const bool slow =
            model == QStringLiteral("OrloTre") || model == QStringLiteral("SuperStrale");
        // 101 steps of 1/18.2 s, or 2 s; and a second of silence behind them.
        EXPECT_GE(waited, slow ? 5490 : 2000) << model.toStdString();
        EXPECT_LE(waited, slow ? 6650 : 3150) << model.toStdString();
    }
}

TEST_F(SerialBadgeFormat, StoreThatIsAnsweredAfterFiveSecondsHasSucceeded)
{
    Connect(QStringLiteral("SuperStrale"), {}, {"97*:ritardo=5000"});
    Enter(Of("1", "5", "6", "6", "1"));
    EXPECT_EQ(LastLineOfSending(), QStringLiteral("risposte 6 su 6"));
}

TEST_F(SerialBadgeFormat, SilentTerminalFillsEveryFieldWith0)
{
    Connect(QStringLiteral("OrloTre"), {}, {"*:silenzio"});
    Enter(Of("1", "5", "6", "6", "1"));
    EXPECT_EQ(LastLineOfReceiving(), QStringLiteral("risposte 0 su 5"));
    EXPECT_EQ(Shown(), Of("0", "0", "0", "0", "0"));
    EXPECT_EQ(commands.size(), 5);
}

TEST_F(SerialBadgeFormat, FieldWithoutAGoodAnswerIsReadAs0)
{
    struct Case {
        const char* fault;
        Layout shown;
    };
    const Case cases[] = {
        {"950009:silenzio", Of("0", "5", "6", "6", "123")},
        {"950010:silenzio", Of("1", "0", "6", "6", "0")},
        {"950011:checksum-errato", Of("1", "5", "0", "6", "123")},
        {"950012:senza-cr", Of("1", "5", "6", "0", "123")},
        {"950013:cr-prima", Of("1", "5", "6", "6", "0")},
        {"950009:ritardo=2200", Of("0", "5", "6", "6", "123")},
    };
    for (const Case& c : cases) {
        const std::string rule = std::string(c.fault).insert(6, "*");
        Connect(QStringLiteral("OrloTre"), "badge=1/5/6/6/00123", {rule});
        Receive();
        EXPECT_EQ(Shown(), c.shown) << c.fault;
    }
}

TEST_F(SerialBadgeFormat, IsSentToTheEndWhateverIsAnswered)
{
    Connect(QStringLiteral("Strale"), {}, {"940006*:silenzio", "940008*:checksum-errato"});
    Enter(Of("5", "5", "7", "12", "123"));
    Send();
    EXPECT_EQ(commands.size(), 6);
    EXPECT_EQ(commands.last(), QStringLiteral("97STORE"));
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(SerialBadgeFormat, WithoutItsDataIsNotSent)
{
    const QString plant =
        QStringLiteral("Mancano dei dati necessari riguardanti il codice azienda.");
    const QString badge = QStringLiteral("Mancano dei dati necessari riguardanti il numero badge.");
    struct Case {
        Layout entered;
        QString told;
    };
    const Case cases[] = {
        {Of("1", "5", "6", "6", ""), plant},    {Of("1", "5", "6", "6", "000"), plant},
        {Of("1", "5", "6", "6", "abc"), plant}, {Of("1", "", "6", "6", "1"), plant},
        {Of("1", "0", "0", "6", "1"), plant},   {Of("1", "x", "6", "6", "1"), plant},
        {Of("1", "5", "", "6", "1"), badge},    {Of("1", "5", "0", "6", "1"), badge},
        {Of("1", "5", "6", "", "1"), badge},    {Of("1", "5", "6", "00", "1"), badge},
        {Of("123", "5", "6", "0", "1"), badge},
    };
    for (const Case& c : cases) {
        Connect(QStringLiteral("Strale"));
        Enter(c.entered);
        EXPECT_EQ(ToldInsteadOfSending(), c.told) << c.entered;
    }
}

TEST_F(SerialBadgeFormat, ValueWiderThanItsFieldIsNamedAndNothingIsSent)
{
    struct Case {
        Layout entered;
        const char* field;
        const char* width;
    };
    const Case cases[] = {
        {Of("100", "5", "6", "6", "1"), "Inizio del codice impianto", "(2)"},
        {Of("1", "005", "6", "6", "1"), "Lunghezza del codice impianto", "(2)"},
        {Of("1", "5", "100", "6", "1"), "Inizio del numero badge", "(2)"},
        {Of("1", "5", "6", "100", "1"), "Lunghezza del numero badge", "(2)"},
        {Of("1", "5", "6", "6", "123456"), "Codice impianto del badge", "(5)"},
    };
    for (const Case& c : cases) {
        Connect(QStringLiteral("OrloTre"));
        Enter(c.entered);
        const QString told = ToldInsteadOfSending();
        EXPECT_TRUE(told.contains(QString::fromUtf8(c.field))) << told.toStdString();
        EXPECT_TRUE(told.contains(QString::fromUtf8(c.width))) << told.toStdString();
    }
}

TEST_F(SerialBadgeFormat, ValueBelowZeroIsNamedAndNothingIsSent)
{
    struct Case {
        Layout entered;
        const char* field;
    };
    const Case cases[] = {
        {Of("-1", "5", "6", "6", "1"), "Inizio del codice impianto"},
        {Of("1", "-5", "6", "6", "1"), "Lunghezza del codice impianto"},
        {Of("1", "5", "-6", "6", "1"), "Inizio del numero badge"},
        {Of("1", "5", "6", "-6", "1"), "Lunghezza del numero badge"},
        {Of("1", "5", "6", "6", "-1"), "Codice impianto del badge"},
    };
    for (const Case& c : cases) {
        Connect(QStringLiteral("Lumo"));
        Enter(c.entered);
        EXPECT_EQ(ToldInsteadOfSending(),
                  QStringLiteral("Il campo «%1» è minore di zero: il formato badge non è stato "
                                 "inviato.")
                      .arg(QString::fromUtf8(c.field)));
    }
}

TEST_F(SerialBadgeFormat, ValueThatWouldEndItsTelegramIsNamedAndNothingIsSent)
{
    Connect(QStringLiteral("Strale"));
    Enter(Of("1", "5", "6", "6", "1\r2"));
    Send();
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(pc.dialog.told[0].text,
              QStringLiteral("Il campo «%1» contiene caratteri che non si possono inviare: il "
                             "formato badge non è stato inviato.")
                  .arg(Controls().NomeCard->accessibleName()));
    EXPECT_EQ(pc.com1.times_opened, 0);
}

TEST_F(SerialBadgeFormat, CharacterThatWindows1252LacksIsNamedAndNothingIsSent)
{
    Connect(QStringLiteral("Strale"));
    Enter(Of("1", "5", "6", "6", "1"));
    Controls().NomeCard->setText(QString::fromUtf8("1中2"));
    EXPECT_EQ(ToldInsteadOfSending(),
              QStringLiteral("Il campo «%1» contiene caratteri che non si possono inviare: il "
                             "formato badge non è stato inviato.")
                  .arg(Controls().NomeCard->accessibleName()));
}

TEST_F(SerialBadgeFormat, PlantCodeThatItsFieldWouldCutIsShownAsNoneAndSaidToBe)
{
    Connect(QStringLiteral("Strale"), "badge=1/15/7/6/987654321098765");
    EXPECT_EQ(LastLineOfReceiving(),
              QStringLiteral("Codice impianto del badge troppo lungo: 987654321098765; risposte 5 "
                             "su 5"));
    EXPECT_EQ(Shown(), Of("1", "15", "7", "6", "0"));
}

TEST_F(SerialBadgeFormat, ProgramThatIsToEndWaitsForTheRunningTelegramOnly)
{
    const auto LeaveDuring = [this](int telegram) {
        auto answer = pc.com1.answer_to;
        pc.com1.answer_to = [this, answer, telegram](std::string_view request) {
            auto arrivals = answer(request);
            if (commands.size() == telegram) window.close();
            return arrivals;
        };
    };
    Connect(QStringLiteral("Strale"), "badge=2/5/8/6/00123");
    LeaveDuring(2);
    LastLineOfReceiving();
    EXPECT_EQ(commands, (QStringList{QStringLiteral("950006"), QStringLiteral("950007")}));
    EXPECT_EQ(clock_reads, 0);
    EXPECT_FALSE(pc.com1.PortOpen());

    Connect(QStringLiteral("Strale"));
    Enter(Of("1", "1", "1", "1", "1"));
    LeaveDuring(3);
    LastLineOfSending();
    EXPECT_EQ(commands.size(), 3) << "half a layout is not stored";
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(SerialBadgeFormat, PortThatDoesNotOpenIsTheOutcomeAndNothingIsSent)
{
    Connect(QStringLiteral("Strale"));
    pc.com1.device_missing = true;
    Enter(Of("1", "5", "6", "6", "1"));
    Send();
    EXPECT_EQ(Outcome(), QStringLiteral("Errore aprendo la COM"));
    Receive();
    EXPECT_EQ(Outcome(), QStringLiteral("Errore aprendo la COM"));
    EXPECT_EQ(Shown(), Of("1", "5", "6", "6", "1"));
    EXPECT_TRUE(pc.com1.sent.empty());
}

TEST_F(SerialBadgeFormat, PortNumberThatIsNoneDoesNothing)
{
    Connect(QStringLiteral("Strale"));
    Controls().ComboPorta->Show(QString());
    Enter(Of("1", "5", "6", "6", "1"));
    EXPECT_EQ(LastLineOfSending(), QStringLiteral("nessuna porta"));
    EXPECT_EQ(LastLineOfReceiving(), QStringLiteral("nessuna porta"));
    EXPECT_EQ(Outcome(), QString());
    EXPECT_TRUE(pc.com1.sent.empty());
}

TEST_F(SerialBadgeFormat, PortThatAModemSessionHoldsIsNeitherOpenedNorClosed)
{
    Connect(QStringLiteral("Strale"), "badge=2/5/8/6/00123");
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    Receive();
    EXPECT_EQ(Shown(), Of("2", "5", "8", "6", "123"));
    Send();
    EXPECT_EQ(commands.size(), 11);
    EXPECT_EQ(pc.com1.times_opened, 1);
    EXPECT_TRUE(pc.com1.PortOpen());
}

TEST_F(SerialBadgeFormat, NothingIsDoneForATypeThatIsNone)
{
    Connect(QStringLiteral("Strale"));
    Controls().ComboTipoTerminale->Show(QString());
    const QString reason = QStringLiteral("il tipo di terminale non è conosciuto");
    EXPECT_EQ(LastLineOfReceiving(), reason);
    EXPECT_EQ(LastLineOfSending(), reason);
    EXPECT_TRUE(pc.com1.sent.empty());
    EXPECT_TRUE(pc.dialog.told.empty());
    EXPECT_EQ(clock_reads, 1);
}

}  // namespace
}  // namespace orlo::testing
