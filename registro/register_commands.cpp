#include "jet/failure.h"
#include "jet/integrity_check.h"
#include "registro/command.h"
#include "registro/create_register.h"
#include "registro/failure.h"
#include "registro/new_file.h"
#include "registro/register_file.h"
#include "registro/stale_lock.h"
#include "registro/terminal_csv.h"
#include "registro/terminal_rows.h"
#include "registry/windows_1252.h"

#include <QFile>

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <system_error>

namespace orlo::registro
{

namespace
{

const QByteArray kUtf8Mark = QByteArrayLiteral("\xEF\xBB\xBF");

void Create(const Arguments& given, Streams)
{
    const bool jet3 = given.options.contains(QStringLiteral("jet3"));
    CreateRegister(given.positional[0], jet3 ? jet::Version::Jet3 : jet::Version::Jet4);
}

void Check(const Arguments& given, Streams streams)
{
    const std::vector<std::string> findings =
        jet::CheckIntegrity(DatabaseFile(given.positional[0]));
    for (const std::string& finding : findings) streams.out << finding << "\n";
    if (!findings.empty())
        throw Failure(QStringLiteral("Il file ha difetti: %1.").arg(findings.size()));
    streams.out << "Il file è integro.\n";
}

void Unlock(const Arguments& given, Streams streams)
{
    const std::filesystem::path file = DatabaseFile(given.positional[0]);
    switch (RemoveStaleLock(jet::LockFile::NameFor(file))) {
        case LockRemoval::Removed:
            streams.out << "Il registro è sbloccato.\n";
            return;
        case LockRemoval::NotThere:
            // A name that was mistyped has no lock either.
            if (std::error_code unknown; !std::filesystem::exists(file, unknown))
                jet::FailOpen(file, ENOENT);
            streams.out << "Il registro non era bloccato.\n";
            return;
        case LockRemoval::Held:
            throw Failure(QStringLiteral("Un programma sta usando il registro: chiuderlo."));
    }
}

void Export(const Arguments& given, Streams streams)
{
    const auto database = OpenToRead(given.positional[0]);
    const QByteArray csv = TerminalsAsCsv(ReadTerminals(*database)).toUtf8();
    if (given.positional.size() > 1)
        // A file that is there already is refused: it might be the register itself. Without its
        // byte order mark a spreadsheet would take the accents for Windows-1252.
        WriteNewFile(given.positional[1], kUtf8Mark + csv);
    else
        streams.out << csv.toStdString();
}

QByteArray ReadAll(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("Il file \"%1\" non si può leggere (%2).")
                          .arg(name, file.errorString()));
    return file.readAll();
}

QByteArray ReadAll(std::istream& in)
{
    return QByteArray::fromStdString({std::istreambuf_iterator<char>(in), {}});
}

void Import(const Arguments& given, Streams streams)
{
    const QByteArray bytes =
        given.positional.size() > 1 ? ReadAll(given.positional[1]) : ReadAll(streams.in);
    const QString text = FromUtf8OrWindows1252(bytes);
    if (text.contains(QChar::Null))
        throw Failure(QStringLiteral(
            "Il testo da importare non è né in UTF-8 né in Windows-1252. Salvarlo in UTF-8."));
    RegisterChange change(given.positional[0]);
    const ImportCount count = StoreCsv(change.Database(), text);
    change.Commit();
    streams.out << "Terminali aggiunti: " << count.added << ", cambiati: " << count.changed
                << ".\n";
}

}  // namespace

std::vector<Command> RegisterCommands()
{
    const QString place = QStringLiteral("FILE|CARTELLA");
    const QString csv = QStringLiteral("[FILE.csv]");
    return {
        {QStringLiteral("crea"),
         {QStringLiteral("CARTELLA")},
         QStringLiteral("Crea un registro vuoto e il suo \"Configurazione.ini\""),
         {{QStringLiteral("jet3"), {}, QStringLiteral("nel formato di Access 97")}},
         Create},
        {QStringLiteral("verifica"),
         {place},
         QStringLiteral("Controlla l'integrità del file"),
         {},
         Check},
        {QStringLiteral("sblocca"),
         {place},
         QStringLiteral("Toglie il blocco \".ldb\" che un arresto improvviso ha lasciato"),
         {},
         Unlock},
        {QStringLiteral("esporta"),
         {place, csv},
         QStringLiteral("Scrive i terminali in un CSV, senza nome sullo standard output"),
         {},
         Export},
        {QStringLiteral("importa"),
         {place, csv},
         QStringLiteral("Aggiunge e cambia i terminali di un CSV, senza nome dallo standard input"),
         {},
         Import},
    };
}

}  // namespace orlo::registro
