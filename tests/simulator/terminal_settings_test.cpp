#include "simulator/terminal_settings.h"

#include "simulator/usage_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace orlo::simulator
{
namespace
{

using testing::HasSubstr;

TEST(ParseTerminal, TakesEveryKey)
{
    const TerminalSettings settings = ParseTerminal(
        "numero=4,modello=Strale N,timbrature=200,seme=7,acquisite=20,record=12,"
        "capacita=300,scarto=-75,badge=1/3/4/6/042,versione=Rel. 1.0");
    EXPECT_EQ(settings.number, 4);
    EXPECT_EQ(settings.model->name, "Strale N");
    EXPECT_EQ(settings.punches.size(), 200U);
    EXPECT_EQ(settings.acquired, 20U);
    EXPECT_EQ(settings.records_per_answer, 12U);
    EXPECT_EQ(settings.capacity, 300U);
    EXPECT_EQ(settings.clock_offset, std::chrono::seconds(-75));
    EXPECT_EQ(settings.badge.plant_length, 3);
    EXPECT_EQ(settings.badge.plant_code, "042");
    EXPECT_EQ(settings.release, "Rel. 1.0");
}

TEST(ParseTerminal, FallsBackToTheModel)
{
    const std::pair<const char*, std::size_t> cases[] = {
        {"Orlo II", 10000}, {"Strale", 2500},   {"Strale N", 7000},
        {"Lumo", 10000},    {"OrloTre", 10000}, {"SuperStrale", 10000}};
    for (const auto& [model, capacity] : cases) {
        SCOPED_TRACE(model);
        const TerminalSettings settings = ParseTerminal("numero=32,modello=" + std::string(model));
        EXPECT_EQ(settings.capacity, capacity);
        EXPECT_TRUE(settings.punches.empty());
        EXPECT_EQ(settings.records_per_answer, 10U);
        EXPECT_FALSE(settings.release.empty());
    }
}

TEST(ParseTerminal, ReadsPunchesFromAFile)
{
    const auto path = std::filesystem::path(testing::TempDir()) / "timbrature_prova.txt";
    std::ofstream(path) << "9 123456 1 15/03/2006 08:30\n";
    const TerminalSettings settings =
        ParseTerminal("numero=1,modello=Strale,file=" + path.string());
    ASSERT_EQ(settings.punches.size(), 1U);
    EXPECT_EQ(settings.punches[0].badge, "123456");

    std::ofstream(path) << "9 123456\n";
    EXPECT_THROW(ParseTerminal("numero=1,modello=Strale,file=" + path.string()), UsageError);
    std::filesystem::remove(path);
    EXPECT_THROW(ParseTerminal("numero=1,modello=Strale,file=" + path.string()), UsageError);
}

TEST(ParseTerminal, SaysWhatIsWrong)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "="},
        {"numero=1", "manca modello"},
        {"modello=Strale", "manca numero"},
        {"numero=1,modello=Orlo", "modello sconosciuto"},
        {"numero=1,modello=strale", "modello sconosciuto"},
        {"numero=0,modello=Strale", "numero"},
        {"numero=33,modello=Strale", "numero"},
        {"numero=1,numero=2,modello=Strale", "ripetuta"},
        {"numero=1,modello=Strale,colore=blu", "colore"},
        {"numero=1,modello=Strale,timbrature=2501", "capacità"},
        {"numero=1,modello=Strale,timbrature=5,acquisite=6", "acquisite"},
        {"numero=1,modello=Strale,record=0", "record"},
        {"numero=1,modello=Strale,record=13", "record"},
        {"numero=1,modello=Strale,scarto=presto", "scarto"},
        {"numero=1,modello=Strale,badge=1/2/3/4", "badge"},
        {"numero=1,modello=Strale,badge=1/2/3/4/123", "badge"},
        {"numero=1,modello=Strale,badge=1/2/3/x/12", "badge"},
        {"numero=1,modello=Strale,timbrature=5,file=x", "esclude"},
    };
    for (const auto& [text, reason] : cases) {
        SCOPED_TRACE(text);
        try {
            ParseTerminal(text);
            ADD_FAILURE() << "accepted";
        } catch (const UsageError& error) {
            EXPECT_THAT(error.what(), HasSubstr(reason));
        }
    }
}

}  // namespace
}  // namespace orlo::simulator
