#pragma once

#include <QString>

namespace orlo
{

enum class DialogIcon { None, Information, Question, Critical };

/// The one seam through which the operator is told or asked something in a message box.
/// The window shows boxes; an unattended command writes to standard error; a test answers by
/// itself.
class OperatorDialog
{
public:
    virtual ~OperatorDialog() = default;

    /// A box with only an OK button. `informative` is the smaller second text, usually empty.
    virtual void Tell(DialogIcon icon, const QString& title, const QString& text,
                      const QString& informative = {}) = 0;

    /// A box with Yes and No; true for Yes. No is the default button. `when_ending` is the answer
    /// when the program is to end and nobody will press either.
    [[nodiscard]] virtual bool AskYesNo(DialogIcon icon, const QString& title, const QString& text,
                                        bool when_ending = false) = 0;

    /// False when nobody is there to answer: waits that overrun then end by themselves.
    virtual bool OperatorPresent() const = 0;
};

}  // namespace orlo
