#include "registry/list_line.h"

#include <gtest/gtest.h>

namespace orlo
{

TEST(ListLine, HasAColumnForEachValueThatIsKnown)
{
    struct Case {
        const char* name;
        int n;
        int type;
        const char* slot_description;
        const char* description;
        int function;
        int active;
        int mode;
        const char* line;
    };
    const Case cases[] = {
        {"all known", 7, 1, "Ingresso", "Ingresso", 1, -1, 2,
         "07 - Orlo - Ingresso\t - Abilitazione\tSì\tPres/Acc"},
        {"two digits", 10, 3, "Mensa   ", "Mensa", 2, 0, 1,
         "10 - Orlo II - Mensa\t - Esonero PIN \tNo\tPresenze"},
        {"last number", 32, 8, "Porta   ", "Porta", 3, -1, 3,
         "32 - SuperStrale - Porta\t - Funz.Allarme\tSì\tAccessi "},
        {"unknown type", 3, 9, "Porta   ", "Porta", 1, -1, 1,
         "03 - Porta\t - Abilitazione\tSì\tPresenze"},
        {"blank description", 4, 4, "        ", "", 1, -1, 1,
         "04 - Strale -         \t - Abilitazione\tSì\tPresenze"},
        {"description of the row is longer than the slot's", 4, 4, "Magazzin", "Magazzino", 1, -1,
         1, "04 - Strale - Magazzino\t - Abilitazione\tSì\tPresenze"},
        {"no function", 5, 5, "Mensa   ", "Mensa", 0, 0, 1,
         "05 - Strale N - Mensa\t\t\t               \tNo\tPresenze"},
        {"no mode", 5, 5, "Mensa   ", "Mensa", 1, 0, 0,
         "05 - Strale N - Mensa\t - Abilitazione\tNo"},
        {"activity neither true nor false", 5, 6, "Mensa   ", "Mensa", 1, 1, 1,
         "05 - Lumo - Mensa\t - Abilitazione\tPresenze"},
        {"no slot below", 0, 1, "Porta   ", "Porta", 1, -1, 1, "00"},
        {"no slot above", 33, 1, "Porta   ", "Porta", 1, -1, 1, "33"},
        {"number of three digits", 100, 1, "Porta   ", "Porta", 1, -1, 1, ""},
    };
    for (const Case& c : cases) {
        TerminalRecord slot;
        slot.Tipo = static_cast<std::int16_t>(c.type);
        slot.Descrizione = QString::fromUtf8(c.slot_description);
        slot.Funzionamento = static_cast<std::int16_t>(c.function);
        slot.Attivo = static_cast<std::int16_t>(c.active);
        slot.Modalita = static_cast<std::int16_t>(c.mode);
        EXPECT_EQ(ListLine(c.n, slot, QString::fromUtf8(c.description)), QString::fromUtf8(c.line))
            << c.name;
    }
}

}  // namespace orlo
