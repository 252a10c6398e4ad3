// The badge layout of the serial models as it goes over the line, and what each telegram is worth
// when it fails.

#include "simulator/frame.h"
#include "tests/badge/serial_badge_fixture.h"

namespace orlo::testing
{
namespace
{

using Telegrams = std::vector<std::string>;

// STX, the address of terminal 4 (octal 204), the command, its checksum, CR.
// clang-format off
const Telegrams kReadsFromSix  = {"\2\204950006\xBA\r", "\2\204950007\xBB\r", "\2\204950008\xBC\r",
                                  "\2\204950009\xBD\r", "\2\204950010\xB5\r"};
const Telegrams kReadsFromNine = {"\2\204950009\xBD\r", "\2\204950010\xB5\r", "\2\204950011\xB6\r",
                                  "\2\204950012\xB7\r", "\2\204950013\xB8\r"};
const Telegrams kSendsFromSix  = {"\2\204940006 05\xBE\r", "\2\204940007 05\xBF\r", "\2\204940008 07\xC2\r",
                                  "\2\204940009 12\xBF\r", "\2\204940010 00123\xCA\r", "\2\20497STORE\x83\r"};
const Telegrams kSendsFromNine = {"\2\204940009 05\xC1\r", "\2\204940010 05\xB9\r", "\2\204940011 07\xBC\r",
                                  "\2\204940012 12\xB9\r", "\2\204940013 00123\xCD\r", "\2\20497STORE\x83\r"};
// clang-format on

struct Model {
    const char* name;
    const Telegrams& reads;
    const Telegrams& sends;
    bool stores_slowly;
};

const Model kModels[] = {
    {"Orlo II", kReadsFromNine, kSendsFromNine, false},
    {"Strale", kReadsFromSix, kSendsFromSix, false},
    {"Strale N", kReadsFromSix, kSendsFromSix, false},
    {"Lumo", kReadsFromNine, kSendsFromNine, false},
    {"OrloTre", kReadsFromNine, kSendsFromNine, true},
    {"SuperStrale", kReadsFromNine, kSendsFromNine, true},
};

class SerialBadgeTelegrams : public SerialBadgeFormat
{
protected:
    /// A Strale that answers with these texts, one after the other.
    void ConnectAnswering(std::vector<std::string> texts)
    {
        Connect(QStringLiteral("Strale"));
        pc.com1.answer_to = [texts = std::move(texts), next = std::size_t{0}](auto) mutable {
            return std::vector<Arrival>{{{}, simulator::AnswerFrame(kTerminal, texts.at(next++))}};
        };
    }
};

TEST_F(SerialBadgeTelegrams, OfEachModelReadingAreTheseBytes)
{
    for (const Model& model : kModels) {
        Connect(QString::fromLatin1(model.name));
        Receive();
        EXPECT_EQ(pc.com1.sent, model.reads) << model.name;
    }
}

TEST_F(SerialBadgeTelegrams, OfEachModelSendingAreTheseBytes)
{
    for (const Model& model : kModels) {
        Connect(QString::fromLatin1(model.name));
        Enter(Of("5", "5", "7", "12", "123"));
        Send();
        EXPECT_EQ(pc.com1.sent, model.sends) << model.name;
    }
}

TEST_F(SerialBadgeTelegrams, StoringIsWaitedForDuring101StepsOfTheClockOnlyBySlowModels)
{
    // The wait begins on a step: the 101st after it comes at 5549 ms, the one behind at 5604 ms.
    // The usual wait of two seconds ends at the step of 2033 ms.
    struct Case {
        long delay_ms;
        bool in_time_for_slow;
        bool in_time_for_others;
    };
    const Case cases[] = {
        {1990, true, true}, {2100, true, false}, {5540, true, false}, {5590, false, false}};
    for (const Model& model : kModels)
        for (const Case& c : cases) {
            Connect(QString::fromLatin1(model.name), {},
                    {"97*:ritardo=" + std::to_string(c.delay_ms)});
            Enter(Of("5", "5", "7", "12", "123"));
            // The answer that came too late for the case before has gone by.
            pc.clock.Advance(std::chrono::seconds(6));
            pc.clock.SetTimeOfDay(QTime(8, 0));
            const bool in_time = model.stores_slowly ? c.in_time_for_slow : c.in_time_for_others;
            EXPECT_EQ(LastLineOfSending(), in_time ? QStringLiteral("risposte 6 su 6")
                                                   : QStringLiteral("risposte 5 su 6"))
                << model.name << ", " << c.delay_ms << " ms";
        }
}

TEST_F(SerialBadgeTelegrams, EveryOtherTelegramIsWaitedForAsUsual)
{
    for (const Model& model : kModels)
        for (std::size_t step = 0; step < 5; ++step) {
            const std::string command = model.sends[step].substr(2, 6);
            Connect(QString::fromLatin1(model.name), {}, {command + "*:ritardo=2200"});
            Enter(Of("5", "5", "7", "12", "123"));
            EXPECT_EQ(LastLineOfSending(), QStringLiteral("risposte 5 su 6"))
                << model.name << ", " << command;
            EXPECT_EQ(pc.com1.sent, model.sends) << model.name << ", " << command;
        }
}

TEST_F(SerialBadgeTelegrams, FailureInOneStepOfAReadingMakesThatField0AndNoOther)
{
    const Layout read[] = {Of("0", "5", "7", "12", "123"), Of("2", "0", "7", "12", "0"),
                           Of("2", "5", "0", "12", "123"), Of("2", "5", "7", "0", "123"),
                           Of("2", "5", "7", "12", "0")};
    for (const Model& model : kModels)
        for (std::size_t step = 0; step < std::size(read); ++step)
            for (const char* fault :
                 {"silenzio", "checksum-errato", "senza-cr", "ritardo=2100", "cr-prima"}) {
                const std::string rule = model.reads[step].substr(2, 6) + "*:" + fault;
                Connect(QString::fromLatin1(model.name), "badge=2/5/7/12/00123", {rule});
                Enter(Of("9", "9", "9", "9", "9"));
                EXPECT_EQ(LastLineOfReceiving(), QStringLiteral("risposte 4 su 5"))
                    << model.name << ", " << rule;
                EXPECT_EQ(Shown(), read[step]) << model.name << ", " << rule;
                EXPECT_FALSE(pc.com1.PortOpen());
            }
}

TEST_F(SerialBadgeTelegrams, FailureInAnyStepOfASendingKeepsNoOtherBack)
{
    for (const Model& model : kModels)
        for (const std::string& telegram : model.sends)
            for (const char* fault : {"silenzio", "checksum-errato"}) {
                const std::string rule = telegram.substr(2, 6) + "*:" + fault;
                Connect(QString::fromLatin1(model.name), {}, {rule});
                Enter(Of("5", "5", "7", "12", "123"));
                EXPECT_EQ(LastLineOfSending(), QStringLiteral("risposte 5 su 6"))
                    << model.name << ", " << rule;
                EXPECT_EQ(pc.com1.sent, model.sends) << model.name << ", " << rule;
                EXPECT_TRUE(pc.dialog.told.empty());
            }
}

TEST_F(SerialBadgeTelegrams, PlantCodeIsAsManyCharactersAsItsLengthThatWasJustRead)
{
    struct Case {
        const char* length;
        const char* plant;
        Layout shown;
    };
    const Case cases[] = {
        {"000", "00123", Of("1", "0", "6", "6", "0")},
        {"002", "00123", Of("1", "2", "6", "6", "23")},
        {"005", "00123", Of("1", "5", "6", "6", "123")},
        {"005", "00123  ", Of("1", "5", "6", "6", "123")},
        {"005", "PAR 98765", Of("1", "5", "6", "6", "98765")},
        {"005", "00000", Of("1", "5", "6", "6", "0")},
        {"012", "00123", Of("1", "12", "6", "6", "123")},
        {"005", "", Of("1", "5", "6", "6", "0")},
    };
    for (const Case& c : cases) {
        ConnectAnswering({"001", c.length, "006", "006", c.plant});
        // Not the length that stood in the window before.
        Enter(Of("9", "3", "9", "9", "9"));
        Receive();
        EXPECT_EQ(Shown(), c.shown) << c.length << ' ' << c.plant;
    }
}

TEST_F(SerialBadgeTelegrams, NumbersAreTheLastThreeCharactersWithoutBlanksBehind)
{
    ConnectAnswering({"INIZIO 012", "9005   ", " 7", "1x2", "00001"});
    Receive();
    EXPECT_EQ(Shown(), Of("12", "5", "7", "1", "1"));
}

}  // namespace
}  // namespace orlo::testing
