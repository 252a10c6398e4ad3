#include "simulator/object_terminal.h"

#include "simulator/state_report.h"
#include "tests/simulator/wall.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orlo::simulator
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;

using Fields = std::vector<std::string>;

ObjectTerminal MakeObjectTerminal(std::string_view settings)
{
    return {ParseObjectTerminal(settings), StoppedClock()};
}

Fields Ask(ObjectTerminal& terminal, const Fields& request)
{
    return terminal.Answer(request).fields;
}

TEST(ObjectTerminal, TellsTimeOfItsOwnClock)
{
    ObjectTerminal terminal = MakeObjectTerminal("numero=1,modello=Orlo,scarto=3600");
    EXPECT_THAT(Ask(terminal, {"ora"}), ElementsAre("OK", "15/03/2006", "09:30:00"));
    EXPECT_THAT(Ask(terminal, {"regola", "31/12/2010", "23:59:58"}), ElementsAre("OK"));
    EXPECT_THAT(Ask(terminal, {"ora"}), ElementsAre("OK", "31/12/2010", "23:59:58"));
    EXPECT_THAT(Ask(terminal, {"regola", "31/02/2010", "23:59:58"}),
                ElementsAre("22,Valore errato"));
    EXPECT_THAT(Ask(terminal, {"regola", "31/12/2010", "24:00:00"}),
                ElementsAre("22,Valore errato"));
}

TEST(ObjectTerminal, RefusesWhatItDoesNotKnow)
{
    ObjectTerminal terminal = MakeObjectTerminal("numero=1,modello=Orlo");
    for (const Fields& request :
         {Fields{}, Fields{""}, Fields{"boh"}, Fields{"ora", "1"}, Fields{"record"},
          Fields{"telegramma", "ECO"}, Fields{"telegramma", "eco", ""}})
        EXPECT_THAT(Ask(terminal, request), ElementsAre("20,Comando sconosciuto"));
    for (const Fields& request : {Fields{"record", "x"}, Fields{"marca", "1"}, Fields{"marca", ""},
                                  Fields{"prossima", "1"}})
        EXPECT_THAT(Ask(terminal, request), ElementsAre("ER"));
}

TEST(ObjectTerminal, FindsTheNextRecordThatIsNotMarked)
{
    ObjectTerminal terminal = MakeObjectTerminal("numero=1,modello=Orlo,timbrature=4,acquisite=1");
    EXPECT_THAT(Ask(terminal, {"marca", "3"}), ElementsAre("OK"));
    EXPECT_EQ(Ask(terminal, {"prossima", "1"}).at(1), "2");
    EXPECT_EQ(Ask(terminal, {"prossima", "3"}).at(1), "4");
    EXPECT_THAT(Ask(terminal, {"prossima", "5"}), ElementsAre("ER"));
    EXPECT_THAT(Ask(terminal, {"stato"}), ElementsAre("OK", "4000", "3996", "2"));
    EXPECT_THAT(Ask(terminal, {"numero"}), ElementsAre("OK", "4"));
    EXPECT_EQ(Ask(terminal, {"record", "3"}).back(), "1");
    EXPECT_EQ(Ask(terminal, {"record", "4"}).back(), "0");
}

TEST(ObjectTerminal, ReportsItsState)
{
    std::vector<ObjectTerminal> terminals;
    terminals.push_back(
        MakeObjectTerminal("numero=9,modello=Sipa,timbrature=3,acquisite=1,scarto=-5"));
    Ask(terminals[0], {"metti-suoneria", "6", "2", "8", "5", "10"});
    EXPECT_EQ(StateReport(terminals),
              "9.modello=Sipa\n9.timbrature=3\n9.acquisite=1\n9.da_acquisire=2\n9.scarto=-5\n"
              "9.formato=BADGE/16/0/1/5/0/0/0/0/6/6/0\n9.suoneria_6_02=08:05 10\n");
}

TEST(ObjectTerminal, TellsTheRingsOfADayInTwoDigitsEach)
{
    ObjectTerminal terminal = MakeObjectTerminal("numero=1,modello=Orlo");
    Ask(terminal, {"metti-suoneria", "0", "24", "23", "59", "10"});
    const Fields answer = Ask(terminal, {"leggi-suonerie", "0"});
    ASSERT_EQ(answer.size(), 2U);
    EXPECT_EQ(answer[1], std::string(138, '0') + "235910");
    EXPECT_THAT(Ask(terminal, {"leggi-suonerie", "7"}), ElementsAre("22,Valore errato"));
    EXPECT_THAT(Ask(terminal, {"leggi-suonerie", ""}), ElementsAre("22,Valore errato"));
}

}  // namespace
}  // namespace orlo::simulator
