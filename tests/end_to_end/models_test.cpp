#include "tests/end_to_end/installation.h"

#include <gtest/gtest.h>

namespace orlo::end_to_end
{
namespace
{

struct Model {
    const char* test_name;
    const char* name;
    int type;
    const char* entries;
    const char* exits;
    Jet version;
};

void PrintTo(const Model& model, std::ostream* out)
{
    *out << model.name;
}

const Model kModels[] = {
    {"OrloII", "Orlo II", 3, "9:", "12", Jet::k3},
    {"Strale", "Strale", 4, "9:", "12", Jet::k4},
    {"StraleN", "Strale N", 5, "9<", "14", Jet::k3},
    {"Lumo", "Lumo", 6, "9<", "14", Jet::k4},
    {"OrloTre", "OrloTre", 7, "98:", "102", Jet::k3},
    {"SuperStrale", "SuperStrale", 8, "9<", "14", Jet::k4},
};

class SerialModel : public testing::TestWithParam<Model>
{
protected:
    const Installation installation;

    /// Acquires 47 punches of terminal 7, which is of the model; the register has that layout.
    void Acquire(const std::vector<Punch>& punches, int layout)
    {
        installation.Write("timbrature", PunchSource(punches));
        const auto line = installation.Simulate(
            {"--terminale", std::string("numero=7,modello=") + GetParam().name +
                                ",file=" + installation.PathOf("timbrature")});
        installation.Register({{.terminal = 7, .type = GetParam().type}}, GetParam().version,
                              layout);
        const Ended ended = installation.Run({"--acquisisci", "7"});
        EXPECT_EQ(ended.status, 0);
        EXPECT_EQ(ended.errors, "");
        EXPECT_EQ(ended.output, "");
        EXPECT_EQ(line->State("7.acquisite"), std::to_string(punches.size()));
    }
};

TEST_P(SerialModel, FillsThePunchFileInTheStandardLayout)
{
    const std::vector<Punch> punches = VariedPunches(47);
    Acquire(punches, /*layout=*/0);
    EXPECT_EQ(installation.PunchLines(),
              StandardLines(punches, 7, GetParam().entries, GetParam().exits));
}

TEST_P(SerialModel, FillsThePunchFileInTheExtendedLayout)
{
    const std::vector<Punch> punches = VariedPunches(47);
    Acquire(punches, /*layout=*/1);
    EXPECT_EQ(installation.PunchLines(),
              ExtendedLines(punches, 7, GetParam().entries, GetParam().exits));
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, SerialModel, testing::ValuesIn(kModels),
                         [](const auto& model) { return model.param.test_name; });

// The formatter of these tests is held to lines written by hand.

const std::vector<Punch> kThreePunches = {
    {'9', "123456", "0001", "15", "03", "2006", "08", "30"},
    {'5', "000042", "0317", "31", "12", "2080", "23", "59"},
    {'2', "654321", "1234", "01", "01", "1981", "00", "00"},
};

TEST(PunchFileByHand, StandardLayout)
{
    const Installation installation;
    const auto line = installation.SimulateStrale(kThreePunches);
    installation.Register({{.terminal = 4}}, Jet::k4, /*layout=*/0);
    EXPECT_EQ(installation.Run({"--acquisisci", "4"}).status, 0);
    const std::string expected =
        "31200603150830000100001234560104\r\n"
        "31208012312359000000000000421704\r\n"
        "31198101010000000200006543213404\r\n";
    EXPECT_EQ(installation.Read("TIMBRAT.TXT"), expected);
}

TEST(PunchFileByHand, ExtendedLayout)
{
    const Installation installation;
    const auto line = installation.SimulateStrale(kThreePunches);
    installation.Register({{.terminal = 4}}, Jet::k4, /*layout=*/1);
    EXPECT_EQ(installation.Run({"--acquisisci", "4"}).status, 0);
    const std::string rest(222, ' ');
    const std::string entry = "    004 AZ   1234560 001150320060830" + rest + "\r\n";
    const std::string exit = "    004 AZ   6543211 234010119810000" + rest + "\r\n";
    // The second punch is neither entry nor exit: the line before it comes again.
    EXPECT_EQ(installation.Read("TIMBRAT.TXT"), entry + entry + exit);
}

}  // namespace
}  // namespace orlo::end_to_end
