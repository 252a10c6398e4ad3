#include "registro/register_file.h"

#include "jet/file_name.h"
#include "registro/failure.h"

#include <QFile>

namespace orlo::registro
{

namespace
{

[[noreturn]] void FailInUse(const std::filesystem::path& lock_file)
{
    throw Failure(
        QStringLiteral("Il registro è in uso: c'è il file \"%1\". Chiudere il programma che lo "
                       "usa; se nessuno lo sta usando, \"orlodesk-registro sblocca\" lo libera.")
            .arg(TextOf(lock_file)));
}

}  // namespace

std::filesystem::path PathOf(const QString& text)
{
    return QFile::encodeName(text).toStdString();
}

QString TextOf(const std::filesystem::path& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

std::filesystem::path DatabaseFile(const QString& file_or_folder)
{
    const std::filesystem::path path = PathOf(file_or_folder);
    std::error_code unknown;
    return jet::FindFile(std::filesystem::is_directory(path, unknown) ? path / "nimbo.mdb" : path);
}

std::unique_ptr<jet::Database> OpenToRead(const QString& file_or_folder)
{
    return jet::Database::Open(DatabaseFile(file_or_folder));
}

RegisterChange::RegisterChange(const QString& file_or_folder)
{
    const std::filesystem::path file = DatabaseFile(file_or_folder);
    const std::filesystem::path lock_file = jet::LockFile::NameFor(file);
    if (jet::LockFile::CanBeRead(lock_file)) FailInUse(lock_file);
    database_ = jet::Database::Open(file, jet::OpenMode::ReadWrite);
    lock_ = jet::LockFile::Create(lock_file);
    if (lock_ == nullptr && jet::LockFile::CanBeRead(lock_file)) FailInUse(lock_file);
    database_->BeginTrans();
}

}  // namespace orlo::registro
