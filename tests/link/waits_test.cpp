#include "link/waits.h"

#include "link/pressione_tasto_esc.h"
#include "tests/support/test_workstation.h"

#include <QTimer>

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

using namespace std::chrono_literals;

class Waits : public ::testing::Test
{
protected:
    testing::TestWorkstation pc;
    Workstation& workstation = pc.workstation;
};

TEST_F(Waits, TenthsAreTenthsOfASecond)
{
    for (const auto& [tenths, expected] :
         {std::pair{5, 500ms}, {10, 1000ms}, {15, 1500ms}, {20, 2000ms}, {50, 5000ms}}) {
        const auto before = pc.clock.Passed();
        WaitTenths(workstation, static_cast<std::int16_t>(tenths));
        const auto lasted = pc.clock.Passed() - before;
        EXPECT_GE(lasted, expected - 56ms) << tenths;
        EXPECT_LE(lasted, expected + 56ms) << tenths;
    }
}

TEST_F(Waits, WindowEventsRunDuringTenths)
{
    int fired = 0;
    QTimer::singleShot(0, [&] { ++fired; });
    WaitTenths(workstation, 5);
    EXPECT_EQ(fired, 1);
}

TEST_F(Waits, ElapsedIsZeroAfterMidnight)
{
    pc.clock.SetTimeOfDay(QTime(23, 59, 59));
    const float start = StartOfWait(pc.clock);
    pc.clock.Advance(2s);
    EXPECT_EQ(ElapsedSeconds(pc.clock, start), 0.0F);
}

TEST_F(Waits, WaitThatSpansMidnightEndsOnlyWhenTheOperatorSaysSo)
{
    pc.clock.SetTimeOfDay(QTime(23, 59, 59));
    pc.dialog.answer_yes = true;
    pc.clock.on_tick = [this] { pc.escape.pressed = pc.clock.Passed() >= 30s; };
    WaitTenths(workstation, 20);
    EXPECT_GE(pc.clock.Passed(), 30s) << "not at 00:00:01";
    EXPECT_LE(pc.clock.Passed(), 32s);
}

TEST_F(Waits, DelayOfZeroReturnsAtOnce)
{
    pc.clock.SetTimeOfDay(QTime(8, 0, 0, 700));
    WaitDelay(workstation, 0);
    EXPECT_EQ(pc.clock.Passed(), 0ms);
}

TEST_F(Waits, DelayEndsAtTheNearestWholeSecondHalfToEven)
{
    struct Case {
        const char* name;
        QTime now;
        float delay;
        QTime end;
    };
    const Case cases[] = {
        {"2.5 s from an even second goes down", QTime(8, 0, 0), 2.5F, QTime(8, 0, 2)},
        // The clock stands on a whole second only every five seconds, 91 steps.
        {"2.5 s from an odd second goes up", QTime(8, 0, 5), 2.5F, QTime(8, 0, 8)},
        {"half a second from an even second is nothing", QTime(8, 0, 0), 0.5F, QTime(8, 0, 0)},
        {"0.9 s rounds up", QTime(8, 0, 0), 0.9F, QTime(8, 0, 1)},
        {"0.2 s rounds down", QTime(8, 0, 0), 0.2F, QTime(8, 0, 0)},
    };
    for (const Case& c : cases) {
        pc.clock.SetTimeOfDay(c.now);
        WaitDelay(workstation, c.delay);
        const int late = c.end.msecsTo(pc.clock.Time());
        EXPECT_GE(late, 0) << c.name;
        EXPECT_LE(late, 60) << c.name;
    }
}

TEST_F(Waits, DelayThatRoundsPastMidnightEndsByItselfUnattended)
{
    pc.dialog.present = false;
    pc.clock.SetTimeOfDay(QTime(23, 59, 59));
    WaitDelay(workstation, 5);
    EXPECT_LE(pc.clock.Passed(), 16s);
}

struct EscCase {
    const char* name;
    bool pressed, held, answer, asked, result;
};

TEST_F(Waits, EscapeAsksOnlyAfterAShortPress)
{
    const EscCase cases[] = {
        {"not touched", false, false, true, false, false},
        {"held down", true, true, true, false, false},
        {"held since before", false, true, true, false, false},
        {"short press, Yes", true, false, true, true, true},
        {"short press, No", true, false, false, true, false},
    };
    for (const EscCase& c : cases) {
        pc.escape.pressed = c.pressed;
        pc.escape.held = c.held;
        pc.dialog.answer_yes = c.answer;
        pc.dialog.asked.clear();
        EXPECT_EQ(PressioneTastoEsc(workstation), c.result) << c.name;
        EXPECT_EQ(!pc.dialog.asked.empty(), c.asked) << c.name;
    }
}

TEST_F(Waits, EscapeQuestionHasItsTitleAndText)
{
    pc.escape.pressed = true;
    EXPECT_FALSE(PressioneTastoEsc(workstation));
    ASSERT_EQ(pc.dialog.asked.size(), 1U);
    EXPECT_EQ(pc.dialog.asked[0].title, QStringLiteral("Attenzione"));
    EXPECT_EQ(pc.dialog.asked[0].text, QStringLiteral("Si desidera interrompere la procedura?"));
    EXPECT_EQ(pc.dialog.asked[0].icon, DialogIcon::Question);
    EXPECT_TRUE(pc.dialog.asked[0].when_ending) << "nobody is there to say that it goes on";
}

TEST_F(Waits, EscapeLetsPendingEventsInFirst)
{
    pc.dialog.answer_yes = true;
    QTimer::singleShot(0, [this] { pc.escape.pressed = true; });
    EXPECT_TRUE(PressioneTastoEsc(workstation));
}

}  // namespace
}  // namespace orlo
