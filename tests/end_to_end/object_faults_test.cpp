// What goes wrong between the program and an Orlo with three punches. A record is marked only
// behind its line, so that what was not marked comes again and what was marked is in the file.

#include "tests/end_to_end/object_installation.h"

#include <gtest/gtest.h>

namespace orlo::end_to_end
{
namespace
{

constexpr char kNotMarked[] =
    "Una timbratura è stata scritta nel file, ma il terminale non l'ha segnata come acquisita: la "
    "prossima acquisizione la scriverà di nuovo.";

std::string NotDone(const std::string& reason)
{
    return "Terminale 6 non acquisito: " + reason + "\n";
}

/// The box and the reason of a record that was written and not marked.
std::string MarkFailed(const std::string& code)
{
    return std::string("Attenzione: ") + kNotMarked + "\n" + code + "\n" + NotDone(kNotMarked);
}

struct ObjectFault {
    const char* name;
    /// In the simulator's words.
    std::vector<std::string> faults;
    /// What the terminal was asked in the first run, `stato` twice before it.
    const char* requests;
    /// Punches in the file after that, by their number.
    const char* written;
    /// Standard error of the first run; empty when it did all there was to do.
    std::string complaint = {};
    /// Punches in the file after a second run; empty when the first needs no second.
    const char* written_in_the_end = "";
};

void PrintTo(const ObjectFault& fault, std::ostream* out)
{
    *out << fault.name;
}

class ObjectLineFault : public testing::TestWithParam<ObjectFault>
{
protected:
    const ObjectInstallation installation{kOrlo};

    static Lines Written(const std::string& numbers)
    {
        Lines lines;
        for (const char number : numbers)
            if (number != ' ') lines.push_back(kThreeLines[static_cast<std::size_t>(number - '1')]);
        return lines;
    }

