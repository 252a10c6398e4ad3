#pragma once

#include "registry/terminal_record.h"

#include <QObject>

#include <array>
#include <vector>

class QLineEdit;
class QRadioButton;

namespace Ui
{
class Contenitore;
}

namespace orlo
{

/// What the operator entered, ready for a slot; or the first field whose number its column cannot
/// hold, and then no record to be used.
struct EnteredTerminal {
    TerminalRecord record;
    QLineEdit* misfit = nullptr;
};

/// The edit controls of the main window as one terminal's parameters: shown, emptied, read.
class TerminalForm : public QObject
{
    Q_OBJECT

public:
    TerminalForm(const Ui::Contenitore& ui, QObject* parent);

    void Empty();
    void Show(const TerminalRecord& slot);

    /// The controls over a copy of `slot`, which provides what no control says: the number, and the
    /// type as long as none is picked.
    EnteredTerminal Read(const TerminalRecord& slot) const;

    /// Shows, hides and captions what depends on the registered type; unknown codes change nothing.
    void LayOutFor(int type_code);

    /// Sets the option `value` - 1 and clears the others; any other value clears all.
    void SetModalita(int value);
    void SetFunzionamento(int value);

signals:
    /// The operator, or a command, changed the content of a control.
    void Changed();

private:
    using Options = std::array<QRadioButton*, 3>;
    struct NumberField {
        QLineEdit* field;
        std::int16_t TerminalRecord::*value;
    };

    void WatchControls();

    const Ui::Contenitore& ui_;
    std::vector<NumberField> numbers_;
    Options modalita_;
    Options funzionamento_;
};

/// ",5" for half a second: the choice of ComboRitardo nearest to a delay.
QString DelayText(float seconds);
/// The delay of a text of ComboRitardo: its last character counts as tenths.
float DelayOf(const QString& text);
/// The port of a text of ComboPorta: its last character.
std::int16_t PortOf(const QString& text);

}  // namespace orlo
