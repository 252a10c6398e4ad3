#pragma once

#include "tests/end_to_end/installation.h"

#include <gtest/gtest.h>

#include <ostream>

namespace orlo::end_to_end
{

// What several tests expect: the requests of an acquisition without trouble, and the complaint
// about a terminal that does not answer.
inline constexpr char kSmooth[] = "32 33OK 32 33OK 32 33OK 32 33OK 32";
inline constexpr char kTimeout[] = "Terminale 4 non acquisito: Timeout\n";

/// A terminal 4, a Strale, that holds 25 punches: it hands over answers 1, 2 and 3 of ten, ten and
/// five punches, then answer 4, which is empty. Something happens to the line on the way.
struct FaultCase {
    const char* name;
    /// In the simulator's words.
    const char* fault;
    /// What goes over the line in the first run of the program.
    const char* requests;
    /// Answers in the punch file after that, e.g. "1 2 2 3" when answer 2 is there twice.
    const char* answers;
    /// Standard error of the first run; empty when it did all there was to do.
    const char* complaint = "";
    /// Answers in the punch file after a second run; empty when the first needs no second.
    const char* answers_in_the_end = "";
};

inline void PrintTo(const FaultCase& fault_case, std::ostream* out)
{
    *out << fault_case.name;
}

class FaultTest : public testing::Test
{
protected:
    const Installation installation;
    const std::vector<Punch> punches = VariedPunches(25);

    /// The lines of those answers.
    Lines Answers(const std::string& numbers) const
    {
        Lines lines;
        for (const char number : numbers) {
            if (number == ' ') continue;
            const auto first = punches.begin() + (number - '1') * 10;
            const auto last = number == '3' ? punches.end() : first + 10;
            const Lines answer = StandardLines({first, last}, 4, "9:", "12");
            lines.insert(lines.end(), answer.begin(), answer.end());
        }
        return lines;
    }
};

/// One case from its first run to its end: the test stands in fault_case_test.cpp, the cases in
/// files by what goes wrong.
class LineFault : public FaultTest, public testing::WithParamInterface<FaultCase>
{
protected:
    void RunThroughTheFault() const
    {
        installation.Register({{.terminal = 4}});
        const auto line = installation.SimulateStrale(punches, {"--guasto", GetParam().fault});
        const bool all_done = std::string(GetParam().complaint).empty();

        const Ended first = installation.Run({"--acquisisci", "4"});
        EXPECT_EQ(first.errors, GetParam().complaint);
        EXPECT_EQ(first.status, all_done ? 0 : 1);
        EXPECT_EQ(line->Commands(), GetParam().requests);
        EXPECT_EQ(installation.PunchLines(), Answers(GetParam().answers));
        if (!all_done) RunAgain(*line);
        EXPECT_EQ(line->State("4.da_acquisire"), "0");
    }

private:
    void RunAgain(SimulatedLine& line) const
    {
        const bool line_fell = std::string(GetParam().fault).find("caduta") != std::string::npos;
        if (line_fell) line.WaitForReturn();
        const Ended second = installation.Run({"--acquisisci", "4"});
        EXPECT_EQ(second.errors, "");
        EXPECT_EQ(second.status, 0);
        EXPECT_EQ(installation.PunchLines(), Answers(GetParam().answers_in_the_end));
    }
};

inline std::string NameOf(const testing::TestParamInfo<FaultCase>& fault_case)
{
    return fault_case.param.name;
}

}  // namespace orlo::end_to_end
