#pragma once

#include "acquisition/acquisizione.h"
#include "tests/support/connected_window.h"

#include <QFile>
#include <QTemporaryDir>

namespace orlo::testing
{

/// A connected window with a punch file in a folder of its own.
class AcquisitionTest : public ConnectedWindow
{
protected:
    QTemporaryDir folder;

    void SetUp() override
    {
        ConnectedWindow::SetUp();
        window.Controls().NomeFile->setText(folder.filePath(QStringLiteral("TIMBRAT.TXT")));
    }

    void Connect(const char* model, const std::string& settings,
                 const std::vector<std::string>& faults = {})
    {
        ConnectedWindow::Connect(QString::fromLatin1(model), settings, faults);
    }

    AcquisitionOutcome Acquire() { return cmdAcquisisce_Click(window); }

    /// Acquires by the button, and what the line of the last command says then.
    QString LastCommand()
    {
        window.RunCommand(Controls().cmdAcquisisce, QStringLiteral("Prova in corso…"),
                          EscapeUse::Heeded, [this] { Acquire(); });
        return Controls().LabelUltimoComando->text().section(u' ', 1);
    }

    /// Commands of the punch transfer only.
    QStringList Transfers() const { return commands.filter(QStringLiteral("33")); }

    QByteArray PunchFile() const
    {
        QFile file(window.Controls().NomeFile->text());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    QList<QByteArray> PunchLines() const
    {
        QList<QByteArray> lines = PunchFile().split('\n');
        EXPECT_EQ(lines.takeLast(), QByteArray()) << "the last line ends with CR LF";
        return lines;
    }
    const simulator::PunchMemory& Punches() const { return Terminal().Punches(); }
};

}  // namespace orlo::testing
