#pragma once

#include "console/answer_panel.h"
#include "console/frm_comandi.h"
#include "tests/support/terminal_window_test.h"

#include <QLineEdit>
#include <QTest>

namespace orlo::testing
{

/// The console over a connected main window.
class ConsoleTest : public TerminalWindowTest<FrmComandi>
{
protected:
    QLineEdit& Command() const { return Find<QLineEdit>("CommandField"); }
    QLineEdit& Data() const { return Find<QLineEdit>("DataField"); }
    QString Answer() const { return Label("ReceivedDataLabel"); }
    QString Status() const { return Label("EsitoComando"); }

    void Press() { Button("cmdTrasmetteComando").click(); }
    void Send(const char* command)
    {
        Command().setText(QString::fromLatin1(command));
        Press();
    }
};

}  // namespace orlo::testing
