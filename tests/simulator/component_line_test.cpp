// What can go wrong on the line of the protocol component, and raw strings for a modem.

#include "simulator/pseudo_terminal.h"
#include "tests/simulator/component_fixture.h"
#include "tests/support/file_permissions.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <poll.h>
#include <sys/file.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

namespace orlo::simulator
{
namespace
{

using namespace std::chrono_literals;

using Clock = std::chrono::steady_clock;
using ComponentLine = ComponentTest;

struct FailureCase {
    const char* name;
    const char* fault;
    const char* code;  // empty: the transfer succeeds all the same
};

void PrintTo(const FailureCase& failure, std::ostream* out)
{
    *out << failure.fault;
}

class ComponentFailure : public ComponentTest, public ::testing::WithParamInterface<FailureCase>
{
};

TEST_P(ComponentFailure, HasItsCodeOnceAndNotAgain)
{
    StartTerminal(",timbrature=3", {"--guasto", std::string("stato#1:") + GetParam().fault});
    Client client(Line());
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(client.Status(), *GetParam().code == '\0');
    EXPECT_LT(Clock::now() - start, 2500ms);
    EXPECT_EQ(client.Records().ReceivedCommand(), GetParam().code);
    // A late answer, too, must not be taken for the answer to what is asked then.
    ASSERT_TRUE(client.Record(2));
    EXPECT_EQ(client.Records().TerminalNo(), "4");
    EXPECT_EQ(client.Records().ReceivedCommand(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Each, ComponentFailure,
    ::testing::Values(FailureCase{"EndOfRecords", "esito=ER", "ER"},
                      FailureCase{"Given", "esito=21,Errore linea", "21,Errore linea"},
                      FailureCase{"LostRequest", "richiesta-persa", "99,Time Out"},
                      FailureCase{"LostAnswer", "silenzio", "99,Time Out"},
                      FailureCase{"LateAnswer", "ritardo=2100", "99,Time Out"},
                      FailureCase{"WrongCheck", "checksum-errato", "99,Time Out"},
                      FailureCase{"CutAnswer", "troncata", "99,Time Out"},
                      FailureCase{"MissingBytes", "byte-mancanti=3", "99,Time Out"},
                      FailureCase{"NoiseBefore", "rumore-prima=300", ""},
                      FailureCase{"NoiseAfter", "rumore-dopo=300", ""},
                      FailureCase{"ByteByByte", "byte-singoli=5", ""}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(ComponentLine, AnswersAllMembersWithTheCodeOfTheFailure)
{
    StartTerminal("", {"--guasto", "*:esito=21,Errore linea"});
    Client client(Line());
    std::string text;
    std::int16_t day = 0;
    client.Time().GetSystem();
    EXPECT_FALSE(client.Status());
    EXPECT_FALSE(client.Records().GetNumber(client.terminal, client.priority));
    EXPECT_FALSE(client.Next());
    EXPECT_FALSE(client.Record(1));
    EXPECT_EQ(client.Records().ReceivedCommand(), "21,Errore linea");
    EXPECT_FALSE(client.Time().Receive(client.terminal, client.priority));
    EXPECT_FALSE(client.Time().Send(client.terminal, client.priority));
    EXPECT_EQ(client.Time().ReceivedCommand(), "21,Errore linea");
    EXPECT_FALSE(client.Version().Receive(client.terminal, client.priority));
    EXPECT_EQ(client.Version().ReceivedCommand(), "21,Errore linea");
    EXPECT_FALSE(client.Format().Receive(client.terminal, client.priority));
    EXPECT_FALSE(client.Format().Send(client.terminal, client.priority));
    EXPECT_EQ(client.Format().geterror(), "Errore linea");
    EXPECT_FALSE(client.Rings().Receive(client.terminal, client.priority, day));
    EXPECT_FALSE(client.Rings().Send(client.terminal, client.priority));
    EXPECT_EQ(client.Rings().ReceivedCommand(), "21,Errore linea");
    EXPECT_FALSE(client.Tell("@@,00001", text));
    EXPECT_EQ(client.Telegram().ReceivedCommand(), "21,Errore linea");
}

TEST_F(ComponentLine, IsNotOpenBeforeAndAfter)
{
    StartTerminal("");
    Client client(Line());
    client.Telegram().endcomunication();
    EXPECT_FALSE(client.Status());
    EXPECT_EQ(client.Records().ReceivedCommand(), "98,Linea non aperta");
    client.Telegram().SendString("AT\r");
    EXPECT_EQ(client.Telegram().ReceiveString(1000, true), "");
    client.Open(1);
    EXPECT_TRUE(client.Status());
    client.Open(1);
    EXPECT_TRUE(client.Status()) << "opened again while it was open";
}

TEST_F(ComponentLine, TheEchoOfAModemIsNoAnswer)
{
    for (const char* echo : {"1", "0"}) {
        StartTerminal("", {"--modem", std::string("attesa=50,eco=") + echo});
        Client client(Line());
        client.Telegram().SendString("ATD0551\r");
        std::string heard;
        for (int read = 0; read < 1000 && heard.empty(); ++read)
            heard = client.Telegram().ReceiveString(1000, true);
        EXPECT_THAT(heard, ::testing::HasSubstr("CONNECT")) << "echo " << echo;
        EXPECT_EQ(heard.find("ATD"), std::string::npos) << "echo " << echo;
    }
}

TEST_F(ComponentLine, SaysWhyADeviceCannotBeOpened)
{
    std::ofstream(PathOf("file")) << "no device\n";
    const PseudoTerminal taken(PathOf("occupata"));
    const Port holder(PathOf("occupata"));
    const FileDescriptor lock(open(PathOf("occupata").c_str(), O_RDWR | O_NOCTTY), "open");
    ASSERT_EQ(flock(lock.Get(), LOCK_EX | LOCK_NB), 0);
    const struct {
        std::string device;
        std::int16_t port;
        std::int32_t speed;
        const char* code;
    } cases[] = {
        {PathOf("niente"), 1, 9600, "98,COM1 non si apre: dispositivo non trovato"},
        {PathOf("file"), 1, 9600, "98,COM1 non si apre: dispositivo non seriale"},
        {PathOf("occupata"), 1, 9600, "98,COM1 non si apre: usata da un altro programma"},
        {Line(), 1, 9601, "98,COM1 non si apre: non conosce 9601 bit/s"},
        {Line(), 2, 9600, "98,COM2 non assegnata"},
        {Line(), 0, 9600, "98,COM0 non esiste"},
        {Line(), 5, 9600, "98,COM5 non esiste"},
        {Line(), -1, 9600, "98,COM-1 non esiste"},
    };
    StartTerminal("");
    for (const auto& [device, port, speed, code] : cases) {
        Client client(device);
        client.Open(port, speed);
        EXPECT_FALSE(client.Status());
        EXPECT_EQ(client.Records().ReceivedCommand(), code);
    }
}

TEST_F(ComponentLine, SaysThatADeviceIsNotForThisUser)
{
    std::ofstream(PathOf("altrui")) << "not to be opened\n";
    std::filesystem::permissions(PathOf("altrui"), std::filesystem::perms::none);
    StartTerminal("");
    const orlo::testing::HeededPermissions heeded;
    Client client(PathOf("altrui"));
    client.Open(1, 9600);
    EXPECT_FALSE(client.Status());
    EXPECT_EQ(client.Records().ReceivedCommand(), "98,COM1 non si apre: permesso negato");
}

TEST_F(ComponentLine, IsHeldByOneClientAtATime)
{
    StartTerminal("");
    Client first(Line());
    ASSERT_TRUE(first.Status());
    Client second(Line());
    EXPECT_FALSE(second.Status());
    EXPECT_EQ(second.Records().ReceivedCommand(),
              "98,COM1 non si apre: usata da un altro programma");
    ASSERT_TRUE(first.Status()) << "undisturbed";
    first.Telegram().endcomunication();
    second.Open(1);
    EXPECT_TRUE(second.Status());
}

TEST_F(ComponentLine, FailsAtOnceWhenItHangsUpAndWorksWhenOpenedAgain)
{
    StartTerminal(",timbrature=2", {"--guasto", "prossima#1:caduta=1"});
    Client client(Line());
    const Clock::time_point start = Clock::now();
    EXPECT_FALSE(client.Next());
    EXPECT_LT(Clock::now() - start, 1500ms) << "no waiting for a line that is gone";
    EXPECT_EQ(client.Records().ReceivedCommand(), "98,COM1 caduta");
    EXPECT_FALSE(client.Status());
    EXPECT_EQ(client.Records().ReceivedCommand(), "98,COM1 caduta");
    ASSERT_EQ(Simulator().Line(), "Caduta: " + Line());
    ASSERT_EQ(Simulator().Line(), "Pronto: " + Line());
    client.Open(1);
    ASSERT_TRUE(client.Status());
    EXPECT_EQ(client.Records().TrasmittedRecords(), 0);
}

TEST_F(ComponentLine, ServesTheTerminalsOfOneLineByTheirNumbers)
{
    StartTerminal(",timbrature=3",
                  {"--terminale", "numero=5,modello=Sipa,timbrature=7", "--velocita", "38400"});
    Client client(Line(), 38400);
    ASSERT_TRUE(client.Records().GetNumber(client.terminal, client.priority));
    EXPECT_EQ(client.Records().Records(), 3);
    client.terminal = 5;
    ASSERT_TRUE(client.Records().GetNumber(client.terminal, client.priority));
    EXPECT_EQ(client.Records().Records(), 7);
    ASSERT_TRUE(client.Version().Receive(client.terminal, client.priority));
    EXPECT_EQ(client.Version().LastBuild(), "Sep 21 2005 09:12:45");
}

/// The far end of a line as noise makes it: bytes of any value without end.
class NoisyLine
{
public:
    explicit NoisyLine(const std::string& link, unsigned seed)
        : pty_(link), noise_([this, seed] { Shout(seed); })
    {
    }
    NoisyLine(const NoisyLine&) = delete;
    NoisyLine& operator=(const NoisyLine&) = delete;
    ~NoisyLine()
    {
        quiet_ = true;
        noise_.join();
    }

private:
    void Shout(unsigned seed)
    {
        std::mt19937 engine(seed);
        while (!quiet_) {
            std::string bytes(64, '\0');
            for (char& byte : bytes) byte = static_cast<char>(engine() & 0xFFU);
            pty_.Write(bytes);
            pollfd line{pty_.Descriptor(), POLLOUT, 0};
            poll(&line, 1, 5);
        }
    }

    PseudoTerminal pty_;
    std::atomic<bool> quiet_ = false;
    std::thread noise_;
};

TEST_F(ComponentLine, GivesUpOnALineFullOfNoise)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(::testing::Message() << "seed " << seed);
    const NoisyLine noise(Line(), seed);
    Client client(Line());
    EXPECT_FALSE(client.Status());
    EXPECT_EQ(client.Records().ReceivedCommand(), "99,Time Out");
}

/// The test at the far end, byte by byte.
class ComponentRaw : public ComponentTest
{
protected:
    void SetUp() override
    {
        ComponentTest::SetUp();
        pty_.emplace(Line());
        client_.emplace(Line());
    }

    std::string Arrived(std::size_t bytes)
    {
        std::string text;
        pollfd line{pty_->Descriptor(), POLLIN, 0};
        while (text.size() < bytes && poll(&line, 1, 5000) == 1) text += pty_->Read();
        return text;
    }

    std::optional<PseudoTerminal> pty_;
    std::optional<Client> client_;
};

TEST_F(ComponentRaw, SendsStringsAsTheyAre)
{
    client_->Telegram().SendString(std::string("ATD0123\r\n\x00\x11\x13\xFF", 13));
    EXPECT_EQ(Arrived(13), std::string("ATD0123\r\n\x00\x11\x13\xFF", 13));
}

TEST_F(ComponentRaw, ReceivesWhatHasArrivedOrNothing)
{
    component::TelegramComunication& line = client_->Telegram();
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(line.ReceiveString(1000, true), "");
    EXPECT_LT(Clock::now() - start, 500ms);
    pty_->Write("\r\nCONNECT 2400\r\n");
    EXPECT_EQ(line.ReceiveString(1000, true), "\r\nCONNECT 2400\r\n");
    EXPECT_EQ(line.ReceiveString(1000, true), "");
}

TEST_F(ComponentRaw, KeepsTheRestBehindATerminatorOrALength)
{
    component::TelegramComunication& line = client_->Telegram();
    pty_->Write("OK\rBUSY\rX");
    EXPECT_EQ(line.ReceiveString(1000, false, "\r"), "OK\r");
    EXPECT_EQ(line.ReceiveString(2, true, "\r"), "BU");
    EXPECT_EQ(line.ReceiveString(1000, true, "\r"), "SY\r");
    EXPECT_EQ(line.ReceiveString(1000, true), "X");
    EXPECT_EQ(line.ReceiveString(0, true), "");
    EXPECT_EQ(line.ReceiveString(-1, true), "");
}

TEST_F(ComponentRaw, DropsAndRaisesDtrWithoutHarmToTheLine)
{
    component::TelegramComunication& line = client_->Telegram();
    line.DTR(false);
    line.DTR(true);
    pty_->Write("OK\r");
    EXPECT_EQ(line.ReceiveString(1000, false), "OK\r");
}

TEST_F(ComponentRaw, AsksForTheVersionInTheseBytes)
{
    client_->priority = 0x0203;
    std::thread terminal([&] {
        // Request 1 to terminal 4 with priority 0x0203, 10 bytes: one field, "versione".
        const std::string request("\xE5\x01\x04\x00\x03\x02\x0A\x00\x06\x08\x00versione", 19);
        const std::string arrived = Arrived(21);
        EXPECT_EQ(arrived.substr(0, 19), request);
        EXPECT_EQ(arrived.substr(19), "\x30\x44");
        // An answer to another request, one of another terminal, and the answer.
        pty_->Write(
            std::string("\xE6\x02\x04\x00\x03\x02\x08\x00\x06\x02\x00OK\x02\x00X1\x12\x6A", 19));
        pty_->Write(
            std::string("\xE6\x01\x05\x00\x03\x02\x08\x00\x06\x02\x00OK\x02\x00X2\xC0\x1C", 19));
        pty_->Write(
            std::string("\xE6\x01\x04\x00\x03\x02\x08\x00\x07\x02\x00OK\x02\x00X3\x3E\x49", 19));
    });
    EXPECT_TRUE(client_->Version().Receive(client_->terminal, client_->priority));
    EXPECT_EQ(client_->Version().LastBuild(), "X3");
    terminal.join();
}

}  // namespace
}  // namespace orlo::simulator
