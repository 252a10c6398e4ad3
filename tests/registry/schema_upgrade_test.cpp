#include "registry/schema_upgrade.h"

#include "registry/contenitore_controls.h"
#include "registry/register_loader.h"
#include "tests/support/test_workstation.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace orlo
{
namespace
{

using T = jet::ColumnType;

const std::vector<jet::ColumnDefinition> kBase = {
    {u"Terminale", T::Integer, 2}, {u"Funzionamento", T::Integer, 2}, {u"Descrizione", T::Text, 20},
    {u"Attivo", T::YesNo, 1},      {u"Modalita", T::Integer, 2},      {u"Porta", T::Integer, 2},
    {u"Priorita", T::Integer, 2},  {u"Velocita", T::Long, 4},
};

const std::vector<jet::ColumnDefinition> kLater = {
    {u"Tipo", T::Integer, 2},
    {u"Priorita_Secondaria", T::Integer, 2},
    {u"Modem", T::Text, 20},
    {u"Abilitazione_Modem", T::YesNo, 1},
    {u"Impianto", T::Integer, 2},
    {u"Tentativi", T::Integer, 2},
    {u"Ritardo", T::Single, 4},
    {u"NomeCard", T::Text, 20},
    {u"LenCard", T::Integer, 2},
    {u"Bidirezionale", T::YesNo, 1},
    {u"InizioImpianto", T::Integer, 2},
    {u"InizioAzienda", T::Integer, 2},
    {u"InizioBadge", T::Integer, 2},
    {u"LenImpianto", T::Integer, 2},
    {u"LenAzienda", T::Integer, 2},
    {u"LenBadge", T::Integer, 2},
};

std::string NameOf(const jet::ColumnDefinition& column)
{
    return QString::fromStdU16String(column.name).toStdString();
}

class SchemaUpgrade : public ::testing::Test
{
protected:
    QTemporaryDir folder;
    testing::TestWorkstation pc;
    ProgramState state;

    /// A register of two terminals, the columns given and nothing else.
    void Register(const std::vector<jet::ColumnDefinition>& columns,
                  jet::Version version = jet::Version::Jet4)
    {
        state.TerminalsRecordset.reset();
        state.Database.reset();
        const QString name = folder.filePath(QStringLiteral("nimbo.mdb"));
        QFile::remove(name);
        jet::Database::Create(name.toStdString(), version);
        state.Database = jet::Database::Open(name.toStdString(), jet::OpenMode::ReadWrite);
        state.Database->CreateTable({u"TERMINALI", columns, {}});
        state.TerminalsRecordset = state.Database->OpenTable(u"TERMINALI");
        for (const int number : {7, 4}) {
            state.TerminalsRecordset->AddNew();
            state.TerminalsRecordset->SetField(u"Terminale", std::int32_t{number});
            state.TerminalsRecordset->Update();
        }
        state.TerminalsRecordset->MoveFirst();
    }
    std::vector<jet::ColumnInfo> Columns() const
    {
        return state.Database->TableDefs().at(0).columns;
    }
    /// The values of a column in the order of the rows.
    std::vector<jet::Value> Values(std::u16string_view column) const
    {
        std::vector<jet::Value> values;
        for (const auto rows = state.Database->OpenTable(u"TERMINALI"); !rows->AtEof();
             rows->MoveNext())
            values.push_back(rows->Field(column));
        return values;
    }
    void ExpectAddedOnReading(const jet::ColumnDefinition& missing, jet::Version version)
    {
        std::vector<jet::ColumnDefinition> columns = kBase;
        std::ranges::copy_if(kLater, std::back_inserter(columns),
                             [&](const auto& column) { return column.name != missing.name; });
        Register(columns, version);
        Contenitore window(state, pc.workstation);
        RiempeListaTerminali(window);
        EXPECT_EQ(window.Controls().ListaTerminali->count(), 2) << NameOf(missing);
        ASSERT_EQ(Columns().size(), 24U) << NameOf(missing);
        EXPECT_TRUE(Same(Columns().back(), missing)) << NameOf(missing);
    }
    void ExpectAddedFor(const char* error_text, std::u16string_view added)
    {
        Register(kBase);
        EXPECT_TRUE(NuovoCampo(state, {jet::kColumnNotFound, error_text}));
        ASSERT_EQ(Columns().size(), 9U) << error_text;
        EXPECT_EQ(Columns().back().name, added) << error_text;
        EXPECT_EQ(state.TerminalsRecordset->Field(u"Terminale"), jet::Value(std::int32_t{7}))
            << "the cursor stands on the first row";
    }
    static bool Same(const jet::ColumnDefinition& a, const jet::ColumnDefinition& b)
    {
        return a.name == b.name && a.type == b.type && a.size == b.size;
    }
};

TEST_F(SchemaUpgrade, TheOneMissingColumnIsAddedWhileTheRegisterIsRead)
{
    for (const jet::Version version : {jet::Version::Jet3, jet::Version::Jet4})
        for (const jet::ColumnDefinition& missing : kLater) ExpectAddedOnReading(missing, version);
}

TEST_F(SchemaUpgrade, TheFirstRowAloneGetsHalfASecond)
{
    std::vector<jet::ColumnDefinition> columns = kBase;
    std::ranges::copy_if(kLater, std::back_inserter(columns),
                         [](const auto& column) { return column.name != u"Ritardo"; });
    Register(columns);
    Contenitore window(state, pc.workstation);
    RiempeListaTerminali(window);
    const std::vector<jet::Value> expected = {0.5F, jet::Null{}};
    EXPECT_TRUE(Values(u"Ritardo") == expected);
    EXPECT_EQ(state.TerminalTable[6].Ritardo, 0.5F);
    EXPECT_EQ(state.TerminalTable[3].Ritardo, 0.0F);
}

TEST_F(SchemaUpgrade, ANameIsTakenBeforeTheOneItContains)
{
    const std::pair<const char*, const char16_t*> cases[] = {
        {"manca INIZIOIMPIANTO", u"InizioImpianto"},
        {"manca LenImpianto", u"LenImpianto"},
        {"manca impianto", u"Impianto"},
        {"manca abilitazione_modem", u"Abilitazione_Modem"},
        {"manca Modem", u"Modem"},
        {"manca TIPO, Modem e Ritardo", u"Ritardo"},
    };
    for (const auto& [text, added] : cases) ExpectAddedFor(text, added);
}

TEST_F(SchemaUpgrade, AColumnOfTheBaseIsNotAdded)
{
    Register(kBase);
    for (const char* text : {"manca Priorita", "manca Descrizione", "manca un campo"})
        EXPECT_FALSE(NuovoCampo(state, {jet::kColumnNotFound, text})) << text;
    EXPECT_EQ(Columns().size(), 8U);
    EXPECT_NE(state.TerminalsRecordset, nullptr);
}

TEST_F(SchemaUpgrade, ARegisterWithoutRowsHasNoneToGetTheHalfSecond)
{
    Register(kBase);
    for (; !state.TerminalsRecordset->AtEof(); state.TerminalsRecordset->MoveNext())
        state.TerminalsRecordset->Delete();
    EXPECT_TRUE(NuovoCampo(state, {jet::kColumnNotFound, "manca Ritardo"}));
    EXPECT_EQ(Columns().back().name, u"Ritardo");
    EXPECT_TRUE(state.TerminalsRecordset->AtEof());
}

}  // namespace
}  // namespace orlo
