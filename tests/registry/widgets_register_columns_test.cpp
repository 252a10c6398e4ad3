#include "registry/widgets/register_columns.h"

#include <gtest/gtest.h>

namespace orlo
{

TEST(RegisterColumns, AreFoundInEveryShapeOfLine)
{
    struct Case {
        const char* name;
        const char* line;
        const char* columns[6];
    };
    const Case cases[] = {
        {"complete",
         "07 - Orlo - Ingresso\t - Abilitazione\tSì\tPres/Acc",
         {"07", "Orlo", "Ingresso", "Abilitazione", "Sì", "Pres/Acc"}},
        {"padded texts",
         "10 - Orlo II - Mensa\t - Esonero PIN \tNo\tAccessi ",
         {"10", "Orlo II", "Mensa", "Esonero PIN", "No", "Accessi"}},
        {"no type name",
         "03 - Porta\t - Funz.Allarme\tSì\tPresenze",
         {"03", "", "Porta", "Funz.Allarme", "Sì", "Presenze"}},
        {"blank description",
         "04 - Strale -         \t - Abilitazione\tSì\tPresenze",
         {"04", "Strale", "", "Abilitazione", "Sì", "Presenze"}},
        {"no type name, blank description",
         "04 -         \t - Abilitazione\tSì\tPresenze",
         {"04", "", "", "Abilitazione", "Sì", "Presenze"}},
        {"no function: three tabs and 15 blanks",
         "05 - Strale N - Mensa\t\t\t               \tNo\tPresenze",
         {"05", "Strale N", "Mensa", "", "No", "Presenze"}},
        {"neither function nor mode",
         "05 - Strale N - Mensa\t\t\t               \tNo",
         {"05", "Strale N", "Mensa", "", "No", ""}},
        {"no mode",
         "05 - Lumo - Mensa\t - Abilitazione\tNo",
         {"05", "Lumo", "Mensa", "Abilitazione", "No", ""}},
        {"no activity",
         "05 - Lumo - Mensa\t - Abilitazione\tPresenze",
         {"05", "Lumo", "Mensa", "Abilitazione", "", "Presenze"}},
        {"description with a dash",
         "06 - OrloTre - Reparto - B\t - Abilitazione\tSì\tPresenze",
         {"06", "OrloTre", "Reparto - B", "Abilitazione", "Sì", "Presenze"}},
        {"description that is a type's name",
         "06 - Sipa\t - Abilitazione\tSì\tPresenze",
         {"06", "", "Sipa", "Abilitazione", "Sì", "Presenze"}},
        {"description that begins like a type",
         "06 - Strale - N\t - Abilitazione\tSì\tPresenze",
         {"06", "Strale", "N", "Abilitazione", "Sì", "Presenze"}},
        {"number alone", "33", {"33", "", "", "", "", ""}},
        {"nothing", "", {"", "", "", "", "", ""}},
    };
    for (const Case& c : cases) {
        const auto text = [&c](int i) { return QString::fromUtf8(c.columns[i]); };
        const RegisterColumns expected{text(0), text(1), text(2), text(3), text(4), text(5)};
        EXPECT_EQ(SplitRegisterLine(QString::fromUtf8(c.line)), expected) << c.name;
    }
}

}  // namespace orlo
