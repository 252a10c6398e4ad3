// Clock, release, badge layout, bells and raw telegrams through the protocol component.

#include "tests/simulator/component_fixture.h"

#include <gmock/gmock.h>

namespace orlo::simulator
{
namespace
{

using testing::HasSubstr;
using testing::MatchesRegex;

using ComponentSettings = ComponentTest;

TEST_F(ComponentSettings, ReadTheClock)
{
    StartTerminal("");
    Client client(Line());
    ASSERT_TRUE(client.Time().Receive(client.terminal, client.priority));
    EXPECT_THAT(client.Time().Date(), MatchesRegex("[0-3][0-9]/[01][0-9]/[0-9]{4}"));
    EXPECT_THAT(client.Time().Time(), MatchesRegex("[0-2][0-9]:[0-5][0-9]:[0-5][0-9]"));
}

TEST_F(ComponentSettings, SetTheClockFromThePc)
{
    StartTerminal(",scarto=-864000");
    Client client(Line());
    ASSERT_TRUE(client.Time().Receive(client.terminal, client.priority));
    const std::string before = client.Time().Date();
    client.Time().GetSystem();
    const std::string today = client.Time().Date();
    EXPECT_NE(before, today) << "ten days slow";
    ASSERT_TRUE(client.Time().Send(client.terminal, client.priority));
    // The second may have changed between the reading of the clock and its setting.
    EXPECT_THAT(State(), testing::ContainsRegex("4.scarto=(0|-1|-2)\n"));
    ASSERT_TRUE(client.Time().Receive(client.terminal, client.priority));
    EXPECT_NE(client.Time().Date(), before);
}

TEST_F(ComponentSettings, SendNoTimeThatWasNotLoaded)
{
    StartTerminal("");
    Client client(Line());
    EXPECT_FALSE(client.Time().Send(client.terminal, client.priority));
    EXPECT_EQ(client.Time().ReceivedCommand(), "22,Valore errato");
}

TEST_F(ComponentSettings, TellTheRelease)
{
    StartTerminal(",versione=ABCDEFGHIJ");
    Client client(Line());
    ASSERT_TRUE(client.Version().Receive(client.terminal, client.priority));
    EXPECT_EQ(client.Version().LastBuild(), "ABCDEFGHIJ");
}

TEST_F(ComponentSettings, ReadTheBadgeLayout)
{
    StartTerminal("");
    Client client(Line());
    component::MCFormatData& format = client.Format();
    ASSERT_TRUE(format.Receive(client.terminal, client.priority));
    EXPECT_EQ(format.IDName(), "BADGE");
    EXPECT_EQ(format.Len(), 16);
    EXPECT_FALSE(format.Bidirectional());
    const std::pair<double, double> fields[] = {{1, 5}, {0, 0}, {6, 6}};
    for (std::int16_t index = 0; index < 3; ++index) {
        format.FieldIndex(index);
        EXPECT_EQ(format.FieldStart(), fields[index].first) << index;
        EXPECT_EQ(format.FieldLen(), fields[index].second) << index;
    }
}

void Fill(component::MCFormatData& format)
{
    for (std::int16_t index = 0; index < 3; ++index) {
        format.FieldIndex(index);
        format.FieldStart(index * 10 + 1);
        format.FieldLen(index + 4);
        format.FieldDefault(index);
    }
    format.IDName("TESSERA \xE8");
    format.Len(37);
    format.Bidirectional(true);
}

TEST_F(ComponentSettings, KeepTheBadgeLayoutForTheNextClient)
{
    StartTerminal("");
    {
        Client client(Line());
        Fill(client.Format());
        ASSERT_TRUE(client.Format().Send(client.terminal, client.priority));
    }
    EXPECT_THAT(State(), HasSubstr("4.formato=TESSERA \xE8/37/1/1/4/0/11/5/1/21/6/2\n"));
    Client client(Line());
    component::MCFormatData& format = client.Format();
    ASSERT_TRUE(format.Receive(client.terminal, client.priority));
    EXPECT_EQ(format.IDName(), "TESSERA \xE8");
    EXPECT_EQ(format.Len(), 37);
    EXPECT_TRUE(format.Bidirectional());
    format.FieldIndex(2);
    EXPECT_EQ(format.FieldStart(), 21);
    EXPECT_EQ(format.FieldLen(), 6);
}

TEST_F(ComponentSettings, RefuseABadgeLayoutThatCannotBe)
{
    StartTerminal("");
    Client client(Line());
    component::MCFormatData& format = client.Format();
    for (const double wrong : {2.5, -1.0, 100.0}) {
        Fill(format);
        format.FieldIndex(1);
        format.FieldStart(wrong);
        EXPECT_FALSE(format.Send(client.terminal, client.priority)) << wrong;
        EXPECT_EQ(format.ReceivedCommand(), "22,Valore errato");
        EXPECT_EQ(format.geterror(), "Valore errato");
    }
    EXPECT_THAT(State(), HasSubstr("4.formato=BADGE/16/0/1/5/0/0/0/0/6/6/0\n"));
}

TEST_F(ComponentSettings, TakeNoNoticeOfAFieldThatThereIsNot)
{
    StartTerminal("");
    Client client(Line());
    component::MCFormatData& format = client.Format();
    Fill(format);
    for (const std::int16_t index : std::initializer_list<std::int16_t>{-1, 3}) {
        format.FieldIndex(index);
        format.FieldStart(50);
        EXPECT_EQ(format.FieldStart(), 0) << index;
    }
    ASSERT_TRUE(format.Send(client.terminal, client.priority));
    EXPECT_THAT(State(), HasSubstr("/37/1/1/4/0/11/5/1/21/6/2\n"));
}

void Select(component::Rings& rings, std::int16_t day, std::int16_t index)
{
    rings.RingDay(day);
    rings.RingIndex(index);
}

TEST_F(ComponentSettings, KeepTheBellsOfEveryDay)
{
    StartTerminal("");
    {
        Client client(Line());
        for (std::int16_t day = 0; day < 7; ++day)
            for (std::int16_t index = 1; index <= 24; ++index) {
                Select(client.Rings(), day, index);
                client.Rings().RingHour(static_cast<std::int16_t>(index - 1));
                client.Rings().RingMinute(static_cast<std::int16_t>(day * 8));
                client.Rings().RingHowLong(static_cast<std::int16_t>(index % 11));
                ASSERT_TRUE(client.Rings().Send(client.terminal, client.priority));
            }
    }
    Client client(Line());
    component::Rings& rings = client.Rings();
    for (std::int16_t day = 0; day < 7; ++day) {
        ASSERT_TRUE(rings.Receive(client.terminal, client.priority, day));
        for (std::int16_t index = 1; index <= 24; ++index) {
            rings.RingIndex(index);
            EXPECT_EQ(rings.RingHour(), index - 1);
            EXPECT_EQ(rings.RingMinute(), day * 8);
            EXPECT_EQ(rings.RingHowLong(), index % 11);
        }
    }
    const std::string state = State();
    EXPECT_THAT(state, HasSubstr("4.suoneria_6_24=23:48 2\n"));
    EXPECT_THAT(state, testing::Not(HasSubstr("suoneria_0_11"))) << "it lasts nothing";
}

TEST_F(ComponentSettings, RefuseARingThatCannotBe)
{
    StartTerminal("");
    Client client(Line());
    component::Rings& rings = client.Rings();
    const struct {
        std::int16_t hour, minute, how_long;
    } cases[] = {{24, 0, 1}, {0, 60, 1}, {0, 0, 11}, {-1, 0, 1}};
    for (const auto& [hour, minute, how_long] : cases) {
        Select(rings, 2, 1);
        rings.RingHour(hour);
        rings.RingMinute(minute);
        rings.RingHowLong(how_long);
        EXPECT_FALSE(rings.Send(client.terminal, client.priority)) << hour << ":" << minute;
        EXPECT_EQ(rings.ReceivedCommand(), "22,Valore errato");
    }
    std::int16_t eighth_day = 7;
    EXPECT_FALSE(rings.Receive(client.terminal, client.priority, eighth_day));
    Select(rings, 0, 25);
    rings.RingHour(5);
    EXPECT_EQ(rings.RingHour(), 0) << "there is no 25th ring";
    EXPECT_FALSE(rings.Send(client.terminal, client.priority));
}

TEST_F(ComponentSettings, AcknowledgeTheTerminalsOwnPlantCodeOnly)
{
    StartTerminal(",impianto=0123");
    Client client(Line());
    std::string answer;
    EXPECT_TRUE(client.Tell("@@,0123", answer));
    EXPECT_EQ(client.Telegram().ReceivedCommand(), "");
    for (const char* command : {"@@,123", "@@,", "@@,01230"}) {
        EXPECT_FALSE(client.Tell(command, answer)) << command;
        EXPECT_EQ(client.Telegram().ReceivedCommand(), "23,Codice impianto errato");
    }
}

TEST_F(ComponentSettings, CarryParametersInAndDataOut)
{
    StartTerminal(",versione=V1");
    Client client(Line());
    std::string every_byte;
    for (int value = 0; value < 256; ++value) every_byte += static_cast<char>(value);
    std::string answer = every_byte;
    EXPECT_TRUE(client.Tell("ECO", answer));
    EXPECT_EQ(answer, every_byte);
    EXPECT_EQ(client.Telegram().ReceivedData(), every_byte);
    EXPECT_TRUE(client.Tell("VERSIONE", answer));
    EXPECT_EQ(answer, "V1");
    EXPECT_FALSE(client.Tell("", answer));
    EXPECT_EQ(client.Telegram().ReceivedCommand(), "20,Comando sconosciuto");
    EXPECT_EQ(client.Telegram().ReceivedData(), "");
}

TEST_F(ComponentSettings, SendNoTelegramThatIsTooLong)
{
    StartTerminal("");
    Client client(Line());
    std::string parameters(1024, 'x');
    EXPECT_FALSE(client.Tell("ECO", parameters));
    EXPECT_EQ(client.Telegram().ReceivedCommand(), "97,Telegramma troppo lungo");
}

}  // namespace
}  // namespace orlo::simulator
