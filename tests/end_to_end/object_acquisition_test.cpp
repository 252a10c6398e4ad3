#include "tests/end_to_end/object_installation.h"

#include <gtest/gtest.h>

namespace orlo::end_to_end
{
namespace
{

class ObjectModels : public testing::TestWithParam<ObjectModel>
{
};

// Type, direction, badge, cause, personal cause, date, time: every combination that means something
// to the punch file, and two types that it does not take.
constexpr char kEveryKind[] =
    "Presenze Entrata 123456 01 7 15/03/2006 08:30\n"
    "Presenze Uscita 1234567890 00 1234 31/12/1999 23:59:58\n"
    "Accessi Entrata 123456 00 0 15/03/2006 12:01:30\n"
    "Informazioni Info 55 00 1000 01/01/2000 00:00\n"
    "Informazioni Info 55 00 1001 01/01/2000 00:01\n"
    "Informazioni Info 55 00 1002 01/01/2000 00:02\n"
    "Informazioni Info 55 00 1003 01/01/2000 00:03\n"
    "Informazioni Entrata 8 00 0 29/02/2004 09:05\n"
    "Allarmi Entrata 9 00 0 29/02/2004 09:06\n"
    "Presenze Info 77 00 1002 29/02/2004 09:07\n"
    "Presenze Transito 99 00 5 29/02/2004 09:08\n";

const Lines kLinesOfEveryKind = {
    "31200603150830000100001234560706",
    "31199912312359000212345678903406",
    "31200001010000000I0000000000OF06",
    "31200001010001000I0000000000ON06",
    "31200001010002000I0000000055IN06",
    "31200001010003000I00000000000006",
    "31200402290905000100000000080006",
    "31200402290907000I0000000077IN06",
    // A direction of another name has no code: a character less.
    "3120040229090800000000000000006",
};

TEST_P(ObjectModels, FillsThePunchFileInTheStandardLayoutWhateverTheRegisterSays)
{
    for (const int layout : {0, 1}) {
        SCOPED_TRACE(layout);
        const ObjectInstallation installation(GetParam(), layout);
        const auto line = installation.Simulate(kEveryKind);
        const Ended ended = installation.Acquire();
        EXPECT_EQ(ended.status, 0);
        EXPECT_EQ(ended.errors, "");
        EXPECT_EQ(ended.output, "");
        EXPECT_EQ(installation.PunchLines(), kLinesOfEveryKind);
    }
}

TEST_P(ObjectModels, MarksWhatItWroteAndNothingElse)
{
    const ObjectInstallation installation(GetParam());
    const auto line = installation.Simulate(kEveryKind);
    ASSERT_EQ(installation.Acquire().status, 0);
    EXPECT_EQ(line->Commands("marca"),
              "marca 1 marca 2 marca 4 marca 5 marca 6 marca 7 marca 8 marca 10 marca 11");
    EXPECT_EQ(line->State("6.acquisite"), "9");
    EXPECT_EQ(line->State("6.da_acquisire"), "2");
}

TEST_P(ObjectModels, SecondStartFindsTheSameTerminalAndWritesNothingAgain)
{
    const ObjectInstallation installation(GetParam());
    const auto line = installation.Simulate(kEveryKind);
    ASSERT_EQ(installation.Acquire().status, 0);
    const Ended ended = installation.Acquire();
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(installation.PunchLines(), kLinesOfEveryKind);
    EXPECT_EQ(line->State("6.acquisite"), "9");
    EXPECT_EQ(line->State("6.da_acquisire"), "2");
}

TEST_P(ObjectModels, EveryRecordIsMarkedBeforeTheNextIsAskedFor)
{
    const ObjectInstallation installation(GetParam());
    const auto line = installation.Simulate(kThreeRecords);
    EXPECT_EQ(installation.Acquire().status, 0);
    EXPECT_EQ(installation.PunchLines(), kThreeLines);
    // Counted, shown, then record by record until there are no more.
    EXPECT_EQ(line->Commands(),
              "stato stato prossima 1 marca 1 prossima 2 marca 2 prossima 3 marca 3 prossima 4");
}

TEST_P(ObjectModels, EmptyTerminalIsToldAndDoneWithoutAPunchFile)
{
    const ObjectInstallation installation(GetParam());
    const auto line = installation.Simulate("");
    const Ended ended = installation.Acquire();
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "Orlo Desk: Nessuna Timbratura Da Acquisire\n");
    EXPECT_EQ(line->Commands(), "stato");
    EXPECT_FALSE(installation.Has("TIMBRAT.TXT"));
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, ObjectModels, testing::Values(kOrlo, kSipa),
                         [](const auto& model) { return NameOf(model); });

TEST(ObjectModelsTogether, OrloAndSipaAreAcquiredInOneRunOverTwoLines)
{
    const ObjectInstallation installation(kOrlo);
    installation.Register(
        {{.terminal = 6, .type = kOrlo.type}, {.terminal = 7, .type = kSipa.type, .port = 2}});
    const auto orlo = installation.Simulate(kThreeRecords);
    installation.Write("altri", "Presenze Uscita 201 00 3 17/03/2006 10:00\n");
    const auto sipa =
        static_cast<const Installation&>(installation)
            .Simulate({"--terminale", "numero=7,modello=Sipa,file=" + installation.PathOf("altri")},
                      "com2");
    const Ended ended = installation.Run({"--acquisisci", "6,7"});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    Lines expected = kThreeLines;
    expected.emplace_back("31200603171000000200000002010307");
    EXPECT_EQ(installation.PunchLines(), expected);
    EXPECT_EQ(orlo->State("6.da_acquisire"), "0");
    EXPECT_EQ(sipa->State("7.da_acquisire"), "0");
}

}  // namespace
}  // namespace orlo::end_to_end
