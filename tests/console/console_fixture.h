#pragma once

#include "console/answer_panel.h"
#include "console/frm_comandi.h"
#include "tests/support/connected_window.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace orlo::testing
{

/// The console over a connected main window.
class ConsoleTest : public ConnectedWindow
{
protected:
    FrmComandi form{window};

    void SetUp() override
    {
        ConnectedWindow::SetUp();
        window.show();
    }

    template <typename Control>
    Control& Find(const char* name) const
    {
        auto* control = form.findChild<Control*>(QLatin1String(name));
        EXPECT_NE(control, nullptr) << name;
        return *control;
    }
    QLineEdit& Command() const { return Find<QLineEdit>("CommandField"); }
    QLineEdit& Data() const { return Find<QLineEdit>("DataField"); }
    QPushButton& Button(const char* name) const { return Find<QPushButton>(name); }
    QString Label(const char* name) const { return Find<QLabel>(name).text(); }
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
