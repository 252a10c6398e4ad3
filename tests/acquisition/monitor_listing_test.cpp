#include "tests/acquisition/serial_monitor_fixture.h"
#include "tests/support/file_size_limit.h"

namespace orlo::testing
{
namespace
{

TEST_F(SerialMonitor, ListingHoldsTheVeryLinesAndReplacesAnEarlierOne)
{
    {
        QFile earlier(FileName());
        ASSERT_TRUE(earlier.open(QIODevice::WriteOnly));
        earlier.write(QByteArray(100000, 'x'));
    }
    Connect("Strale", "timbrature=12,acquisite=5");
    form.open();
    WantFile();
    ReadAgain();
    ASSERT_EQ(Lines().size(), 12);
    EXPECT_EQ(Listing(), ListAsFile());
}

TEST_F(SerialMonitor, FilterLeavesTheListingWhole)
{
    Connect("Strale", "timbrature=12,acquisite=5");
    form.open();
    WantFile();
    Find<QLineEdit>("FiltroMonitor").setText(QStringLiteral("Acquisita"));
    ReadAgain();
    EXPECT_EQ(List().LinesSeen(), 5);
    EXPECT_EQ(Listing().count("\r\n"), 12);
}

TEST_F(SerialMonitor, EscapeStopsBetweenBlocksAndTheListingIsWhole)
{
    Connect("Strale", "timbrature=60");
    EscapeAt(QStringLiteral("302"), /*yes=*/true);
    form.open();
    WantFile();
    ReadAgain();
    EXPECT_EQ(Blocks(), Texts({"0", "1", "2"}));
    EXPECT_EQ(Lines().size(), 30);
    EXPECT_EQ(Listing(), ListAsFile());
    EXPECT_EQ(pc.dialog.asked.size(), 1U);
    EXPECT_TRUE(Told().isEmpty());
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Lettura interrotta"));
    EXPECT_EQ(Find<QProgressBar>("PercentualeMonitor").value(), 0);
    EXPECT_FALSE(pc.com1.PortOpen());
    EXPECT_TRUE(form.isVisible());
}

TEST_F(SerialMonitor, BlocksMissingFromAStoppedReadingAreTold)
{
    Connect("Strale", "timbrature=60", {"30#2:silenzio", "30#3:silenzio", "30#4:silenzio"});
    EscapeAt(QStringLiteral("302"), /*yes=*/true);
    Read();
    EXPECT_EQ(Lines().size(), 20);
    ExpectStoppedAndTold(QStringLiteral(
        "Attenzione: di un blocco di timbrature non è arrivata la risposta: la lista non è "
        "completa, e numeri e stati dopo di esso non valgono."));
}

TEST_F(SerialMonitor, DoubtOfAStoppedReadingIsTold)
{
    Connect("Strale", "timbrature=60", {"32#1:checksum-errato"});
    EscapeAt(QStringLiteral("300"), /*yes=*/true);
    Read();
    EXPECT_EQ(Lines().size(), 10);
    ExpectStoppedAndTold(NoStatusTold());
}

TEST_F(SerialMonitor, StoppedReadingIsToldWhatItHasTooManyOnly)
{
    Answering("Strale", {kStatus24, Records(10), Records(10), Records(10)});
    EscapeAt(QStringLiteral("302"), /*yes=*/true);
    Read();
    EXPECT_EQ(Lines().size(), 30);
    ExpectStoppedAndTold(More());
}

TEST_F(SerialMonitor, EscapeAnsweredWithNoReadsOn)
{
    Connect("Strale", "timbrature=42");
    EscapeAt(QStringLiteral("302"), /*yes=*/false);
    Read();
    EXPECT_EQ(pc.dialog.asked.size(), 1U);
    EXPECT_EQ(Lines().size(), 42);
    EXPECT_EQ(Told(), ReceptionOk());
}

TEST_F(SerialMonitor, ListingThatCannotBeMadeStopsTheReading)
{
    Connect("Strale", "timbrature=12");
    ASSERT_TRUE(QDir().mkdir(FileName()));
    form.open();
    WantFile();
    ReadAgain();
    EXPECT_TRUE(Blocks().isEmpty());
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
    EXPECT_EQ(pc.dialog.told[0].text,
              QStringLiteral("Impossibile scrivere il file \"%1\": è una cartella.").arg(Path()));
    ExpectListingIs("non scritto");
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(SerialMonitor, ListingThatIsNotWholeIsToldAndTheListIs)
{
    Connect("Strale", "timbrature=60");
    form.open();
    WantFile();
    {
        const FileSizeLimit full_disk(1000);
        ReadAgain();
    }
    EXPECT_EQ(Lines().size(), 60);
    ASSERT_EQ(pc.dialog.told.size(), 2U);
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
    EXPECT_EQ(
        pc.dialog.told[0].text,
        QStringLiteral("Il file \"%1\" non è completo: il file è troppo grande.").arg(Path()));
    EXPECT_EQ(pc.dialog.told[1].text, QStringLiteral("Ricezione dati OK"));
    ExpectListingIs("non completo");
}

TEST_F(SerialMonitor, ListingThatDoesNotReachTheDiskIsToldAndTheListIs)
{
    Connect("Strale", "timbrature=12");
    // Takes every byte and cannot be synced.
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/null"), FileName()));
    form.open();
    WantFile();
    ReadAgain();
    EXPECT_EQ(Lines().size(), 12);
    ASSERT_EQ(pc.dialog.told.size(), 2U);
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
    EXPECT_TRUE(pc.dialog.told[0].text.startsWith(
        QStringLiteral("Il file \"%1\" non è completo: ").arg(Path())));
    ExpectListingIs("non completo");
}

TEST_F(SerialMonitor, SecondReadingBeginsAnew)
{
    Connect("Strale", "timbrature=12");
    Read();
    ReadAgain();
    EXPECT_EQ(Lines().size(), 12);
    EXPECT_EQ(Lines().constFirst().left(4), QStringLiteral("0001"));
}

}  // namespace
}  // namespace orlo::testing
