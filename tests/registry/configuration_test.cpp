#include "registry/configuration.h"

#include "registry/program_state.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

TEST(Configuration, ReadsTheThreeFolders)
{
    const ConfiguredPaths paths = ParseConfiguration(
        "Applicazioni       :/opt/orlo/\r\n"
        "Databases          :/srv/orlo/\r\n"
        "Reports            :/srv/stampe/\r\n");
    EXPECT_EQ(paths.applications, QStringLiteral("/opt/orlo/"));
    EXPECT_EQ(paths.databases, QStringLiteral("/srv/orlo/"));
    EXPECT_EQ(paths.reports, QStringLiteral("/srv/stampe/"));
}

TEST(Configuration, DatabasesByTheLine)
{
    struct Case {
        const char* name;
        QByteArray content;
        QString databases;
    };
    const Case cases[] = {
        {"blanks around the value do not count", "Databases          :   C:\\Dati\\  ",
         QStringLiteral("C:\\Dati\\")},
        {"blanks inside the value count", "Databases          :/srv/i dati/",
         QStringLiteral("/srv/i dati/")},
        {"colon not in column 20", "Databases:/srv/", {}},
        {"colon in column 19", "Databases         :/srv/", {}},
        {"another case", "DATABASES          :/srv/", {}},
        {"key not at the beginning", "x Databases        :/srv/", {}},
        {"no value", "Databases          :", {}},
        {"last value of a key given twice", "Databases          :/a/\nDatabases          :/b/\n",
         QStringLiteral("/b/")},
        {"other lines are ignored", "; commento\n\nDatabases          :/srv/\naltro",
         QStringLiteral("/srv/")},
        {"UTF-8", "Databases          :/srv/citt\xC3\xA0/", QStringLiteral("/srv/città/")},
        {"UTF-8 with its mark",
         "\xEF\xBB\xBF"
         "Databases          :/srv/",
         QStringLiteral("/srv/")},
        {"Windows-1252", "Databases          :/srv/citt\xE0 \x80/",
         QStringLiteral("/srv/città €/")},
        {"Windows-1252 up to the last byte", "Databases          :/srv/citt\xE0",
         QStringLiteral("/srv/città")},
        {"lines that end in CR alone", "Applicazioni       :/a/\rDatabases          :/srv/\r",
         QStringLiteral("/srv/")},
        {"empty file", "", {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ParseConfiguration(c.content).databases, c.databases) << c.name;
}

TEST(Configuration, FileThatIsMissingLeavesThePathsEmpty)
{
    ProgramState state;
    ReadConfiguration(state, QStringLiteral("/there-is-no-such-folder/Configurazione.ini"));
    EXPECT_TRUE(state.DatabasesPath.isEmpty());
}

TEST(Configuration, FileIsReadIntoTheState)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("Configurazione.ini")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Databases          :/srv/\nApplicazioni       :/opt/\n");
    file.close();
    ProgramState state;
    ReadConfiguration(state, file.fileName());
    EXPECT_EQ(state.DatabasesPath, QStringLiteral("/srv/"));
    EXPECT_EQ(state.ApplicationsPath, QStringLiteral("/opt/"));
    EXPECT_EQ(state.ReportsPath, QString());
}

}  // namespace
}  // namespace orlo
