#include "acquisition/object_record.h"

#include "acquisition/record_counters.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

ObjectRecord Punch(const char* direction, const char* badge, std::int32_t cause,
                   const char* terminal = "4")
{
    return {.Type = "Presenze",
            .Date = "15/03/2006",
            .Time = "08:30:15",
            .Direction = direction,
            .IdNumber = badge,
            .TerminalNo = terminal,
            .PersonalCause = cause,
            .Deleted = false};
}

TEST(ObjectLine, IsComposedFromTheRecord)
{
    const struct {
        const char* name;
        ObjectRecord record;
        const char* line;
    } cases[] = {
        {"entry", Punch("Entrata", "123456", 7), "31200603150830000100001234560704"},
        {"exit", Punch("Uscita", "123456", 0), "31200603150830000200001234560004"},
        {"badge of ten", Punch("Entrata", "1234567890", 0), "31200603150830000112345678900004"},
        {"no badge", Punch("Entrata", "", 0), "31200603150830000100000000000004"},
        {"badge with blanks", Punch("Entrata", " 77 ", 0), "312006031508300001000000 77 0004"},
        {"last two of the cause", Punch("Entrata", "1", 1234), "31200603150830000100000000013404"},
        {"negative cause", Punch("Uscita", "1", -1), "3120060315083000020000000001-104"},
        {"info 1000", Punch("Info", "123456", 1000), "31200603150830000I0000000000OF04"},
        {"info 1001", Punch("Info", "123456", 1001), "31200603150830000I0000000000ON04"},
        {"info 1002", Punch("Info", "123456", 1002), "31200603150830000I0000123456IN04"},
        {"info, other cause", Punch("Info", "123456", 1003), "31200603150830000I00000000000004"},
        {"info, cause 0", Punch("Info", "123456", 0), "31200603150830000I00000000000004"},
        {"other direction", Punch("Transito", "123456", 7), "3120060315083000000000000000004"},
        {"no direction", Punch("", "123456", 7), "3120060315083000000000000000004"},
        {"another case is another word", Punch("entrata", "123456", 7),
         "3120060315083000000000000000004"},
        {"terminal of two", Punch("Entrata", "1", 0, "32"), "31200603150830000100000000010032"},
        {"no terminal", Punch("Entrata", "1", 0, ""), "31200603150830000100000000010000"},
        {"badge not used may be long", Punch("Info", "12345678901", 1000),
         "31200603150830000I0000000000OF04"},
    };
    for (const auto& test : cases) {
        const ObjectLine composed = ComponeRigaOggetto(test.record);
        EXPECT_EQ(composed.line, test.line) << test.name;
        EXPECT_EQ(composed.fault, QString()) << test.name;
    }
}

TEST(ObjectLine, DateAndTimeAreCutByPosition)
{
    const struct {
        const char* name;
        const char* date;
        const char* time;
        const char* line;
    } cases[] = {
        {"time without seconds", "01/12/1999", "23:59", "31199912012359000100000000010004"},
        {"another separator", "01-12-1999", "23.59", "31199912012359000100000000010004"},
        {"empty", "", "", "31000100000000010004"},
        {"short date", "1/2/06", "8:30", "312/06/01/8:0000100000000010004"},
    };
    for (const auto& test : cases) {
        ObjectRecord record = Punch("Entrata", "1", 0);
        record.Date = test.date;
        record.Time = test.time;
        EXPECT_EQ(ComponeRigaOggetto(record).line, test.line) << test.name;
    }
}

TEST(ObjectLine, ThatCannotBeComposedSaysWhy)
{
    const struct {
        const char* name;
        ObjectRecord record;
        QString fault;
    } cases[] = {
        {"badge", Punch("Entrata", "12345678901", 0),
         QStringLiteral("badge di 11 caratteri, al massimo 10")},
        {"badge of an info", Punch("Info", "12345678901", 1002),
         QStringLiteral("badge di 11 caratteri, al massimo 10")},
        {"terminal", Punch("Entrata", "1", 0, "132"),
         QStringLiteral("numero di terminale di 3 caratteri, al massimo 2")},
        {"line break", Punch("Entrata", "12\r\n34", 0),
         QStringLiteral("contiene caratteri di controllo")},
    };
    for (const auto& test : cases) {
        const ObjectLine composed = ComponeRigaOggetto(test.record);
        EXPECT_EQ(composed.fault, test.fault) << test.name;
        EXPECT_EQ(composed.line, "") << test.name;
    }
}

TEST(ObjectLine, NonsenseIsRefusedOrShort)
{
    ObjectRecord huge = Punch("Entrata", "1", 0);
    huge.IdNumber.assign(1'000'000, '1');
    EXPECT_EQ(ComponeRigaOggetto(huge).fault,
              QStringLiteral("badge di 1000000 caratteri, al massimo 10"));
    ObjectRecord long_date = Punch("Entrata", "1", 0);
    long_date.Date.assign(1'000'000, '9');
    EXPECT_EQ(ComponeRigaOggetto(long_date).line, "31999999990830000100000000010004");
    ObjectRecord zero_byte = Punch("Entrata", "1", 0);
    zero_byte.Time = std::string("08:\0\0", 5);
    EXPECT_NE(ComponeRigaOggetto(zero_byte).fault, QString());
}

TEST(ObjectRecord, OnlyAttendanceAndInformationNotYetAcquiredAreForTheFile)
{
    const struct {
        const char* type;
        bool deleted;
        bool for_file;
    } cases[] = {
        {"Presenze", false, true},
        {"Informazioni", false, true},
        {"Accessi", false, false},
        {"presenze", false, false},
        {"", false, false},
        {"Presenze", true, false},
        {"Informazioni", true, false},
    };
    for (const auto& test : cases) {
        ObjectRecord record = Punch("Entrata", "1", 0);
        record.Type = test.type;
        record.Deleted = test.deleted;
        EXPECT_EQ(IsForPunchFile(record), test.for_file) << test.type << test.deleted;
    }
}

TEST(RecordCounters, GiveTheRecordsToAcquireWithinSixteenBits)
{
    const struct {
        const char* name;
        RecordCounters counters;
        std::int16_t count;
    } cases[] = {
        {"usual", {10000, 300, 9500}, 200},
        {"nothing left", {10000, 300, 9700}, 0},
        {"all", {32767, 0, 0}, 32767},
        {"more than the count holds", {40000, 0, 0}, 32767},
        {"contradictory", {10, 20, 30}, -40},
        {"huge", {INT32_MAX, INT32_MIN, INT32_MIN}, 32767},
        {"huge, negative", {INT32_MIN, INT32_MAX, INT32_MAX}, -32768},
    };
    for (const auto& test : cases)
        EXPECT_EQ(RecordsToAcquire(test.counters), test.count) << test.name;
}

}  // namespace
}  // namespace orlo
