#include "acquisition/tipo_output.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

class TipoOutputTest : public ::testing::TestWithParam<jet::Version>
{
protected:
    QTemporaryDir folder;
    ProgramState state;
    const std::string file = folder.filePath(QStringLiteral("nimbo.mdb")).toStdString();

    void Open(jet::OpenMode mode)
    {
        state.Database.reset();
        state.Database = jet::Database::Open(file, mode);
    }
    void SetUp() override
    {
        jet::Database::Create(file, GetParam());
        Open(jet::OpenMode::ReadWrite);
    }
    void Row(const jet::Value& layout, const jet::Value& plant_code) const
    {
        const auto rows = state.Database->OpenTable(u"Output");
        rows->AddNew();
        rows->SetField(u"Tracciato", layout);
        rows->SetField(u"Codice_Azienda", plant_code);
        rows->Update();
    }
};

INSTANTIATE_TEST_SUITE_P(Jet, TipoOutputTest,
                         ::testing::Values(jet::Version::Jet3, jet::Version::Jet4));

TEST_P(TipoOutputTest, MakesTheTableWhenItIsMissing)
{
    state.CodiceAzienda = QStringLiteral("vecchio");
    EXPECT_EQ(TipoOutput(state), 0);
    EXPECT_EQ(state.CodiceAzienda, QString());
    const auto tables = state.Database->TableDefs();
    ASSERT_EQ(tables.size(), 1U);
    EXPECT_EQ(tables[0].name, u"Output");
    ASSERT_EQ(tables[0].columns.size(), 2U);
    EXPECT_EQ(tables[0].columns[0].name, u"Tracciato");
    EXPECT_EQ(tables[0].columns[0].type, jet::ColumnType::Integer);
    EXPECT_EQ(tables[0].columns[1].name, u"Codice_Azienda");
    EXPECT_EQ(tables[0].columns[1].type, jet::ColumnType::Text);
    EXPECT_EQ(TipoOutput(state), 0) << "the table that was made has no row";
}

TEST_P(TipoOutputTest, ReadsTheFirstRow)
{
    TipoOutput(state);
    Row(std::int32_t{1}, jet::Text(u"Perù"));
    Row(std::int32_t{0}, jet::Text(u"altro"));
    EXPECT_EQ(TipoOutput(state), 1);
    EXPECT_EQ(state.CodiceAzienda, QStringLiteral("Perù"));
}

TEST_P(TipoOutputTest, NullIsTheStandardLayoutAndNoPlantCode)
{
    TipoOutput(state);
    Row(jet::Null{}, jet::Null{});
    state.CodiceAzienda = QStringLiteral("vecchio");
    EXPECT_EQ(TipoOutput(state), 0);
    EXPECT_EQ(state.CodiceAzienda, QString());
}

TEST_P(TipoOutputTest, ADatabaseThatCanOnlyBeReadHasTheDefaults)
{
    Open(jet::OpenMode::ReadOnly);
    EXPECT_EQ(TipoOutput(state), 0);
    EXPECT_TRUE(state.Database->TableDefs().empty());
}

TEST_P(TipoOutputTest, WithoutADatabaseThereAreTheDefaults)
{
    state.Database.reset();
    EXPECT_EQ(TipoOutput(state), 0);
}

TEST_P(TipoOutputTest, ATableWithoutItsColumnIsAnError)
{
    state.Database->CreateTable({u"Output", {{u"Altro", jet::ColumnType::Integer, 2}}, {}});
    const auto rows = state.Database->OpenTable(u"Output");
    rows->AddNew();
    rows->Update();
    try {
        TipoOutput(state);
        ADD_FAILURE() << "no error";
    } catch (const jet::Error& error) {
        EXPECT_EQ(error.Number(), jet::kColumnNotFound);
    }
}

}  // namespace
}  // namespace orlo
