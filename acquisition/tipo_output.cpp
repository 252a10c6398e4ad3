#include "acquisition/tipo_output.h"

#include "registry/field_value.h"

namespace orlo
{

namespace
{

struct OutputSetting {
    std::int16_t layout = 0;
    QString plant_code;
};

OutputSetting ReadSetting(jet::Database& database)
{
    const auto rows = database.OpenTable(u"Output");
    if (rows->AtEof()) return {};
    return {IntegerField<std::int16_t>(*rows, u"Tracciato").value_or(0),
            TextField(*rows, u"Codice_Azienda").value_or(QString())};
}

void MakeTable(jet::Database& database)
{
    constexpr int kPlantCodeLength = 20;
    jet::TableDefinition table;
    table.name = u"Output";
    table.columns = {{u"Tracciato", jet::ColumnType::Integer, 2},
                     {u"Codice_Azienda", jet::ColumnType::Text, kPlantCodeLength}};
    database.CreateTable(table);
}

OutputSetting SettingOrDefaults(jet::Database& database)
{
    try {
        return ReadSetting(database);
    } catch (const jet::Error& error) {
        if (error.Number() != jet::kTableNotFound) throw;
    }
    try {
        MakeTable(database);
    } catch (const jet::Error& error) {
        // A register that can only be read has the defaults; acquiring goes on.
        if (error.Number() != jet::kReadOnly) throw;
    }
    return {};
}

}  // namespace

std::int16_t TipoOutput(ProgramState& state)
{
    const OutputSetting setting =
        state.Database != nullptr ? SettingOrDefaults(*state.Database) : OutputSetting{};
    state.CodiceAzienda = setting.plant_code;
    return setting.layout;
}

}  // namespace orlo
