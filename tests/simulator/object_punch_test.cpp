#include "simulator/object_punch.h"

#include "simulator/object_terminal_settings.h"
#include "simulator/usage_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace orlo::simulator
{
namespace
{

using namespace std::chrono;
using testing::HasSubstr;

template <class Action>
std::string Complaint(Action action)
{
    try {
        action();
    } catch (const UsageError& error) {
        return error.what();
    }
    return "accepted";
}

TEST(ObjectPunch, IsReadFromALine)
{
    const ObjectPunch punch =
        ParseObjectPunch("Presenze Entrata 123456 0001 7 15/03/2006 08:30:05");
    EXPECT_EQ(punch.type, "Presenze");
    EXPECT_EQ(punch.direction, "Entrata");
    EXPECT_EQ(punch.badge, "123456");
    EXPECT_EQ(punch.cause, "0001");
    EXPECT_EQ(punch.personal_cause, 7);
    EXPECT_EQ(punch.at, local_days(year(2006) / March / 15) + hours(8) + minutes(30) + seconds(5));
}

TEST(ObjectPunch, IsRefusedWhenItCannotBeMeant)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Presenze Entrata 1 01 7 15/03/2006", "servono tipo"},
        {"Presenze Entrata 1 01 7 15/03/2006 08:30 x", "servono tipo"},
        {"Presenze Entrata 1 01 x 15/03/2006 08:30", "causale personale non valida: x"},
        {"Presenze Entrata 1 01 7 32/03/2006 08:30", "data non valida: 32/03/2006"},
        {"Presenze Entrata 1 01 7 15/03/2006 25:30", "ora non valida: 25:30"},
    };
    for (const auto& [line, reason] : cases)
        EXPECT_THAT(Complaint([&] { ParseObjectPunch(line); }), HasSubstr(reason));
    std::istringstream lines("# uno\n\nPresenze Entrata 1\n");
    EXPECT_THAT(Complaint([&] { ReadObjectPunches(lines); }), HasSubstr("riga 3, "));
}

TEST(ObjectPunch, IsInventedAlikeForTheSameSeed)
{
    const std::vector<ObjectPunch> punches = InventObjectPunches(200, 5);
    const std::vector<ObjectPunch> again = InventObjectPunches(200, 5);
    const std::vector<ObjectPunch> other = InventObjectPunches(200, 6);
    ASSERT_EQ(punches.size(), 200U);
    const auto same = [](const ObjectPunch& a, const ObjectPunch& b) {
        return a.at == b.at && a.badge == b.badge && a.direction == b.direction;
    };
    EXPECT_TRUE(std::equal(punches.begin(), punches.end(), again.begin(), same));
    EXPECT_FALSE(std::equal(punches.begin(), punches.end(), other.begin(), same));
    const auto with = [&](const char* direction) {
        return std::count_if(punches.begin(), punches.end(), [&](const ObjectPunch& punch) {
            return punch.direction == direction;
        });
    };
    EXPECT_GT(with("Entrata"), 50);
    EXPECT_GT(with("Uscita"), 50);
    EXPECT_GT(with("Info"), 5);
    EXPECT_EQ(with("Entrata") + with("Uscita") + with("Info"), 200);
}

TEST(ObjectTerminalSettings, AreReadFromTheirText)
{
    const ObjectTerminalSettings settings = ParseObjectTerminal(
        "numero=32,modello=Sipa,timbrature=9,seme=2,acquisite=4,capacita=9,scarto=-60,"
        "impianto=A1,versione=V");
    EXPECT_EQ(settings.number, 32);
    EXPECT_EQ(settings.model, "Sipa");
    EXPECT_EQ(settings.punches.size(), 9U);
    EXPECT_EQ(settings.marked, 4U);
    EXPECT_EQ(settings.capacity, 9U);
    EXPECT_EQ(settings.clock_offset, seconds(-60));
    EXPECT_EQ(settings.plant_code, "A1");
    EXPECT_EQ(settings.last_build, "V");
}

TEST(ObjectTerminalSettings, AreTheModelsWhenNotGiven)
{
    const ObjectTerminalSettings settings = ParseObjectTerminal("numero=1,modello=Orlo");
    EXPECT_TRUE(settings.punches.empty());
    EXPECT_EQ(settings.capacity, 4000U);
    EXPECT_EQ(settings.plant_code, "00001");
    EXPECT_EQ(settings.last_build, "Mar 15 2006 14:30:00");
}

TEST(ObjectTerminalSettings, AreRefusedWhenTheyCannotBeMeant)
{
    const std::pair<const char*, const char*> cases[] = {
        {"modello=Orlo", "manca numero"},
        {"numero=33,modello=Orlo", "numero va da 1 a 32"},
        {"numero=1,modello=Strale", "modello sconosciuto: Strale"},
        {"numero=1,modello=Orlo,timbrature=4,capacita=3", "capacità di 3"},
        {"numero=1,modello=Orlo,timbrature=4,acquisite=5", "acquisite va da 0 a 4"},
        {"numero=1,modello=Orlo,record=5", "chiave sconosciuta: record"},
        {"numero=1,modello=Orlo,file=/nonexistent", "non si apre /nonexistent"},
        {"numero=1,modello=Orlo,file=x,seme=1", "file esclude"},
    };
    for (const auto& [text, reason] : cases)
        EXPECT_THAT(Complaint([&] { ParseObjectTerminal(text); }), HasSubstr(reason));
}

}  // namespace
}  // namespace orlo::simulator
