#include "registry/start_up.h"

#include "jet/file_name.h"
#include "jet/lock_file.h"
#include "registry/configuration.h"
#include "registry/contenitore_controls.h"
#include "registry/database_error.h"
#include "registry/register_loader.h"

#include <QFile>

#include <filesystem>

namespace orlo
{

namespace
{

std::filesystem::path DatabaseFile(const ProgramState& state, const QString& name)
{
    return QFile::encodeName(state.DatabasesPath + name).toStdString();
}

StartUpOutcome RefuseInUse(Contenitore& window, const std::filesystem::path& lock_file)
{
    const QString text =
        QStringLiteral("Attenzione! il programma è già aperto da un altro utente/applicazione.") +
        u'\r' + QStringLiteral("Non è possibile continuare.");
    const QString file =
        QFile::decodeName(QByteArray::fromStdString(jet::FindFile(lock_file).string()));
    window.Station().dialog.Tell(
        DialogIcon::Critical, QStringLiteral("Attenzione"), text,
        QStringLiteral("Se nessuno lo sta usando, per esempio dopo un arresto improvviso del PC, "
                       "cancellare il file \"%1\" e riavviare il programma.")
            .arg(file));
    return {StartUpOutcome::End::InUse,
            QStringLiteral("Il database è già aperto da un altro utente o programma.")};
}

StartUpOutcome DatabaseFailed(Contenitore& window, const jet::Error& error)
{
    // A database that is not there, for instance because of a wrong folder, gives no message.
    if (error.Number() == jet::kFileNotFound) {
        window.State().CurrentPriority = 0;
    } else {
        window.ShowStartUpFailure(error.Number());
        ShowDatabaseError(window.Station().dialog, error);
    }
    return {StartUpOutcome::End::Incomplete, DatabaseErrorText(error).trimmed()};
}

StartUpOutcome ComponentFailed(Contenitore& window, const ComponentError& error)
{
    const QString text =
        NumberedErrorText(ComponentError::kNumber, QString::fromUtf8(error.what()));
    window.ShowStartUpFailure(ComponentError::kNumber);
    window.Station().dialog.Tell(
        DialogIcon::Critical, QString(), text,
        QStringLiteral("I comandi non si possono usare: rimettere al suo posto la libreria del "
                       "componente, o indicarla con --componente, e riavviare il programma."));
    return {StartUpOutcome::End::Incomplete, text.trimmed()};
}

/// For reading and writing; a file or folder without write permission can still be read.
std::unique_ptr<jet::Database> OpenDatabase(const std::filesystem::path& file)
{
    try {
        return jet::Database::Open(file, jet::OpenMode::ReadWrite);
    } catch (const jet::Error& error) {
        if (error.Number() != jet::kAccessDenied) throw;
        return jet::Database::Open(file, jet::OpenMode::ReadOnly);
    }
}

/// False when another program was quicker and has the database.
bool OpenRegister(Contenitore& window)
{
    ProgramState& state = window.State();
    const std::filesystem::path file = DatabaseFile(state, QStringLiteral("nimbo.mdb"));
    state.Database = OpenDatabase(file);
    state.DatabaseLock = jet::LockFile::Create(jet::LockFile::NameFor(file));
    if (state.DatabaseLock == nullptr && jet::LockFile::CanBeRead(jet::LockFile::NameFor(file)))
        return false;
    state.TerminalsRecordset = state.Database->OpenTable(u"TERMINALI");
    return true;
}

void FillChoices(Contenitore& window)
{
    window.CaricaComboRitardo();
    window.CaricaComboTipoTerminale();
    window.CaricaComboPorta();
    window.CaricaComboVelocita();
    window.Controls().NomeFile->setText(QStringLiteral("TIMBRAT.TXT"));
    // The register came before the choices: the first terminal's are shown now that they are there.
    window.SelectTerminalLine(0);
}

}  // namespace

StartUpOutcome StartUp(Contenitore& window, const QString& configuration_file,
                       const ComponentFactory& make_component)
{
    ProgramState& state = window.State();
    ReadConfiguration(state, configuration_file);
    const std::filesystem::path lock_file = DatabaseFile(state, QStringLiteral("nimbo.ldb"));
    if (jet::LockFile::CanBeRead(lock_file)) return RefuseInUse(window, lock_file);
    try {
        if (!OpenRegister(window)) return RefuseInUse(window, lock_file);
        if (RiempeListaTerminali(window)) state.Component = make_component();
    } catch (const jet::Error& error) {
        return DatabaseFailed(window, error);
    } catch (const ComponentError& error) {
        return ComponentFailed(window, error);
    }
    FillChoices(window);
    return {};
}

void CloseRegister(ProgramState& state)
{
    state.TerminalsRecordset.reset();
    state.Database.reset();
    state.DatabaseLock.reset();
}

}  // namespace orlo
