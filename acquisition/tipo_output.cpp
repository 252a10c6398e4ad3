#include "acquisition/tipo_output.h"

#include "registry/field_value.h"
#include "registry/output_table.h"

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
    const auto rows = database.OpenTable(OutputTable().name);
    if (rows->AtEof()) return {};
    return {IntegerField<std::int16_t>(*rows, u"Tracciato").value_or(0),
            TextField(*rows, u"Codice_Azienda").value_or(QString())};
}

OutputSetting SettingOrDefaults(jet::Database& database)
{
    try {
        return ReadSetting(database);
    } catch (const jet::Error& error) {
        if (error.Number() != jet::kTableNotFound) throw;
    }
    try {
        database.CreateTable(OutputTable());
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
