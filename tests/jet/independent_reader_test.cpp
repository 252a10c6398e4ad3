#include "tests/jet/independent_reader.h"

#include "jet/utf8.h"

#include <gtest/gtest.h>

#include <map>

// Every value of every sample as an independent reader gives it.

namespace jet::test
{

namespace
{

TEST(IndependentReader, AgreesOnEveryValueOfEverySample)
{
    std::map<std::string, std::size_t> values;
    for (const auto& file : Samples()) {
        const auto database = Database::Open(file);
        for (const TableInfo& table : database->TableDefs()) {
            SCOPED_TRACE(file.filename().string() + " " + ToUtf8(table.name));
            values[file.filename().string()] += CompareWithExport(
                file, table, *database->OpenTable(table.name), table.name != u"Dipendenti");
        }
    }
    EXPECT_EQ(values, (std::map<std::string, std::size_t>{{"nimbo-32-2003.mdb", 770},
                                                          {"nimbo-base-2000.mdb", 40},
                                                          {"nimbo-base-97.mdb", 40},
                                                          {"nimbo-foreign-2000.mdb", 12924},
                                                          {"nimbo-full-2000.mdb", 264},
                                                          {"nimbo-full-97.mdb", 264},
                                                          {"nimbo-range-2000.mdb", 144},
                                                          {"password-jet3.mdb", 264},
                                                          {"password-jet4.mdb", 264}}));
}

}  // namespace

}  // namespace jet::test
