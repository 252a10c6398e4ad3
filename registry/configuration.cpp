#include "registry/configuration.h"

#include "jet/file_name.h"
#include "registry/program_state.h"
#include "registry/text_blanks.h"
#include "registry/windows_1252.h"

#include <QFile>

namespace orlo
{

namespace
{

constexpr int kKeyWidth = 20;

QStringList Lines(const QString& text)
{
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    return lines.split(u'\n');
}

}  // namespace

ConfiguredPaths ParseConfiguration(const QByteArray& content)
{
    ConfiguredPaths paths;
    for (const QString& line : Lines(FromUtf8OrWindows1252(content))) {
        const QString key = WithoutBlanksAround(line.left(kKeyWidth));
        const QString value = WithoutBlanksAround(line.mid(kKeyWidth));
        if (key == QStringLiteral("Applicazioni       :"))
            paths.applications = value;
        else if (key == QStringLiteral("Databases          :"))
            paths.databases = value;
        else if (key == QStringLiteral("Reports            :"))
            paths.reports = value;
    }
    return paths;
}

void ReadConfiguration(ProgramState& state, const QString& file_name)
{
    // As the database: what comes from Windows may have its name in any case.
    const std::filesystem::path found = jet::FindFile(QFile::encodeName(file_name).toStdString());
    QFile file(QFile::decodeName(QByteArray::fromStdString(found.string())));
    if (!file.open(QIODevice::ReadOnly)) return;
    const ConfiguredPaths paths = ParseConfiguration(file.readAll());
    state.ApplicationsPath = paths.applications;
    state.DatabasesPath = paths.databases;
    state.ReportsPath = paths.reports;
}

}  // namespace orlo
