#include "link/object_modem_dial.h"

#include "link/display_errore_comunicazione.h"
#include "tests/support/fake_component.h"
#include "tests/support/test_workstation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orlo
{
namespace
{

using namespace std::chrono_literals;
using ::testing::ElementsAre;

class ObjectModem : public ::testing::Test
{
protected:
    testing::TestWorkstation pc;
    testing::FakeComponent component;
    std::unique_ptr<ComponentObjects> objects = component.Make();
    ObjectCall call{.terminal = 7,
                    .priority = 6,
                    .retries = 3,
                    .phone_number = "0464 910685",
                    .plant_code = "15"};

    bool Dial() { return ObjectModemDial(pc.workstation, *objects->TelegramObject, call); }
    /// Every call to the component takes that long.
    void EachCallTakes(std::chrono::milliseconds time)
    {
        component.on_call = [this, time](const std::string&) { pc.clock.Advance(time); };
    }
};

TEST_F(ObjectModem, DialsAndTellsThePlantCode)
{
    component.received_texts = {"", "", "CONNECT"};
    EXPECT_TRUE(Dial());
    EXPECT_THAT(component.calls,
                ElementsAre("SendString(\"ATD0464 910685\r\")", "ReceiveString(1000, true)",
                            "ReceiveString(1000, true)", "ReceiveString(1000, true)",
                            "SendTelegram(7, 6, \"@@,15\", \"\")"));
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(ObjectModem, PlantCodeIsRepeatedUpToTheRetriesWithAYieldAfterEach)
{
    component.received_texts = {"CONNECT"};
    component.acknowledged_try = 0;
    std::vector<std::chrono::milliseconds> at;
    component.on_call = [&](const std::string&) { at.push_back(pc.clock.Passed()); };
    EXPECT_TRUE(Dial());
    EXPECT_THAT(
        component.CallsOf("SendTelegram"),
        ElementsAre("SendTelegram(7, 6, \"@@,15\", \"\")", "SendTelegram(7, 6, \"@@,15\", \"\")",
                    "SendTelegram(7, 6, \"@@,15\", \"\")"));
    ASSERT_EQ(at.size(), 5U);
    EXPECT_GT(at[3], at[2]);
    EXPECT_GT(at[4], at[3]);
    EXPECT_GT(pc.clock.Passed(), at[4]) << "after the last one too";
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(ObjectModem, AcknowledgedPlantCodeIsNotRepeated)
{
    component.received_texts = {"CONNECT"};
    component.acknowledged_try = 2;
    EXPECT_TRUE(Dial());
    EXPECT_EQ(component.CallsOf("SendTelegram").size(), 2U);
}

TEST_F(ObjectModem, WithoutRetriesThePlantCodeIsNotSent)
{
    component.received_texts = {"CONNECT"};
    call.retries = 0;
    EXPECT_TRUE(Dial());
    EXPECT_TRUE(component.CallsOf("SendTelegram").empty());
}

TEST_F(ObjectModem, SilentModemIsToldAfterTenThousandReads)
{
    EXPECT_TRUE(Dial());
    EXPECT_EQ(component.CallsOf("ReceiveString").size(), 10000U);
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
    EXPECT_EQ(pc.dialog.told[0].title, QStringLiteral("Attenzione"));
    EXPECT_EQ(pc.dialog.told[0].text, QStringLiteral("Il Modem non risponde"));
    EXPECT_TRUE(component.CallsOf("SendTelegram").empty());
}

TEST_F(ObjectModem, AnswerToTheLastReadCounts)
{
    component.received_texts.assign(9999, "");
    component.received_texts.push_back("\r");
    EXPECT_TRUE(Dial());
    EXPECT_TRUE(pc.dialog.told.empty());
    EXPECT_EQ(component.CallsOf("SendTelegram").size(), 1U);
}

TEST_F(ObjectModem, EscapeEndsTheCallWithoutABox)
{
    EachCallTakes(10ms);
    pc.escape.pressed = true;
    pc.dialog.answer_yes = true;
    EXPECT_FALSE(Dial());
    // 100 reads of 10 ms behind the first look at the clock.
    EXPECT_EQ(component.CallsOf("ReceiveString").size(), 100U);
    EXPECT_TRUE(pc.dialog.told.empty());
    EXPECT_TRUE(component.CallsOf("SendTelegram").empty());
}

TEST_F(ObjectModem, EscapeEndsTheRepetitionOfThePlantCode)
{
    call.retries = 40;
    component.received_texts = {"CONNECT"};
    component.acknowledged_try = 0;
    component.on_call = [this](const std::string&) {
        pc.escape.pressed = component.CallsOf("SendTelegram").size() == 2;
    };
    pc.dialog.answer_yes = true;
    EXPECT_FALSE(Dial());
    EXPECT_EQ(component.CallsOf("SendTelegram").size(), 2U);
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(ObjectModem, TheEscapeThatClosesTheBoxIsNoWishToStop)
{
    pc.dialog.on_tell = [&] { pc.escape.pressed = true; };
    EXPECT_TRUE(Dial());
    EXPECT_FALSE(pc.escape.pressed);
}

TEST_F(ObjectModem, EscapeIsLookedForOnceASecond)
{
    component.on_call = [&](const std::string&) {
        pc.clock.Advance(10ms);
        pc.escape.pressed = true;
    };
    component.received_texts.assign(549, "");
    component.received_texts.push_back("CONNECT");
    EXPECT_TRUE(Dial());
    EXPECT_EQ(pc.dialog.asked.size(), 5U) << "in five and a half seconds";
    EXPECT_EQ(component.CallsOf("SendTelegram").size(), 1U);
}

TEST_F(ObjectModem, PulseDropsAndRaisesDtrThenYields)
{
    ObjectPulseDtr(pc.workstation, *objects->TelegramObject, /*by_modem=*/true);
    EXPECT_THAT(component.calls, ElementsAre("DTR(false)", "DTR(true)"));
    EXPECT_GT(pc.clock.Passed(), 0ms);
}

TEST_F(ObjectModem, PulseLeavesADirectLineAlone)
{
    ObjectPulseDtr(pc.workstation, *objects->TelegramObject, /*by_modem=*/false);
    EXPECT_TRUE(component.calls.empty());
    EXPECT_EQ(pc.clock.Passed(), 0ms);
}

TEST(DisplayErroreComunicazione, IsAlwaysTrue)
{
    EXPECT_TRUE(DisplayErroreComunicazione(QString()));
    EXPECT_TRUE(DisplayErroreComunicazione(QStringLiteral("21,Errore linea")));
}

}  // namespace
}  // namespace orlo
