#include "tests/registro/register_fixture.h"

#include <filesystem>

namespace orlo::registro::test
{
namespace
{

class Import : public RegisterFolder
{
};

TEST_F(Import, WhatWasExportedIsNoChange)
{
    for (const std::string format : {"2000", "97"}) {
        TakeSample("nimbo-full-" + format + ".mdb");
        Do({"esporta", ".", format + ".csv"});
        const std::string before = Exported("TERMINALI");
        EXPECT_EQ(Do({"importa", ".", format + ".csv"}), "Terminali aggiunti: 0, cambiati: 0.\n");
        EXPECT_EQ(Exported("TERMINALI"), before);
        std::filesystem::remove(PathOf("nimbo.mdb"));
    }
}

TEST_F(Import, AddsAndChangesAndNeverRemoves)
{
    Do({"crea", "."});
    Do({"aggiungi", ".", "1", "--tipo", "Sipa"});
    Do({"aggiungi", ".", "2", "--tipo", "Strale"});
    Write("t.csv",
          "\xEF\xBB\xBFterminale;Descrizione;TIPO\r\n"
          "2;\"a;\"\"b\"\"\";Strale\r\n"
          "9;Nuovo;Orlo\r\n");
    EXPECT_EQ(Do({"importa", ".", "t.csv"}), "Terminali aggiunti: 1, cambiati: 1.\n");
    EXPECT_EQ(Exported("TERMINALI"),
              "1,2,1,,1,1,1,0,0,,0,,0,0,3,,0,0,0,0,0,0,0,0\n"
              "2,4,1,\"a;\"\"b\"\"\",1,1,1,0,0,9600,0,,0,0,3,,0,0,0,0,0,0,0,0\n"
              "9,1,1,\"Nuovo\",1,1,1,7,6,38400,0.5,,0,0,3,,0,0,0,0,0,0,0,0\n");
}

TEST_F(Import, FaultsNameLineAndColumnAndNothingChanges)
{
    Do({"crea", "."});
    Do({"aggiungi", ".", "2", "--tipo", "Strale"});
    struct Case {
        const char* csv;
        const char* text;
    };
    const Case cases[] = {
        {"", "Riga 1: manca la riga dei nomi delle colonne"},
        {"TIPO\nOrlo\n", "Riga 1: manca la colonna Terminale"},
        {"Terminale;Colore\n", "Riga 1: colonna «Colore» sconosciuta"},
        {"Terminale;TIPO;Tipo\n", "Riga 1: colonna TIPO, c'è due volte"},
        {"Terminale;TIPO\n2;Orlo\n3\n", "Riga 3: 1 campi invece di 2"},
        {"Terminale;TIPO\n2;Orlo\n;Orlo\n", "Riga 3: colonna Terminale, manca il numero"},
        {"Terminale;TIPO\n2;Orlo\n3;\n",
         "Riga 3: colonna TIPO, manca il modello del nuovo terminale"},
        {"Terminale;TIPO\n2;Orlo\n2;Orlo\n",
         "Riga 3: colonna Terminale, il terminale 2 c'è due volte"},
        {"Terminale;TIPO;Porta\n2;Orlo;1\n3;Lumo;5\n",
         "Riga 3: colonna Porta, «5» non è un numero da 1 a 4"},
        {"Terminale;TIPO\n2;\"Orlo\n", "Riga 3: mancano le virgolette di chiusura"},
    };
    for (const Case& wrong : cases) {
        Write("t.csv", wrong.csv);
        const std::string before = Exported("TERMINALI");
        const Ended ended = Run({"importa", ".", "t.csv"});
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.errors,
                  std::string("orlodesk-registro: ") + wrong.text + ". Niente è stato cambiato.\n");
        EXPECT_EQ(Exported("TERMINALI"), before);
    }
}

TEST_F(Import, NumbersOutsideTheRegisterStayWhereTheyAre)
{
    TakeSample("nimbo-range-2000.mdb");
    const std::string before = Exported("TERMINALI");
    Do({"esporta", ".", "t.csv"});
    EXPECT_EQ(Do({"importa", ".", "t.csv"}), "Terminali aggiunti: 0, cambiati: 0.\n");
    EXPECT_EQ(Exported("TERMINALI"), before);
    Write("t.csv", "Terminale;Descrizione\n33;Portone\n");
    EXPECT_EQ(Do({"importa", ".", "t.csv"}), "Terminali aggiunti: 0, cambiati: 1.\n");
    Write("t.csv", "Terminale;TIPO\n34;Lumo\n");
    ExpectRefused({"importa", ".", "t.csv"},
                  "Riga 2: colonna Terminale, «34» non è un numero da 1 a 32. Niente è stato "
                  "cambiato.");
}

TEST_F(Import, ExportOfAnOlderRegisterKeepsTheHalfSecondOfItsFirstRow)
{
    TakeSample("nimbo-base-97.mdb");
    Do({"esporta", ".", "t.csv"});
    EXPECT_EQ(Do({"importa", ".", "t.csv"}), "Terminali aggiunti: 0, cambiati: 0.\n");
    EXPECT_NE(Do({"esporta", "."}).find("\n1;;2;Ingresso;Sì;2;1;1;;2400;0,5;;No;"),
              std::string::npos);
}

TEST_F(Import, AFaultLeavesAnOlderRegisterWithoutTheNewColumns)
{
    TakeSample("nimbo-base-2000.mdb");
    Write("t.csv", "Terminale;Porta\n1;2\n2;9\n");
    ExpectRefused({"importa", ".", "t.csv"},
                  "Riga 3: colonna Porta, «9» non è un numero da 1 a 4. Niente è stato cambiato.");
}

TEST_F(Import, WhatASpreadsheetSavesIsTaken)
{
    struct Case {
        const char* name;
        const char* csv;
    };
    const Case cases[] = {
        {"Windows-1252", "Terminale;TIPO;Descrizione\r\n1;Orlo;Citt\xE0 \x80\r\n"},
        {"Windows-1252 up to the last byte", "Terminale;TIPO;Descrizione\r\n1;Orlo;Citt\xE0 \x80"},
        {"UTF-8 with its mark",
         "\xEF\xBB\xBF"
         "Terminale;TIPO;Descrizione\r\n1;Orlo;Città €\r\n"},
        {"lines without content", "Terminale;TIPO;Descrizione\r\n1;Orlo;Città €\r\n;;\r\n;;\r\n"},
    };
    for (const Case& saved : cases) {
        const std::string csv = saved.csv;
        Write("t.csv", csv);
        Do({"crea", "."});
        EXPECT_EQ(Do({"importa", ".", "t.csv"}), "Terminali aggiunti: 1, cambiati: 0.\n")
            << saved.name;
        EXPECT_EQ(Exported("TERMINALI").substr(0, 18), "1,1,1,\"Città €\"") << saved.name;
        std::filesystem::remove(PathOf("nimbo.mdb"));
        std::filesystem::remove(PathOf("Configurazione.ini"));
    }
}

TEST_F(Import, OtherEncodingsAreRefused)
{
    Do({"crea", "."});
    Write("t.csv", std::string("\xFF\xFET\0e\0", 6));
    ExpectRefused({"importa", ".", "t.csv"},
                  "Il testo da importare non è né in UTF-8 né in Windows-1252. Salvarlo in UTF-8.");
}

TEST_F(Import, ExportedFilesTellSpreadsheetsThatTheyAreUtf8)
{
    TakeSample("nimbo-full-97.mdb");
    Do({"esporta", ".", "t.csv"});
    EXPECT_EQ(Read("t.csv"), "\xEF\xBB\xBF" + Do({"esporta", "."}));
}

TEST_F(Import, ExportOverwritesNothing)
{
    Do({"crea", "."});
    ExpectRefused({"esporta", ".", "nimbo.mdb"}, "Il file \"nimbo.mdb\" esiste già.");
    Do({"esporta", ".", "t.csv"});
    ExpectRefused({"esporta", ".", "t.csv"}, "Il file \"t.csv\" esiste già.");
}

}  // namespace
}  // namespace orlo::registro::test
