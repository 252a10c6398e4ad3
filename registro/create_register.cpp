#include "registro/create_register.h"

#include "bells/suonerie.h"
#include "jet/database.h"
#include "jet/file_name.h"
#include "jet/lock_file.h"
#include "jet/storage.h"
#include "registro/failure.h"
#include "registro/new_file.h"
#include "registro/register_file.h"
#include "registro/terminal_columns.h"
#include "registry/configuration.h"
#include "registry/output_table.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <iterator>

namespace orlo::registro
{

namespace
{

namespace fs = std::filesystem;

jet::TableDefinition TerminalTable()
{
    jet::TableDefinition table{u"TERMINALI", {}, {}};
    std::ranges::transform(kTerminalColumns, std::back_inserter(table.columns),
                           &TerminalColumn::Definition);
    table.indexes = {{.name = u"TERMINALE",
                      .columns = {{.name = u"Terminale"}},
                      .primary = true,
                      .unique = true}};
    return table;
}

void FillDatabase(const fs::path& file)
{
    const auto database = jet::Database::Open(file, jet::OpenMode::ReadWrite);
    database->BeginTrans();
    for (const jet::TableDefinition& table : {TerminalTable(), OutputTable()})
        database->CreateTable(table);
    CreaTabellaSuonerie(*database);
    // The standard layout, which has no plant code.
    const auto output = database->OpenTable(OutputTable().name);
    output->AddNew();
    output->SetField(u"Tracciato", std::int32_t{0});
    output->SetField(u"Codice_Azienda", jet::Text());
    output->Update();
    database->CommitTrans();
}

QByteArray Configuration(const QString& folder)
{
    QByteArray text = QStringLiteral(
                          "Applicazioni       :%1\n"
                          "Databases          :%1\n"
                          "Reports            :%1\n")
                          .arg(folder)
                          .toUtf8();
    if (ParseConfiguration(text).databases != folder)
        throw Failure(QStringLiteral("Il nome della cartella \"%1\" non si può scrivere in "
                                     "Configurazione.ini: usarne una senza spazi in fondo.")
                          .arg(folder));
    return text;
}

void RefuseExisting(const fs::path& path)
{
    const fs::path found = jet::FindFile(path);
    // A link that leads nowhere, to a server that is away, is there too; and what cannot be looked
    // for stands in a folder that cannot be written either.
    std::error_code unknown;
    if (fs::exists(fs::symlink_status(found, unknown)))
        throw Failure(QStringLiteral("Il file \"%1\" esiste già: niente è stato cambiato.")
                          .arg(TextOf(found)));
}

}  // namespace

// The database gets its name when it is whole, and after the configuration file, so that no program
// finds half a register.
void CreateRegister(const QString& folder, jet::Version version)
{
    const QDir place(folder);
    if (folder.isEmpty() || !place.exists())
        throw Failure(QStringLiteral("La cartella \"%1\" non esiste.").arg(folder));
    const QString full_name = QDir::cleanPath(place.absolutePath() + u'/');
    const QString prefix = full_name.endsWith(u'/') ? full_name : full_name + u'/';
    const fs::path database = PathOf(prefix + QStringLiteral("nimbo.mdb"));
    const fs::path configuration = PathOf(prefix + QStringLiteral("Configurazione.ini"));
    for (const fs::path& path : {database, configuration, jet::LockFile::NameFor(database)})
        RefuseExisting(path);

    const QTemporaryDir workplace(prefix + QStringLiteral("registro-XXXXXX"));
    if (!workplace.isValid())
        throw Failure(QStringLiteral("La cartella \"%1\" non si può scrivere (%2).")
                          .arg(folder, workplace.errorString()));
    const fs::path unfinished = PathOf(workplace.filePath(QStringLiteral("nimbo.mdb")));
    jet::Database::Create(unfinished, version);
    FillDatabase(unfinished);
    WriteNewFile(TextOf(configuration), Configuration(prefix));
    try {
        jet::SystemStorage().Rename(unfinished, database);
    } catch (const jet::Error&) {
        std::error_code ignored;
        fs::remove(configuration, ignored);
        throw;
    }
    jet::SystemStorage().SyncFolderOf(database);
}

}  // namespace orlo::registro
