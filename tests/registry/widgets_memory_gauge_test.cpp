#include "registry/widgets/memory_gauge.h"

#include <gtest/gtest.h>

namespace orlo
{

TEST(MemoryParts, FollowTheCountingOfTheFamily)
{
    struct Case {
        const char* name;
        LinkFamily family;
        const char* capacity;
        const char* punches;
        const char* to_acquire;
        MemoryParts parts;
    };
    const Case cases[] = {
        {"serial: those in memory hold those to acquire",
         LinkFamily::Serial,
         "2500",
         "1482",
         "128",
         {2500, 1354, 128}},
        {"object: the flagged ones are the acquired",
         LinkFamily::Object,
         "10000",
         "300",
         "200",
         {10000, 300, 200}},
        {"not known yet", LinkFamily::Serial, "", "", "", {0, 0, 0}},
        {"more to acquire than in memory", LinkFamily::Serial, "2500", "10", "128", {2500, 0, 128}},
        {"more than there is room for", LinkFamily::Serial, "100", "900", "300", {100, 0, 100}},
        {"acquired beyond the room left", LinkFamily::Object, "100", "90", "30", {100, 70, 30}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(MemoryPartsOf(c.family, QString::fromUtf8(c.capacity),
                                QString::fromUtf8(c.punches), QString::fromUtf8(c.to_acquire)),
                  c.parts)
            << c.name;
}

}  // namespace orlo
