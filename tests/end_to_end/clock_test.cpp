#include "tests/end_to_end/installation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orlo::end_to_end
{
namespace
{

using testing::HasSubstr;

struct Model {
    const char* test_name;
    const char* name;
    int type;
};

void PrintTo(const Model& model, std::ostream* out)
{
    *out << model.name;
}

const Model kModels[] = {
    {"OrloII", "Orlo II", 3}, {"Strale", "Strale", 4},   {"StraleN", "Strale N", 5},
    {"Lumo", "Lumo", 6},      {"OrloTre", "OrloTre", 7}, {"SuperStrale", "SuperStrale", 8},
};

class SerialClock : public testing::TestWithParam<Model>
{
};

TEST_P(SerialClock, IsSetUnattendedAndItsAcceptedFieldsAreThePcsTime)
{
    const Installation installation;
    const auto line = installation.Simulate(
        {"--terminale", std::string("numero=7,modello=") + GetParam().name + ",scarto=-7200"});
    installation.Register({{.terminal = 7, .type = GetParam().type}});
    EXPECT_EQ(line->State("7.scarto"), "-7200");
    const Ended ended = installation.Run({"--sincronizza", "7"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(ended.output, "");
    // A second may have ended between the PC's reading and the terminal's.
    EXPECT_LE(std::abs(std::stoi(line->State("7.scarto"))), 1);
    const std::string command = line->Commands();
    ASSERT_EQ(command.size(), 15U) << command;
    EXPECT_EQ(command.substr(0, 2), "01");
    EXPECT_EQ(command.find_first_not_of("0123456789"), std::string::npos) << command;
    EXPECT_LE(command.back(), '6') << "the day of the week";
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, SerialClock, testing::ValuesIn(kModels),
                         [](const auto& model) { return model.param.test_name; });

class ClockFailure : public testing::Test
{
protected:
    const Installation installation;

    std::unique_ptr<SimulatedLine> Line(const char* fault) const
    {
        installation.Register({{.terminal = 4}, {.terminal = 5, .active = false}});
        return installation.Simulate(
            {"--terminale", "numero=4,modello=Strale,scarto=60", "--guasto", fault});
    }
};

TEST_F(ClockFailure, SilentTerminalIsNotDone)
{
    const auto line = Line("*:richiesta-persa");
    const Ended ended = installation.Run({"--sincronizza", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 4 non sincronizzato: Timeout\n");
    EXPECT_EQ(line->State("4.scarto"), "60");
}

TEST_F(ClockFailure, BadFrameIsNotDone)
{
    const auto line = Line("*:checksum-errato");
    const Ended ended = installation.Run({"--sincronizza", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.errors, HasSubstr("Terminale 4 non sincronizzato: "));
}

TEST_F(ClockFailure, EachTerminalThatWasNotDoneIsNamed)
{
    const auto line = Line("99:silenzio");
    const Ended ended = installation.Run({"--sincronizza", "5,9,4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors,
              "Terminale 5 non sincronizzato: non è attivo\n"
              "Terminale 9 non sincronizzato: non è nel registro\n");
    EXPECT_NE(line->State("4.scarto"), "60");
}

TEST_F(ClockFailure, MissingDeviceIsNotDone)
{
    installation.Register({{.terminal = 4}});
    const Ended ended = installation.Run({"--sincronizza", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 4 non sincronizzato: Errore aprendo la COM\n");
}

TEST_F(ClockFailure, PunchesAreAcquiredBeforeClocksAreSet)
{
    const auto line = Line("99:silenzio");
    const Ended ended = installation.Run({"--sincronizza", "4", "--acquisisci", "4"});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_EQ(line->Commands().substr(0, 2), "32");
    EXPECT_THAT(line->Commands("01"), testing::Not(""));
}

}  // namespace
}  // namespace orlo::end_to_end
