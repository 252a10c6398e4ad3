// Each of these dials in real time, some twenty seconds of pauses. The silence of a modem, 250
// seconds of it, is waited for on a clock that is moved by hand, in the tests of the modem session.

#include "tests/end_to_end/installation.h"
#include "tests/end_to_end/journal_pipe.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

namespace orlo::end_to_end
{
namespace
{

constexpr char kDialled[] = "AT AT ATZQ0E0V1X1 AT AT ATD+39 0464/123456";

/// Whether no program has the port: each takes a lock on it.
bool IsFree(const std::string& device)
{
    const int port = open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    const bool locked = port >= 0 && flock(port, LOCK_EX | LOCK_NB) == 0;
    if (port >= 0) close(port);
    return locked;
}

/// Terminal 5, a Strale with 3 punches, behind a modem on COM1; terminal 4 without one on COM2.
class ModemOutcome : public testing::Test
{
protected:
    const Installation installation;
    const std::vector<Punch> punches = VariedPunches(3);
    std::unique_ptr<SimulatedLine> modem_line;
    JournalPipe direct_journal{installation.PathOf("com2.registro")};
    std::unique_ptr<SimulatedLine> direct_line;

    void SetUp() override
    {
        installation.Register({{.terminal = 5, .modem = true}, {.terminal = 4, .port = 2}});
        installation.Write("timbrature", PunchSource(punches));
        direct_line = Simulate(4, "com2", {"--attesa", "500"});
    }
    void SimulateModem(const std::vector<std::string>& modem)
    {
        modem_line = Simulate(5, "com1", modem);
    }

    /// Terminal 5 ends as not done, and its port is closed while terminal 4 is acquired.
    void ExpectNotDone(ChildProcess& program, const std::string& caption)
    {
        EXPECT_TRUE(direct_journal.WaitFor("32"));
        EXPECT_TRUE(modem_line == nullptr || IsFree(installation.PathOf("com1")));
        const Ended ended = program.Wait();
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.errors, "Terminale 5 non acquisito: " + caption + "\n");
        EXPECT_EQ(installation.PunchLines(), StandardLines(punches, 4, "9:", "12"));
    }
    std::unique_ptr<ChildProcess> Start() const
    {
        return installation.Start({"--acquisisci", "5,4"});
    }

private:
    std::unique_ptr<SimulatedLine> Simulate(int number, const char* device,
                                            const std::vector<std::string>& more) const
    {
        std::vector<std::string> arguments = {
            "--terminale", "numero=" + std::to_string(number) +
                               ",modello=Strale,file=" + installation.PathOf("timbrature")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return installation.Simulate(arguments, device);
    }
};

struct Refusal {
    const char* name;
    /// In the simulator's words.
    std::vector<std::string> modem;
    const char* commands;
    const char* caption;
};

void PrintTo(const Refusal& refusal, std::ostream* out)
{
    *out << refusal.name;
}

class RefusedCall : public ModemOutcome, public testing::WithParamInterface<Refusal>
{
};

TEST_P(RefusedCall, IsNotDoneWithItsCaptionAndLosesNothing)
{
    SimulateModem(GetParam().modem);
    const auto program = Start();
    ExpectNotDone(*program, GetParam().caption);
    EXPECT_EQ(modem_line->Commands(), GetParam().commands);
    EXPECT_EQ(modem_line->State("5.da_acquisire"), "3");
}

const Refusal kRefusals[] = {
    {"NoCarrier", {"--modem", "esito=NO CARRIER,attesa=500"}, kDialled, "Modem Line No Carrier"},
    {"NoDialTone",
     {"--modem", "esito=NO DIAL TONE,attesa=500"},
     kDialled,
     "Modem Line No Dial Tone"},
    {"Busy", {"--modem", "esito=BUSY,attesa=500"}, kDialled, "Modem Line Busy"},
    {"NoModem", {}, "", "Modem Init Error"},
};

INSTANTIATE_TEST_SUITE_P(EndToEnd, RefusedCall, testing::ValuesIn(kRefusals),
                         [](const auto& refusal) { return refusal.param.name; });

TEST_F(ModemOutcome, LineLostWhileTheModemDialsIsNotConnected)
{
    JournalPipe modem_journal(installation.PathOf("com1.registro"));
    SimulateModem({"--modem", "esito=silenzio"});
    const auto program = Start();
    ASSERT_TRUE(modem_journal.WaitFor("ATD+39 0464/123456"));
    // Whoever is connected has the port.
    EXPECT_FALSE(IsFree(installation.PathOf("com1")));
    modem_line.reset();
    ExpectNotDone(*program, "Modem Not Connected");
}

TEST_F(ModemOutcome, ModemThatSpeaksByteByByteAndEchoesIsUnderstood)
{
    SimulateModem({"--modem", "attesa=500,byte-singoli=20"});
    const Ended ended = Start()->Wait();
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(modem_line->Commands(), std::string(kDialled) + " 32 33OK 32 33OK 32 +++ ATH");
    EXPECT_EQ(installation.PunchLines().size(), 6U);
    EXPECT_EQ(modem_line->State("5.da_acquisire"), "0");
}

}  // namespace
}  // namespace orlo::end_to_end
