#pragma once

#include "acquisition/frm_monitor.h"
#include "acquisition/punch_list.h"
#include "tests/support/terminal_window_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QProgressBar>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace orlo::testing
{

/// The monitor window over a connected main window, in a working directory of its own.
class MonitorTest : public TerminalWindowTest<FrmMonitor>
{
protected:
    void SetUp() override
    {
        TerminalWindowTest::SetUp();
        QDir::setCurrent(folder_.path());
    }
    void TearDown() override { QDir::setCurrent(before_); }

    PunchList& List() const { return Find<PunchList>("ListaMonitor"); }

    /// Opens the window and has it read.
    void Read()
    {
        form.open();
        ReadAgain();
    }
    void ReadAgain() { Button("cmdMonitor").click(); }
    void WantFile() { Find<QCheckBox>("CheckMemo").setChecked(true); }

    QStringList Lines() const
    {
        QStringList lines;
        for (int row = 0; row < List().count(); ++row) lines << List().item(row)->text();
        return lines;
    }
    /// From column 63 on.
    QStringList States() const
    {
        QStringList states;
        for (const QString& text : Lines()) states << text.mid(62);
        return states;
    }

    static QString FileName() { return QStringLiteral("MONITOR.TXT"); }
    static QByteArray Listing()
    {
        QFile file(FileName());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    /// What a message calls it.
    QString Path() const { return folder_.filePath(FileName()); }
    /// What the listing has to be.
    QByteArray ListAsFile() const
    {
        QByteArray bytes;
        for (const QString& text : Lines()) bytes += text.toLatin1() + "\r\n";
        return bytes;
    }

    /// What the window and the line of the last command say of it.
    void ExpectListingIs(const char* how) const
    {
        const QString outcome =
            QStringLiteral("Errore: \"MONITOR.TXT\" ") + QString::fromLatin1(how);
        EXPECT_EQ(Label("EsitoMonitor"), outcome);
        EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(outcome));
    }

    /// The boxes so far, as "title|text", all of them with the information icon.
    QStringList Told() const
    {
        QStringList boxes;
        for (const FakeDialog::Box& box : pc.dialog.told) {
            EXPECT_EQ(box.icon, DialogIcon::Information);
            boxes << box.title + u'|' + box.text;
        }
        return boxes;
    }
    static QStringList ReceptionOk() { return {QStringLiteral("Comunicazione|Ricezione dati OK")}; }

private:
    QString before_ = QDir::currentPath();
    QTemporaryDir folder_;
};

}  // namespace orlo::testing
