#include "simulator/terminal.h"

#include "tests/simulator/wall.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace orlo::simulator
{
namespace
{

using testing::HasSubstr;

std::size_t Records(const Reply& reply)
{
    EXPECT_TRUE(reply.data.ends_with("END")) << reply.data;
    EXPECT_EQ((reply.data.size() - 3) % 26, 0U);
    return (reply.data.size() - 3) / 26;
}

struct Step {
    const char* command;
    const char* answer;  // nullptr: records
    std::size_t records = 0;
};

void Walk(Terminal& terminal, std::initializer_list<Step> steps)
{
    int number = 0;
    for (const Step& step : steps) {
        SCOPED_TRACE(testing::Message() << "step " << ++number << ", " << step.command);
        const Reply reply = terminal.Answer(step.command);
        if (step.answer != nullptr)
            EXPECT_EQ(reply.data, step.answer);
        else
            EXPECT_EQ(Records(reply), step.records);
    }
}

TEST(Terminal, StatusTellsTheTruthAtEveryStep)
{
    Terminal terminal = MakeTerminal("numero=1,modello=Strale,timbrature=15,acquisite=2");
    Walk(terminal, {
                       {"32", "TPnt 00014 TrInMemory 00013 TpntOld 00002 TpntNew 00014"},
                       {"33OK", nullptr, 10},
                       {"32", "TPnt 00014 TrInMemory 00013 TpntOld 00002 TpntNew 00014"},
                       {"33NO", nullptr, 10},
                       {"32", "TPnt 00014 TrInMemory 00013 TpntOld 00002 TpntNew 00014"},
                       {"33OK", nullptr, 3},
                       {"32", "TPnt 00014 TrInMemory 00003 TpntOld 00012 TpntNew 00014"},
                       {"33OK", "END"},
                       {"32", "TPnt 00014 TrInMemory 00000 TpntOld 00015 TpntNew 00014"},
                       {"33OK", "END"},
                       {"33NO", "END"},
                       {"32", "TPnt 00014 TrInMemory 00000 TpntOld 00015 TpntNew 00014"},
                   });
}

TEST(Terminal, OrloTreSaysOneTooManyAtEveryStep)
{
    Terminal terminal = MakeTerminal("numero=1,modello=OrloTre,timbrature=11");
    Walk(terminal, {
                       {"32", "TPnt 00011 TrInMemory 00012 TpntOld 00000 TpntNew 00010"},
                       {"33OK", nullptr, 10},
                       {"32", "TPnt 00011 TrInMemory 00012 TpntOld 00000 TpntNew 00010"},
                       {"33OK", nullptr, 1},
                       {"32", "TPnt 00011 TrInMemory 00002 TpntOld 00010 TpntNew 00010"},
                       {"33OK", "END"},
                       {"32", "TPnt 00011 TrInMemory 00001 TpntOld 00011 TpntNew 00010"},
                   });
}

TEST(Terminal, RepeatsTheSameAnswerUntilItIsAcknowledged)
{
    Terminal terminal = MakeTerminal("numero=3,modello=Lumo,timbrature=30");
    const std::string first = terminal.Answer("33OK").data;
    EXPECT_EQ(terminal.Answer("33NO").data, first);
    EXPECT_EQ(terminal.Answer("33NO").data, first);
    EXPECT_NE(terminal.Answer("33OK").data, first);
    EXPECT_EQ(terminal.Punches().Acquired(), 10U);
}

TEST(Terminal, BeginsWithTheFirstPunchWhenARefusalComesFirst)
{
    Terminal refused = MakeTerminal("numero=1,modello=Strale,timbrature=5");
    Terminal accepted = MakeTerminal("numero=1,modello=Strale,timbrature=5");
    EXPECT_EQ(refused.Answer("33NO").data, accepted.Answer("33OK").data);
    EXPECT_EQ(refused.Punches().Acquired(), 0U);
}

TEST(Terminal, SendsAsManyRecordsAsSet)
{
    Terminal terminal = MakeTerminal("numero=1,modello=Strale,timbrature=20,record=12");
    EXPECT_EQ(Records(terminal.Answer("33OK")), 12U);
    EXPECT_EQ(Records(terminal.Answer("33NO")), 12U);
    EXPECT_EQ(Records(terminal.Answer("33NO", 3)), 3U);
    EXPECT_EQ(Records(terminal.Answer("33OK")), 12U);
    EXPECT_EQ(terminal.Punches().Acquired(), 3U);
}

TEST(Terminal, ShowsTheMemoryInBlocksWithoutTouchingIt)
{
    Terminal terminal = MakeTerminal("numero=1,modello=Strale,timbrature=15");
    EXPECT_EQ(Records(terminal.Answer("300")), 10U);
    EXPECT_EQ(Records(terminal.Answer("301")), 5U);
    EXPECT_EQ(Records(terminal.Answer("30 1")), 5U);
    EXPECT_EQ(Records(terminal.Answer("300001")), 5U);
    EXPECT_EQ(terminal.Answer("302").data, "END");
    EXPECT_EQ(terminal.Answer("30").data, "ERRORE");
    EXPECT_EQ(terminal.Answer("30x").data, "ERRORE");
    EXPECT_EQ(Records(terminal.Answer("33OK")), 10U);
    terminal.Answer("300");
    EXPECT_EQ(Records(terminal.Answer("33OK")), 5U);
}

TEST(Terminal, ReadsAndSetsItsClock)
{
    Terminal terminal = MakeTerminal("numero=1,modello=SuperStrale,scarto=-60,versione=Rel. 9");
    EXPECT_EQ(terminal.Answer("03").data, "IN LINEA  15/03/06 Rel. 9 08:29:00");
    EXPECT_EQ(terminal.Answer("010603151207093").data, "OK");
    EXPECT_EQ(terminal.Answer("03").data, "IN LINEA  15/03/06 Rel. 9 12:07:09");
    EXPECT_EQ(terminal.Answer("01060315120709").data, "ERRORE");
}

TEST(Terminal, ReadsItsClockInTheLayoutOfItsModel)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Orlo II", "IN LINEA Mer 15/03/06 r 08:30:00"},
        {"Strale", "IN LINEA Mer 15/03/06 r 08:30:00"},
        {"Strale N", "IN LINEA Mer 15/03/06 r 08:30:00"},
        {"Lumo", "IN LINEA Mer 15/03/06 r 08:30:00"},
        {"OrloTre", "IN LINEA  15/03/06 r 08:30:00"},
        {"SuperStrale", "IN LINEA  15/03/06 r 08:30:00"},
    };
    for (const auto& [model, answer] : cases)
        EXPECT_EQ(
            MakeTerminal("numero=1,versione=r,modello=" + std::string(model)).Answer("03").data,
            answer)
            << model;
}

