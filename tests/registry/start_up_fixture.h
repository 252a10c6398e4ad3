#pragma once

#include "registry/contenitore_controls.h"
#include "registry/start_up.h"
#include "tests/support/fake_component.h"
#include "tests/support/test_workstation.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orlo
{

/// The main window over a test PC and a folder with a real database.
class StartUpTest : public ::testing::Test
{
protected:
    QTemporaryDir folder;
    testing::TestWorkstation pc;
    testing::FakeComponent component;
    int components_made = 0;
    ProgramState state;
    Contenitore window{state, pc.workstation};

    ComponentFactory Factory()
    {
        return [this] {
            ++components_made;
            return component.Make();
        };
    }
    QString InFolder(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    void Database(const char* sample, const char* name = "nimbo.mdb") const
    {
        ASSERT_TRUE(QFile::copy(QStringLiteral(ORLO_TEST_DATA "/") + QString::fromLatin1(sample),
                                InFolder(name)));
    }
    void RegisterEveryTerminalAs(TerminalType type) const
    {
        const auto database =
            jet::Database::Open(InFolder("nimbo.mdb").toStdString(), jet::OpenMode::ReadWrite);
        const auto rows = database->OpenTable(u"TERMINALI");
        for (rows->MoveFirst(); !rows->AtEof(); rows->MoveNext()) {
            rows->Edit();
            rows->SetField(u"TIPO", std::int32_t{static_cast<int>(type)});
            rows->Update();
        }
    }
    void File(const char* name, const QByteArray& content) const
    {
        QFile file(InFolder(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    StartUpOutcome Start()
    {
        File("Configurazione.ini", "Databases          :" + folder.path().toUtf8() + "/\n");
        return StartUp(window, InFolder("Configurazione.ini"), Factory());
    }
    StartUpOutcome StartWithoutLibrary()
    {
        File("Configurazione.ini", "Databases          :" + folder.path().toUtf8() + "/\n");
        return StartUp(window, InFolder("Configurazione.ini"),
                       []() -> std::unique_ptr<ComponentObjects> {
                           throw ComponentError("Il componente non si può usare.");
                       });
    }
    QByteArray Content(const char* name) const
    {
        QFile file(InFolder(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    /// A table as an independent reader sees it.
    QByteArray Exported(const char* table) const
    {
        QProcess reader;
        reader.start(QStringLiteral("mdb-export"),
                     {InFolder("nimbo.mdb"), QString::fromLatin1(table)});
        EXPECT_TRUE(reader.waitForFinished());
        return reader.readAllStandardOutput();
    }
    QStringList Lines() const
    {
        QStringList lines;
        const QListWidget& list = *window.Controls().ListaTerminali;
        for (int i = 0; i < list.count(); ++i) lines << list.item(i)->text();
        return lines;
    }
    const TerminalRecord& Slot(int terminal) const
    {
        return state.TerminalTable[static_cast<std::size_t>(terminal - 1)];
    }
    static QStringList Items(const QComboBox& box)
    {
        QStringList items;
        for (int i = 0; i < box.count(); ++i) items << box.itemText(i);
        return items;
    }
};

}  // namespace orlo
