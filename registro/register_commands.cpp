#include "jet/integrity_check.h"
#include "registro/command.h"
#include "registro/create_register.h"
#include "registro/failure.h"
#include "registro/new_file.h"
#include "registro/register_file.h"
#include "registro/stale_lock.h"
#include "registro/terminal_csv.h"
#include "registro/terminal_rows.h"

#include <QFile>
#include <QStringDecoder>

#include <iostream>
#include <iterator>

namespace orlo::registro
{

namespace
{

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
    const auto lock_file = jet::LockFile::NameFor(DatabaseFile(given.positional[0]));
    switch (RemoveStaleLock(lock_file)) {
        case LockRemoval::Removed:
            streams.out << "Il registro è sbloccato.\n";
            return;
        case LockRemoval::NotThere:
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
        // A file that is there already is refused: it might be the register itself.
        WriteNewFile(given.positional[1], csv);
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
    QStringDecoder utf8(QStringDecoder::Utf8);  // leaves a byte order mark out
    const QString text = utf8(bytes);
    if (utf8.hasError())
        throw Failure(QStringLiteral("Il testo da importare non è in UTF-8. Salvarlo così."));
    RegisterChange change(given.positional[0]);
    AddMissingColumns(change.Database());
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
