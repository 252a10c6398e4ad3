#include "simulator/options.h"

#include "simulator/usage_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orlo::simulator
{
namespace
{

using testing::HasSubstr;

Options Parse(const std::vector<const char*>& arguments)
{
    std::vector<std::string> texts = {"orlodesk-simulatore"};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return ParseOptions(static_cast<int>(texts.size()), pointers.data());
}

TEST(Options, AreReadFromTheCommandLine)
{
    const Options options = Parse(
        {"--collegamento", "/tmp/x", "--terminale", "numero=1,modello=Strale",
         "--terminale=numero=2,modello=Lumo", "--velocita", "19200", "--attesa", "40", "--guasto",
         "33#2:silenzio", "--guasto", "1:ritardo=9", "--registro", "r", "--stato", "s"});
    EXPECT_FALSE(options.help);
    EXPECT_EQ(options.link, "/tmp/x");
    ASSERT_EQ(options.terminals.size(), 2U);
    EXPECT_EQ(options.terminals[1].model->name, "Lumo");
    EXPECT_EQ(options.line.bits_per_second, 19200);
    EXPECT_EQ(options.line.turnaround, std::chrono::milliseconds(40));
    ASSERT_EQ(options.faults.size(), 2U);
    EXPECT_EQ(options.faults[0].command, "33");
    EXPECT_EQ(options.journal_path, "r");
    EXPECT_EQ(options.state_path, "s");
}

TEST(Options, PutAModemBeforeTheLine)
{
    const std::vector<const char*> usual = {"--collegamento", "x", "--terminale",
                                            "numero=1,modello=Strale"};
    EXPECT_FALSE(Parse(usual).modem.has_value());
    std::vector<const char*> with_modem = usual;
    with_modem.insert(with_modem.end(), {"--modem", "esito=BUSY,attesa=20"});
    const Options options = Parse(with_modem);
    ASSERT_TRUE(options.modem.has_value());
    EXPECT_EQ(options.modem->outcome, CallOutcome::Busy);
    EXPECT_EQ(options.modem->dial_time, std::chrono::milliseconds(20));
    with_modem.back() = "";
    EXPECT_EQ(Parse(with_modem).modem->outcome, CallOutcome::Connect);
}

TEST(Options, KeepOrloAndSipaApart)
{
    const Options options = Parse({"--collegamento", "x", "--terminale", "numero=1,modello=Orlo",
                                   "--terminale", "numero=2,modello=Sipa"});
    EXPECT_TRUE(options.terminals.empty());
    ASSERT_EQ(options.object_terminals.size(), 2U);
    EXPECT_EQ(options.object_terminals[1].model, "Sipa");
}

TEST(Options, AskForHelpWithNothingElse)
{
    EXPECT_TRUE(Parse({"--help"}).help);
    EXPECT_TRUE(Parse({"-h"}).help);
}

TEST(Options, AreRefusedWhenTheyCannotBeMeant)
{
    const std::pair<std::vector<const char*>, const char*> cases[] = {
        {{}, "manca --collegamento"},
        {{"--collegamento", "x"}, "manca --terminale"},
        {{"--terminale", "numero=1,modello=Strale"}, "manca --collegamento"},
        {{"--colore"}, "opzione sconosciuta"},
        {{"--collegamento"}, "senza valore"},
        {{"--collegamento", "x", "--terminale", "numero=1,modello=Strale", "y"}, "di troppo: y"},
        {{"--terminale", "numero=1,modello=Strale", "--terminale", "numero=1,modello=Lumo"},
         "due terminali col numero 1"},
        {{"--terminale", "numero=1,modello=Orlo", "--terminale", "numero=1,modello=Sipa"},
         "due terminali col numero 1"},
        {{"--terminale", "numero=1,modello=Orlo", "--terminale", "numero=2,modello=Lumo"},
         "non stanno su una linea"},
        {{"--velocita", "0"}, "--velocita va da 1"},
        {{"--velocita", "presto"}, "--velocita va da 1"},
        {{"--attesa", "-1"}, "--attesa va da 0"},
        {{"--guasto", "boh"}, "guasto"},
        {{"--modem", "boh"}, "modem: manca"},
    };
    for (const auto& [arguments, reason] : cases) {
        SCOPED_TRACE(reason);
        try {
            Parse(arguments);
            ADD_FAILURE() << "accepted";
        } catch (const UsageError& error) {
            EXPECT_THAT(error.what(), HasSubstr(reason));
        }
    }
}

}  // namespace
}  // namespace orlo::simulator
