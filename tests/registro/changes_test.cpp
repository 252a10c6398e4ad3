#include "tests/registro/register_fixture.h"

namespace orlo::registro::test
{
namespace
{

/// With the option that makes its register.
class Changes : public RegisterFolder, public testing::WithParamInterface<const char*>
{
protected:
    Changes()
    {
        const std::string option = GetParam();
        Do(option.empty() ? std::vector<std::string>{"crea", "."}
                          : std::vector<std::string>{"crea", ".", option});
    }
};

INSTANTIATE_TEST_SUITE_P(Jet, Changes, testing::Values("", "--jet3"));

TEST_P(Changes, AddedTerminalsHaveTheDefaultsOfTheirModels)
{
    Do({"aggiungi", ".", "7", "--tipo", "Orlo", "--descrizione", "Università €"});
    Do({"aggiungi", "nimbo.mdb", "4", "--porta=2", "--tipo", "Strale", "--attivo", "no"});
    EXPECT_EQ(Exported("TERMINALI"),
              "7,1,1,\"Università €\",1,1,1,7,6,38400,0.5,,0,0,3,,0,0,0,0,0,0,0,0\n"
              "4,4,1,,0,1,2,0,0,9600,0,,0,0,3,,0,0,0,0,0,0,0,0\n");
    EXPECT_EQ(
        Do({"elenca", "."}),
        "Terminale  TIPO    Descrizione   Attivo  Porta  Velocita  Tentativi  Ritardo  Modem\n"
        "        4  Strale                No          2      9600          3        0\n"
        "        7  Orlo    Università €  Sì          1     38400          3      0,5\n");
    EXPECT_EQ(Do({"verifica", "."}), "Il file è integro.\n");
}

TEST_P(Changes, OnlyWhatTheOptionsSayIsModified)
{
    Do({"aggiungi", ".", "32", "--tipo", "Lumo", "--modem", "0464 910685"});
    Do({"modifica", ".", "32", "--velocita", "1200", "--modem", "", "--bidirezionale", "sì"});
    EXPECT_EQ(Exported("TERMINALI"), "32,6,1,,1,1,1,0,0,1200,0,,0,0,3,,0,1,0,0,0,0,0,0\n");
}

TEST_P(Changes, RemovedTerminalsAreGone)
{
    Do({"aggiungi", ".", "1", "--tipo", "Sipa"});
    Do({"aggiungi", ".", "2", "--tipo", "Sipa"});
    Do({"rimuovi", ".", "1"});
    EXPECT_EQ(Exported("TERMINALI"), "2,2,1,,1,1,1,0,0,,0,,0,0,3,,0,0,0,0,0,0,0,0\n");
    ExpectRefused({"rimuovi", ".", "1"}, "Nel registro non c'è il terminale 1.");
    ExpectRefused({"modifica", ".", "1", "--porta", "2"}, "Nel registro non c'è il terminale 1.");
    ExpectRefused({"aggiungi", ".", "2", "--tipo", "Orlo"},
                  "Il terminale 2 c'è già: \"modifica\" lo cambia.");
}

class OlderRegister : public RegisterFolder
{
};

TEST_F(OlderRegister, GetsTheColumnsThatItLacksAndHalfASecondInItsFirstRow)
{
    TakeSample("nimbo-base-2000.mdb");
    EXPECT_EQ(Do({"esporta", "."}).find("0,5"), std::string::npos);
    Do({"modifica", ".", "2", "--tentativi", "9"});
    const std::string csv = Do({"esporta", "."});
    EXPECT_EQ(csv.find(";0,5;"), csv.rfind(";0,5;"));
    EXPECT_NE(csv.find(";0,5;"), std::string::npos);
    EXPECT_LT(csv.find(";0,5;"), csv.find("\n2;"));
    EXPECT_EQ(Do({"verifica", "."}), "Il file è integro.\n");
}

class ForeignRows : public RegisterFolder
{
};

TEST_F(ForeignRows, OfANumberOutsideTheRegisterCanBeRemoved)
{
    TakeSample("nimbo-range-2000.mdb");
    for (const char* number : {"0", "33", "-1", "32767"}) Do({"rimuovi", ".", number});
    const std::string list = Do({"elenca", "."});
    EXPECT_EQ(list.find("\n        1  "), list.find('\n'));
    EXPECT_EQ(list.find("\n        2  "), list.rfind('\n', list.size() - 2)) << list;
    EXPECT_EQ(Do({"verifica", "."}), "Il file è integro.\n");
}

class Usage : public RegisterFolder
{
};

struct Case {
    std::vector<std::string> arguments;
    std::string text;
};

TEST_F(Usage, WrongUsageIsNamedAndEndsWith2)
{
    Do({"crea", "."});
    const Case cases[] = {
        {{}, "Manca il comando."},
        {{"compatta"}, "Comando sconosciuto: compatta."},
        {{"elenca"}, "Manca l'argomento FILE|CARTELLA."},
        {{"elenca", "a", "b"}, "Argomento di troppo: b."},
        {{"aggiungi", ".", "33", "--tipo", "Orlo"}, "N: «33» non è un numero da 1 a 32."},
        {{"aggiungi", ".", "3"}, "--tipo: manca il modello del nuovo terminale."},
        {{"aggiungi", ".", "3", "--tipo", ""}, "--tipo: manca il modello."},
        {{"aggiungi", ".", "3", "--tipo", "Orlo", "--porta", "5"},
         "--porta: «5» non è un numero da 1 a 4."},
        {{"modifica", ".", "3"}, "Manca che cosa modificare."},
        {{"crea", ".", "--jet5"}, "Opzione sconosciuta: --jet5."},
        {{"crea", ".", "--jet3=sì"}, "--jet3 non vuole un valore."},
        {{"rimuovi", ".", "tre"}, "N: «tre» non è un numero."},
        {{"modifica", ".", "3", "--modem"}, "--modem vuole un valore."},
        {{"modifica", ".", "3", "--modem", "--porta=2"}, "--modem vuole un valore."},
        {{"modifica", ".", "3", "--porta=2", "--porta=3"}, "--porta c'è due volte."},
    };
    for (const Case& wrong : cases) {
        const Ended ended = Run(wrong.arguments);
        EXPECT_EQ(ended.status, 2) << wrong.text;
        EXPECT_EQ(ended.errors,
                  "orlodesk-registro: " + wrong.text + "\nVedere orlodesk-registro --help.\n");
    }
    EXPECT_EQ(Exported("TERMINALI"), "");
}

TEST_F(Usage, HelpNamesTheCommandsAndTheirOptions)
{
    const std::string help = Do({"--help"});
    for (const char* command : {"crea", "verifica", "sblocca", "esporta", "importa", "elenca",
                                "aggiungi", "modifica", "rimuovi"}) {
        EXPECT_NE(help.find(std::string("\n  ") + command + " "), std::string::npos) << command;
        EXPECT_EQ(Do({command, "--help"}).find(std::string("Uso: orlodesk-registro ") + command),
                  0U);
    }
    EXPECT_NE(Do({"modifica", "--help"}).find("--priorita-secondaria VALORE"), std::string::npos);
}

}  // namespace
}  // namespace orlo::registro::test
