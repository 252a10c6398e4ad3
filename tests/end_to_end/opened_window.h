#pragma once

#include "tests/end_to_end/window_on_a_line.h"
#include "tests/support/window_controls.h"

#include <QDialog>

namespace orlo::end_to_end
{

/// A window over the program's own, opened by its button there, and its controls by their names.
class OpenedWindow : public WindowOnALine
{
protected:
    QDialog* form = nullptr;

    void Open(QPushButton* button, const char* name)
    {
        button->click();
        form = desk->Window().findChild<QDialog*>(QLatin1String(name));
        ASSERT_NE(form, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    }

    template <typename Control>
    Control& Find(QAnyStringView name) const
    {
        return orlo::testing::ControlOf<Control>(*form, name);
    }
    void Press(QAnyStringView button) const { Find<QAbstractButton>(button).click(); }
    QString Label(QAnyStringView name) const { return Find<QLabel>(name).text(); }
};

}  // namespace orlo::end_to_end
