#pragma once

#include "tests/support/connected_window.h"
#include "tests/support/window_controls.h"

#include <QPushButton>

namespace orlo::testing
{

/// A window over the connected main window, not opened yet, and its controls by their names.
template <typename Window>
class TerminalWindowTest : public ConnectedWindow
{
protected:
    Window form{window};

    void SetUp() override
    {
        ConnectedWindow::SetUp();
        window.show();
    }

    template <typename Control>
    Control& Find(QAnyStringView name) const
    {
        return ControlOf<Control>(form, name);
    }
    QPushButton& Button(QAnyStringView name) const { return Find<QPushButton>(name); }
    QString Label(QAnyStringView name) const { return Find<QLabel>(name).text(); }
};

}  // namespace orlo::testing
