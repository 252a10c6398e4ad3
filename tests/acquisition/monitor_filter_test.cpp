#include "acquisition/monitor_filter.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

MonitorPunch Punch(const char* state)
{
    MonitorPunch punch;
    punch.number = 77;
    punch.badge = "100237";
    punch.date = "15/03/2006";
    punch.time = "09:55";
    punch.type = "Uscita";
    punch.cause = "0043";
    punch.state = state;
    return punch;
}

TEST(MonitorFilter, TextIsPartOfBadgeDateOrCauseOrBeginsTheTypeOrTheState)
{
    const struct {
        const char* text;
        bool passes;
    } cases[] = {
        {"", true},       {"100237", true},     {"0237", true},    {" 0237 ", true},
        {"15/03", true},  {"/2006", true},      {"0043", true},    {"Da Ac", true},
        {"da acq", true}, {"Acquisire", false}, {"100238", false}, {"77", false},
        {"09:55", false}, {"xyz", false},       {"uscita", true},  {"Usc", true},
        {"cita", false},  {"Entrata", false},
    };
    for (const auto& [text, passes] : cases)
        EXPECT_EQ(Passes(Punch("Da Acquisire"), {QString::fromLatin1(text), {}}), passes) << text;
}

TEST(MonitorFilter, BlanksAreNoFilter)
{
    EXPECT_TRUE((MonitorFilter{QStringLiteral("  "), {}}).IsEmpty());
    EXPECT_TRUE(Passes(Punch("Inviata"), {QStringLiteral("  "), {}}));
    EXPECT_FALSE((MonitorFilter{QStringLiteral(" 1 "), {}}).IsEmpty());
    EXPECT_FALSE((MonitorFilter{{}, QStringLiteral("Inviata")}).IsEmpty());
}

TEST(MonitorFilter, BadgeIsReadInTheCodePageOfTheLine)
{
    MonitorPunch punch = Punch("Inviata");
    punch.badge = "12\x80\xE8";
    EXPECT_TRUE(Passes(punch, {QStringLiteral("2€è"), {}}));
    EXPECT_FALSE(Passes(punch, {QStringLiteral("2\u0080"), {}}));
}

TEST(MonitorFilter, SentDoesNotMeanNotSent)
{
    EXPECT_TRUE(Passes(Punch("Inviata"), {QStringLiteral("Inviata"), {}}));
    EXPECT_FALSE(Passes(Punch("Non Inviata"), {QStringLiteral("Inviata"), {}}));
    EXPECT_TRUE(Passes(Punch("Non Inviata"), {QStringLiteral("non"), {}}));
}

TEST(MonitorFilter, StateIsTheWholeOneAndJoinsTheText)
{
    const QString sent = QStringLiteral("Inviata");
    EXPECT_TRUE(Passes(Punch("Inviata"), {{}, sent}));
    EXPECT_FALSE(Passes(Punch("Non Inviata"), {{}, sent}));
    EXPECT_TRUE(Passes(Punch("Inviata"), {QStringLiteral("1002"), sent}));
    EXPECT_FALSE(Passes(Punch("Inviata"), {QStringLiteral("999"), sent}));
    EXPECT_FALSE(Passes(Punch("Non Inviata"), {QStringLiteral("1002"), sent}));
}

}  // namespace
}  // namespace orlo
