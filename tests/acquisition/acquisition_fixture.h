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

    /// Acquires by the button, to one box; while it stands the strip does not speak of a command
    /// that goes on.
    void ExpectNothingToGoOnInTheBox()
    {
        pc.dialog.on_tell = [this] {
            EXPECT_FALSE(Controls().LabelEsc->isVisible());
            EXPECT_EQ(Controls().LabelAvviso->text(), QString());
        };
        window.show();
        window.RunCommand(Controls().cmdAcquisisce, QStringLiteral("Prova in corso…"),
                          EscapeUse::Heeded, [this] {
                              EXPECT_TRUE(Controls().LabelEsc->isVisible());
                              EXPECT_NE(Controls().LabelAvviso->text(), QString());
                              Acquire();
                          });
        EXPECT_EQ(pc.dialog.told.size(), 1U);
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
