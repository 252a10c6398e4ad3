#include "bells/ring_telegram.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

struct Case {
    const char* name;
    const char* line;
    std::optional<std::string> spaced;
    std::optional<std::string> dense;
};

const Case kCases[] = {
    {"working days on relay A", "01   08:30     05     0 1 1 1 1 1 0 0    1 0",
     "13 01 08 30 01111100 1 05", "1301 08 30 01111100 1 005"},
    {"a holiday on relay B", "32   23:59     99     0 0 0 0 0 0 0 1    0 1",
     "13 32 23 59 00000001 2 99", "1332 23 59 00000001 2 099"},
    {"no relay", "10   12:00     03     1 0 0 0 0 0 0 0    0 0", "13 10 12 00 10000000 0 03",
     "1310 12 00 10000000 0 003"},
    {"both relays are relay A", "02   07:05     10     1 1 1 1 1 1 1 1    1 1",
     "13 02 07 05 11111111 1 10", "1302 07 05 11111111 1 010"},
    {"an empty line", "03   00:00     00     0 0 0 0 0 0 0 0    0 0", "13 03 00 00 00000000 0 00",
     std::nullopt},
    {"a time on no day", "04   08:00     05     0 0 0 0 0 0 0 0    1 0",
     "13 04 08 00 00000000 1 05", std::nullopt},
};

TEST(RingTelegram, ReadsTheColumnsOfTheLine)
{
    for (const Case& test : kCases) {
        const QString line = QString::fromLatin1(test.line);
        EXPECT_EQ(RingTelegram(BellTelegram::Spaced, line), test.spaced) << test.name;
        EXPECT_EQ(RingTelegram(BellTelegram::Dense, line), test.dense) << test.name;
    }
}

TEST(RingTelegram, OrloTreAndSuperStraleTakeTheDenseForm)
{
    for (const TerminalModel& model : TerminalModels()) {
        const bool dense =
            model.type == TerminalType::OrloTre || model.type == TerminalType::SuperStrale;
        EXPECT_EQ(model.bell_telegram == BellTelegram::Dense, dense) << model.name.toStdString();
    }
}

}  // namespace
}  // namespace orlo
