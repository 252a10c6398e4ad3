#include "jet/database.h"
#include "tests/registro/register_fixture.h"

#include <filesystem>

namespace orlo::registro::test
{
namespace
{

class Creation : public RegisterFolder
{
};

constexpr int kFormatByte = 0x14;  // 0 Jet 3, 1 Jet 4

TEST_F(Creation, MakesARegisterOfEitherFormatAndItsConfiguration)
{
    for (const bool jet3 : {false, true}) {
        const std::string name = jet3 ? "tre" : "quattro";
        std::filesystem::create_directory(PathOf(name));
        Do(jet3 ? std::vector<std::string>{"crea", name, "--jet3"}
                : std::vector<std::string>{"crea", name});
        EXPECT_EQ(Read(name + "/nimbo.mdb")[kFormatByte], jet3 ? 0 : 1);
        EXPECT_EQ(Read(name + "/Configurazione.ini"),
                  "Applicazioni       :" + PathOf(name) + "/\nDatabases          :" + PathOf(name) +
                      "/\nReports            :" + PathOf(name) + "/\n");
        EXPECT_EQ(Do({"verifica", name}), "Il file è integro.\n");
    }
}

TEST_F(Creation, RegisterHasItsTablesAndTheIndexOfTheNumbers)
{
    Do({"crea", "."});
    const auto database = jet::Database::Open(PathOf("nimbo.mdb"));
    const auto tables = database->TableDefs();
    ASSERT_EQ(tables.size(), 3U);
    EXPECT_EQ(tables[0].name, u"TERMINALI");
    EXPECT_EQ(tables[0].columns.size(), 24U);
    ASSERT_EQ(tables[0].indexes.size(), 1U);
    EXPECT_EQ(tables[0].indexes[0].name, u"TERMINALE");
    EXPECT_TRUE(tables[0].indexes[0].primary);
    EXPECT_TRUE(tables[0].indexes[0].unique);
    EXPECT_EQ(tables[1].name, u"Output");
    EXPECT_EQ(tables[2].name, u"Suonerie");
    EXPECT_EQ(tables[2].columns.size(), 7U);
    const auto output = database->OpenTable(u"Output");
    EXPECT_EQ(output->RecordCount(), 1U);
    EXPECT_TRUE(output->Field(u"Tracciato") == jet::Value(std::int32_t{0}));
    EXPECT_TRUE(output->Field(u"Codice_Azienda") == jet::Value(jet::Text()));
}

TEST_F(Creation, NeitherFileIsOverwritten)
{
    Write("configurazione.INI", "mio");
    ExpectRefused({"crea", "."}, "Il file \"" + PathOf("configurazione.INI") +
                                     "\" esiste già: niente è stato cambiato.");
    EXPECT_FALSE(Has("nimbo.mdb"));
    std::filesystem::remove(PathOf("configurazione.INI"));
    Write("nimbo.mdb", "mio");
    ExpectRefused({"crea", "."},
                  "Il file \"" + PathOf("nimbo.mdb") + "\" esiste già: niente è stato cambiato.");
    EXPECT_FALSE(Has("Configurazione.ini"));
}

TEST_F(Creation, ALinkThatLeadsNowhereIsNotOverwritten)
{
    for (const char* target : {"/manca/nimbo.mdb", "nimbo.mdb"}) {
        std::filesystem::create_symlink(target, PathOf("nimbo.mdb"));
        ExpectRefused({"crea", "."}, "Il file \"" + PathOf("nimbo.mdb") +
                                         "\" esiste già: niente è stato cambiato.");
        EXPECT_TRUE(std::filesystem::is_symlink(PathOf("nimbo.mdb")));
        EXPECT_FALSE(Has("Configurazione.ini"));
        std::filesystem::remove(PathOf("nimbo.mdb"));
    }
}

TEST_F(Creation, AFolderIsNotMade)
{
    ExpectRefused({"crea", "manca"}, "La cartella \"manca\" non esiste.");
}

TEST_F(Creation, NothingElseIsLeftInTheFolder)
{
    Do({"crea", "."});
    int files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(PathOf("")))
        ++files;
    EXPECT_EQ(files, 2);
}

}  // namespace
}  // namespace orlo::registro::test