    std::unique_ptr<SimulatedLine> Simulate() const
    {
        std::vector<std::string> options;
        for (const std::string& fault : GetParam().faults) {
            options.emplace_back("--guasto");
            options.push_back(fault);
        }
        return installation.Simulate(kThreeRecords, options);
    }
    void RunAgain(SimulatedLine& line) const
    {
        const bool line_fell = GetParam().faults.front().find("caduta") != std::string::npos;
        if (line_fell) line.WaitForReturn();
        const Ended second = installation.Acquire();
        EXPECT_EQ(second.errors, "");
        EXPECT_EQ(second.status, 0);
        EXPECT_EQ(installation.PunchLines(), Written(GetParam().written_in_the_end));
    }
};

TEST_P(ObjectLineFault, LosesNoRecordThatWasNotMarked)
{
    const auto line = Simulate();
    const bool all_done = GetParam().complaint.empty();
    const Ended first = installation.Acquire();
    EXPECT_EQ(first.errors, GetParam().complaint);
    EXPECT_EQ(first.status, all_done ? 0 : 1);
    EXPECT_EQ(line->Commands(), std::string("stato stato ") + GetParam().requests);
    EXPECT_EQ(installation.PunchLines(), Written(GetParam().written));
    if (!all_done) RunAgain(*line);
    EXPECT_EQ(line->State("6.acquisite"), "3");
}

constexpr char kSmooth[] = "prossima 1 marca 1 prossima 2 marca 2 prossima 3 marca 3 prossima 4";

const ObjectFault kFaults[] = {
    {"EndOfDataTooEarlyIsNotDone",
     {"prossima#2:esito=ER"},
     "prossima 1 marca 1 prossima 2",
     "1",
     NotDone("Il terminale dichiarava 3 timbrature da acquisire e ne ha consegnate 1."),
     "1 2 3"},
    {"TimeOutCodeIsTriedAgain",
     {"prossima#2:esito=99,Time Out"},
     "prossima 1 marca 1 prossima 2 prossima 2 marca 2 prossima 3 marca 3 prossima 4",
     "1 2 3"},
    {"AnotherCodeIsTriedAgain",
     {"prossima#1:esito=21,Errore linea", "prossima#2:esito=21,Errore linea"},
     "prossima 1 prossima 1 prossima 1 marca 1 prossima 2 marca 2 prossima 3 marca 3 prossima 4",
     "1 2 3"},
    {"SilenceIsTriedAgain",
     {"prossima#2:silenzio"},
     "prossima 1 marca 1 prossima 2 prossima 2 marca 2 prossima 3 marca 3 prossima 4",
     "1 2 3"},
    {"WrongChecksumIsTriedAgain",
     {"prossima#1:checksum-errato"},
     "prossima 1 prossima 1 marca 1 prossima 2 marca 2 prossima 3 marca 3 prossima 4",
     "1 2 3"},
    {"ByteByByteIsNoHarm", {"*:byte-singoli=1"}, kSmooth, "1 2 3"},
    {"ThreeTimeOutCodesEndTheAcquisition",
     {"prossima#2:esito=99,Time Out", "prossima#3:esito=99,Time Out",
      "prossima#4:esito=99,Time Out"},
     "prossima 1 marca 1 prossima 2 prossima 2 prossima 2",
     "1",
     NotDone("Errore:99,Time Out"),
     "1 2 3"},
    {"ThreeOtherCodesEndTheAcquisition",
     {"prossima#2:esito=21,Errore linea", "prossima#3:esito=21,Errore linea",
      "prossima#4:esito=21,Errore linea"},
     "prossima 1 marca 1 prossima 2 prossima 2 prossima 2",
     "1",
     NotDone("Errore:21,Errore linea"),
     "1 2 3"},
    {"RefusedMarkMakesTheRecordComeAgain",
     {"marca#2:esito=21,Errore linea"},
     "prossima 1 marca 1 prossima 2 marca 2",
     "1 2",
     MarkFailed("Errore:21,Errore linea"),
     "1 2 2 3"},
    {"RefusedMarkOfALostRequestMakesTheRecordComeAgain",
     {"marca#1:richiesta-persa"},
     "prossima 1 marca 1",
     "1",
     MarkFailed("Errore:99,Time Out"),
     "1 1 2 3"},
    {"MarkWhoseAnswerIsLostWasTakenAllTheSame",
     {"marca#1:silenzio"},
     "prossima 1 marca 1",
     "1",
     MarkFailed("Errore:99,Time Out"),
     "1 2 3"},
    {"LineThatFallsInARecordLeavesItInTheTerminal",
     {"prossima#2:caduta"},
     "prossima 1 marca 1 prossima 2",
     "1",
     NotDone("Errore:98,COM1 caduta"),
     "1 2 3"},
    {"LineThatFallsInAMarkLeavesItMarked",
     {"marca#2:caduta"},
     "prossima 1 marca 1 prossima 2 marca 2",
     "1 2",
     MarkFailed("Errore:98,COM1 caduta"),
     "1 2 3"},
};

INSTANTIATE_TEST_SUITE_P(EndToEnd, ObjectLineFault, testing::ValuesIn(kFaults),
                         [](const auto& fault) { return fault.param.name; });

TEST(ObjectStatusFault, FirstRefusedEndsTheAcquisitionWithoutAPunchFile)
{
    const ObjectInstallation installation(kOrlo);
    const auto line =
        installation.Simulate(kThreeRecords, {"--guasto", "stato#1:esito=21,Errore linea"});
    const Ended ended = installation.Acquire();
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, NotDone("Errore:21,Errore linea"));
    EXPECT_EQ(line->Commands(), "stato");
    EXPECT_FALSE(installation.Has("TIMBRAT.TXT"));
}

TEST(ObjectStatusFault, SecondRefusedStillFetchesTheRecords)
{
    const ObjectInstallation installation(kOrlo);
    const auto line =
        installation.Simulate(kThreeRecords, {"--guasto", "stato#2:esito=21,Errore linea"});
    const Ended ended = installation.Acquire();
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, NotDone("Lo stato della memoria non è arrivato."));
    EXPECT_EQ(installation.PunchLines(), kThreeLines);
    EXPECT_EQ(line->State("6.acquisite"), "3");
}

/// A record that makes no line, between two that do.
class OverlongField : public testing::Test
{
protected:
    const ObjectInstallation installation{kOrlo};
    const std::unique_ptr<SimulatedLine> line = installation.Simulate(
        "Presenze Entrata 101 00 7 15/03/2006 08:30\n"
        "Presenze Uscita 12345678901 00 0 15/03/2006 12:45\n"
        "Presenze Entrata 103 00 99 16/03/2006 00:01\n");
    const std::string told =
        "Il terminale ha consegnato una timbratura che non si può scrivere (badge di 11 caratteri, "
        "al massimo 10): resta nel terminale, e l'acquisizione si ferma.";
};

TEST_F(OverlongField, IsTheErrorThatEndsTheAcquisition)
{
    const Ended ended = installation.Acquire();
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Attenzione: " + told + "\n" + NotDone(told));
    EXPECT_EQ(installation.PunchLines(), Lines{kThreeLines[0]});
}

TEST_F(OverlongField, StaysInTheTerminalWithWhatIsBehindIt)
{
    installation.Acquire();
    installation.Acquire();
    EXPECT_EQ(line->Commands("marca"), "marca 1");
    EXPECT_EQ(line->State("6.acquisite"), "1");
    EXPECT_EQ(line->State("6.da_acquisire"), "2");
    EXPECT_EQ(installation.PunchLines(), Lines{kThreeLines[0]});
}

}  // namespace
}  // namespace orlo::end_to_end
