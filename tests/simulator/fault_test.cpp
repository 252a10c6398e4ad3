#include "simulator/fault.h"

#include "simulator/fault_plan.h"
#include "simulator/usage_error.h"

#include <gtest/gtest.h>

namespace orlo::simulator
{
namespace
{

TEST(ParseFault, KnowsEveryNameAndItsValue)
{
    struct Case {
        const char* text;
        FaultKind kind;
        int value;
    };
    // clang-format off
    const Case cases[] = {
        {"richiesta-persa", FaultKind::LostRequest,    0},
        {"silenzio",        FaultKind::LostAnswer,     0},
        {"ritardo",         FaultKind::LateAnswer,     2500},
        {"ritardo=100",     FaultKind::LateAnswer,     100},
        {"checksum-errato", FaultKind::WrongChecksum,  0},
        {"senza-cr",        FaultKind::NoCr,           0},
        {"troncata",        FaultKind::CutAnswer,      0},
        {"troncata=7",      FaultKind::CutAnswer,      7},
        {"byte-mancanti",   FaultKind::MissingBytes,   1},
        {"rumore-prima",    FaultKind::NoiseBefore,    5},
        {"rumore-dopo=9",   FaultKind::NoiseAfter,     9},
        {"byte-singoli=20", FaultKind::ByteByByte,     20},
        {"caduta",          FaultKind::HangUp,         300},
        {"troppi-record",   FaultKind::TooManyRecords, 11},
        {"record-corto",    FaultKind::ShortRecord,    4},
        {"cr-prima",        FaultKind::CrBeforeSoh,    0},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const Fault fault = ParseFault(c.text);
        EXPECT_EQ(fault.kind, c.kind);
        EXPECT_EQ(fault.value, c.value);
        const std::string_view text = c.text;
        EXPECT_EQ(FaultName(c.kind), text.substr(0, text.find('=')));
    }
}

TEST(ParseFault, TakesTheCodeOfARefusalAsItStands)
{
    const FaultRule rule = ParseFaultRule("prossima#2:esito=21,Errore linea");
    EXPECT_EQ(rule.command, "prossima");
    EXPECT_EQ(rule.nth, 2);
    EXPECT_EQ(rule.fault.kind, FaultKind::Refusal);
    EXPECT_EQ(rule.fault.text, "21,Errore linea");
    for (const char* text : {"esito", "esito="}) EXPECT_THROW(ParseFault(text), UsageError) << text;
}

TEST(ParseFault, RefusesWhatItDoesNotKnow)
{
    for (const char* text : {"", "rumore", "silenzio=1", "ritardo=", "ritardo=x", "ritardo=0",
                             "ritardo=-5", "Silenzio"})
        EXPECT_THROW(ParseFault(text), UsageError) << text;
}

TEST(ParseFaultRule, RefusesWhatNamesNoRequest)
{
    for (const char* text : {"silenzio", ":silenzio", "0:silenzio", "33#:silenzio", "33#0:silenzio",
                             "x:silenzio", "33OK:silenzio", "1:", "1:boh"})
        EXPECT_THROW(ParseFaultRule(text), UsageError) << text;
}

/// Which of the requests are hit, as their numbers from 1.
std::string Hits(const char* rule)
{
    FaultPlan plan({ParseFaultRule(rule)});
    std::string hits;
    int number = 0;
    for (const char* command : {"32", "33OK", "32", "33NO", "33OK", "03"}) {
        ++number;
        if (!plan.Next(command).empty()) hits += std::to_string(number);
    }
    return hits;
}

TEST(FaultPlan, HitsTheRequestsOfItsRule)
{
    EXPECT_EQ(Hits("1:silenzio"), "1");
    EXPECT_EQ(Hits("4:silenzio"), "4");
    EXPECT_EQ(Hits("7:silenzio"), "");
    EXPECT_EQ(Hits("33#2:silenzio"), "4");
    EXPECT_EQ(Hits("33OK#2:silenzio"), "5");
    EXPECT_EQ(Hits("33*:silenzio"), "245");
    EXPECT_EQ(Hits("3*:silenzio"), "12345");
    EXPECT_EQ(Hits("*:silenzio"), "123456");
    EXPECT_EQ(Hits("#3:silenzio"), "3");
}

TEST(FaultPlan, GivesEveryFaultOfARequestInTheOrderOfTheRules)
{
    FaultPlan plan({ParseFaultRule("33*:rumore-prima"), ParseFaultRule("2:ritardo=7")});
    EXPECT_TRUE(plan.Next("32").empty());
    const auto faults = plan.Next("33OK");
    ASSERT_EQ(faults.size(), 2U);
    EXPECT_EQ(faults[0].kind, FaultKind::NoiseBefore);
    EXPECT_EQ(faults[1].kind, FaultKind::LateAnswer);
    EXPECT_EQ(faults[1].value, 7);
}

}  // namespace
}  // namespace orlo::simulator
