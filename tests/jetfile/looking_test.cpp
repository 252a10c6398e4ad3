#include "tests/jetfile/jetfile_process.h"

#include <gtest/gtest.h>

namespace jetfile::test
{

namespace
{

using jet::test::Sample;

TEST(Tables, AreListedWithTheirRows)
{
    for (const char* sample : {"nimbo-full-2000.mdb", "nimbo-full-97.mdb"}) {
        const Ended ended = Jetfile({"tables", Sample(sample).string()});
        EXPECT_EQ(ended.status, 0);
        EXPECT_EQ(ended.output, "Output 1\nSuonerie 10\nTERMINALI 8\n");
    }
    EXPECT_EQ(Jetfile({"tables", Sample("nimbo-empty-97.mdb").string()}).output, "");
}

TEST(Schema, NamesColumnsAndIndexes)
{
    for (const char* sample : {"nimbo-base-2000.mdb", "nimbo-base-97.mdb"}) {
        const Ended ended = Jetfile({"schema", Sample(sample).string(), "terminali"});
        EXPECT_EQ(ended.status, 0);
        EXPECT_EQ(ended.output,
                  "TERMINALI\n"
                  "    Terminale            integer\n"
                  "    Funzionamento        integer\n"
                  "    Descrizione          text 50\n"
                  "    Attivo               yesno\n"
                  "    Modalita             integer\n"
                  "    Porta                integer\n"
                  "    Priorita             integer\n"
                  "    Velocita             long\n"
                  "    index TERMINALE: primary, unique, no nulls (Terminale)\n");
    }
}

TEST(Schema, TellsDirectionsRelationsAndAutonumbers)
{
    const std::string text =
        Jetfile({"schema", Sample("nimbo-foreign-2000.mdb").string(), "Dipendenti"}).output;
    for (const char* line :
         {"    Matricola            long, automatic\n", "    index PerCognome: (Cognome, Nome)\n",
          "    index PerData: (Assunto descending)\n",
          "    index .rB: of a relation, unique, no nulls (Matricola)\n"}) {
        EXPECT_NE(text.find(line), std::string::npos) << text;
    }
}

TEST(Dump, GivesColumnsIndexesAndRows)
{
    const Ended ended = Jetfile({"dump", Sample("nimbo-base-2000.mdb").string()});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(
        ended.output,
        R"({"table": "TERMINALI", "rows": 5, "columns": [)"
        R"({"name": "Terminale", "type": "integer", "len": 2, "id": 0, "fixed": true, "auto": false}, )"
        R"({"name": "Funzionamento", "type": "integer", "len": 2, "id": 1, "fixed": true, "auto": false}, )"
        R"({"name": "Descrizione", "type": "text", "len": 100, "id": 2, "fixed": false, "auto": false}, )"
        R"({"name": "Attivo", "type": "yesno", "len": 1, "id": 3, "fixed": true, "auto": false}, )"
        R"({"name": "Modalita", "type": "integer", "len": 2, "id": 4, "fixed": true, "auto": false}, )"
        R"({"name": "Porta", "type": "integer", "len": 2, "id": 5, "fixed": true, "auto": false}, )"
        R"({"name": "Priorita", "type": "integer", "len": 2, "id": 6, "fixed": true, "auto": false}, )"
        R"({"name": "Velocita", "type": "long", "len": 4, "id": 7, "fixed": true, "auto": false}], )"
        R"("indexes": [{"name": "TERMINALE", "kind": "primary", "unique": true, )"
        R"("ignorenull": false, "required": true, "columns": [["Terminale", "asc"]]}]})"
        "\n"
        R"({"in": "TERMINALI", "row": {"Terminale": 1, "Funzionamento": 1, )"
        R"("Descrizione": "Ingresso", "Attivo": true, "Modalita": 1, "Porta": 1, )"
        R"("Priorita": 0, "Velocita": 9600}})"
        "\n"
        R"({"in": "TERMINALI", "row": {"Terminale": 12, "Funzionamento": 1, )"
        R"("Descrizione": "Perù - reparto più lontano di tutti gli altri", "Attivo": true, )"
        R"("Modalita": 1, "Porta": 4, "Priorita": 9, "Velocita": 38400}})"
        "\n"
        R"({"in": "TERMINALI", "row": {"Terminale": 2, "Funzionamento": 1, )"
        R"("Descrizione": "Mensa", "Attivo": true, "Modalita": 2, "Porta": 1, )"
        R"("Priorita": 1, "Velocita": 9600}})"
        "\n"
        R"({"in": "TERMINALI", "row": {"Terminale": 3, "Funzionamento": 2, )"
        R"("Descrizione": "Città vecchia", "Attivo": false, "Modalita": 3, "Porta": 2, )"
        R"("Priorita": 2, "Velocita": 4800}})"
        "\n"
        R"({"in": "TERMINALI", "row": {"Terminale": 5, "Funzionamento": 3, )"
        R"("Descrizione": "Caffè", "Attivo": true, "Modalita": 1, "Porta": 3, )"
        R"("Priorita": 0, "Velocita": 1200}})"
        "\n");
}

TEST(Dump, OfATableThatIsNotThereFails)
{
    const Ended ended = Jetfile({"dump", Sample("nimbo-base-97.mdb").string(), "Output"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_TRUE(ended.errors.starts_with("jetfile: error 3011: ")) << ended.errors;
}

TEST(Dump, ShowsTheEnginesOwnTablesWhenAskedFor)
{
    const Ended ended = Jetfile({"dump", Sample("nimbo-base-97.mdb").string(), "MSysObjects"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_TRUE(ended.output.starts_with(R"({"table": "MSysObjects", )")) << ended.output;
    EXPECT_NE(ended.output.find(R"("Name": "TERMINALI")"), std::string::npos);
}

TEST(Check, SoundFilesHaveNoFinding)
{
    for (const auto& sample : jet::test::Samples()) {
        const Ended ended = Jetfile({"check", sample.string()});
        EXPECT_EQ(ended.status, 0) << sample;
        EXPECT_EQ(ended.output + ended.errors, "") << sample;
    }
}

TEST(Check, AFindingIsALineAndEndsWithOne)
{
    const jet::test::ScratchFolder folder;
    auto bytes = jet::test::ReadFile(Sample("nimbo-base-2000.mdb"));
    // The first entry of the index TERMINALE, on page 26: the key 7F 80 01 of terminal 1.
    const std::size_t key = 26 * 4096 + 480;
    ASSERT_EQ(bytes.at(key + 2), 1);
    bytes[key + 2] = 0;
    const auto file = folder.Write("damaged.mdb", bytes);
    const Ended ended = Jetfile({"check", file.string()});
    EXPECT_EQ(ended.status, 1);
    EXPECT_FALSE(ended.output.empty());
    EXPECT_EQ(ended.errors, "");
}

}  // namespace

}  // namespace jetfile::test