TEST(Terminal, KeepsTheBadgeLayoutUnderTheCodesOfItsModel)
{
    const std::pair<const char*, int> cases[] = {{"Orlo II", 9},     {"OrloTre", 9},
                                                 {"SuperStrale", 9}, {"Lumo", 9},
                                                 {"Strale N", 6},    {"Strale", 6}};
    for (const auto& [model, first] : cases) {
        SCOPED_TRACE(model);
        Terminal terminal =
            MakeTerminal("numero=1,badge=3/5/8/6/00123,modello=" + std::string(model));
        EXPECT_EQ(terminal.Answer("950009").data, first == 9 ? "003" : "006");
        EXPECT_EQ(terminal.Answer("950010").data, first == 9 ? "005" : "00123");
        EXPECT_EQ(terminal.Answer("950006").data, first == 9 ? "ERRORE" : "003");
        EXPECT_EQ(terminal.Answer("950013").data, first == 9 ? "00123" : "ERRORE");
    }
}

TEST(Terminal, StoresTheBadgeLayoutOnCommand)
{
    Terminal terminal = MakeTerminal("numero=1,modello=Strale");
    for (const char* command : {"940006 02", "940007 03", "940008 05", "940009 07", "940010 456"})
        EXPECT_EQ(terminal.Answer(command).data, "OK") << command;
    EXPECT_EQ(terminal.Answer("950009").data, "006");
    EXPECT_EQ(terminal.Answer("97STORE").data, "OK");
    EXPECT_EQ(terminal.Answer("950009").data, "007");
    EXPECT_EQ(terminal.Answer("950010").data, "456");
}

TEST(Terminal, RefusesABadgeParameterThatIsNotWellFormed)
{
    Terminal terminal = MakeTerminal("numero=1,modello=Strale");
    for (const char* command : {"94", "940006", "940006 ", "94000602", "940006 2", "940006 002",
                                "9406 02", "940011 02", "95", "9506", "950011", "950006 "})
        EXPECT_EQ(terminal.Answer(command).data, "ERRORE") << command;
}

TEST(Terminal, TakesBellsInTheLayoutOfItsModelOnly)
{
    const std::pair<const char*, bool> cases[] = {{"Orlo II", true},  {"Strale", true},
                                                  {"Strale N", true}, {"Lumo", true},
                                                  {"OrloTre", false}, {"SuperStrale", false}};
    for (const auto& [model, spaced] : cases) {
        SCOPED_TRACE(model);
        Terminal terminal = MakeTerminal("numero=1,modello=" + std::string(model));
        EXPECT_EQ(terminal.Answer("13 01 08 30 01111100 1 05").data, spaced ? "OK" : "ERRORE");
        EXPECT_EQ(terminal.Answer("1302 08 30 01111100 1 005").data, spaced ? "ERRORE" : "OK");
        EXPECT_EQ(terminal.Bells().Rings().size(), 1U);
        EXPECT_EQ(terminal.Bells().Rings().count(spaced ? 1 : 2), 1U);
        EXPECT_EQ(terminal.Answer("14CLEAR").data, "OK");
        EXPECT_TRUE(terminal.Bells().Rings().empty());
    }
}

TEST(Terminal, SaysThatACommandIsUnknown)
{
    Terminal terminal = MakeTerminal("numero=1,modello=Strale,timbrature=20");
    terminal.Answer("33OK");
    for (const char* command : {"", "0", "3", "19", "20", "31", "031", "32 ", "33", "33ok", "33OKK",
                                "14", "14clear", "97", "97STORED", "CIAO"})
        EXPECT_EQ(terminal.Answer(command).data, "COMANDO SCONOSCIUTO") << command;
    EXPECT_EQ(terminal.Punches().Acquired(), 0U);
}

TEST(Terminal, ObeysACommandToAllExceptTheTransfer)
{
    Terminal terminal = MakeTerminal("numero=1,modello=Strale,timbrature=20");
    terminal.Answer("33OK");
    EXPECT_THAT(terminal.Obey("33OK"), HasSubstr("ignorato"));
    EXPECT_EQ(terminal.Punches().Acquired(), 0U);
    EXPECT_THAT(terminal.Obey("010603151207093"), HasSubstr("regolato"));
    EXPECT_EQ(terminal.Clock().LastSetting(), "0603151207093");
}

}  // namespace
}  // namespace orlo::simulator
