#pragma once

#include "registry/contenitore.h"
#include "registry/contenitore_controls.h"
#include "registry/list_line.h"
#include "registry/widgets/theme.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orlo::contenitore_test
{

class StillClock : public Clock
{
public:
    double SecondsSinceMidnight() override { return 0; }
    QDate Date() override { return {2006, 3, 5}; }
    QTime Time() override { return {14, 7, 9}; }
    std::chrono::milliseconds Monotonic() override { return {}; }
    void YieldToEventLoop() override { QCoreApplication::processEvents(); }
    void ProcessPendingEvents() override { QCoreApplication::processEvents(); }
    void SleepUntilInput(SerialPortControl&, std::chrono::milliseconds) override {}
};

class NoEscape : public EscapeKey
{
public:
    EscapeKeyState Query() override { return {}; }
    void Forget() override {}
};

/// Keeps what the operator was told.
class RecordingDialog : public OperatorDialog
{
public:
    void Tell(DialogIcon, const QString& title, const QString& text, const QString&) override
    {
        told.push_back(title + u'|' + text);
        if (while_shown) while_shown();
    }
    bool AskYesNo(DialogIcon, const QString&, const QString&, bool) override { return false; }
    bool OperatorPresent() const override { return true; }

    std::vector<QString> told;
    std::function<void()> while_shown;
};

/// A cursor on rows of number and description.
class RowsByNumber : public jet::Recordset
{
public:
    explicit RowsByNumber(std::map<int, jet::Value> rows) : rows_(std::move(rows)) {}

    void MoveFirst() override { at_ = rows_.begin(); }
    void MoveLast() override { at_ = std::prev(rows_.end()); }
    void MoveNext() override { ++at_; }
    void MovePrevious() override { --at_; }
    bool AtBof() const override { return false; }
    bool AtEof() const override { return at_ == rows_.end(); }
    std::size_t RecordCount() override { return rows_.size(); }
    jet::Value Field(std::u16string_view column) override
    {
        EXPECT_EQ(column, u"Descrizione");
        if (unreadable) throw jet::Error(jet::kDiskError, "disco guasto");
        return at_->second;
    }
    void SetIndex(std::u16string_view name) override { index.assign(name); }
    void Seek(const std::vector<jet::Value>& key) override
    {
        at_ = rows_.find(std::get<std::int32_t>(key.at(0)));
    }
    bool NoMatch() const override { return at_ == rows_.end(); }
    void Edit() override
    {
        if (failure != 0) throw jet::Error(failure, "disco guasto");
        edited.clear();
    }
    void AddNew() override { ADD_FAILURE() << "the window never adds a terminal"; }
    void SetField(std::u16string_view column, const jet::Value& value) override
    {
        if (refuses == column) throw jet::Error(jet::kFieldOverflow, "valore troppo grande");
        edited.emplace_back(std::u16string(column), value);
    }
    void Update() override
    {
        ++updates;
        for (const auto& [column, value] : edited)
            if (column == u"Descrizione") at_->second = value;
    }
    void CancelUpdate() override { edited.clear(); }
    void Delete() override { ADD_FAILURE() << "the window never removes a terminal"; }

    /// What the last change set, in order.
    std::vector<std::pair<std::u16string, jet::Value>> edited;
    int updates = 0;
    std::u16string refuses;
    std::u16string index;
    int failure = 0;
    bool unreadable = false;

private:
    std::map<int, jet::Value> rows_;
    std::map<int, jet::Value>::iterator at_ = rows_.begin();
};

inline TerminalRecord Terminal(int number, TerminalType type, const char* description)
{
    TerminalRecord slot;
    slot.Terminale = static_cast<std::int16_t>(number);
    slot.Tipo = static_cast<std::int16_t>(type);
    slot.Descrizione = QString::fromUtf8(description).leftJustified(kDescriptionWidth, u' ', true);
    slot.Modem = QString(kPhoneWidth, u' ');
    slot.NomeCard = QStringLiteral("1275").leftJustified(kCardNameWidth, u' ');
    slot.Funzionamento = 1;
    slot.Attivo = kTrue;
    slot.Modalita = 1;
    slot.Porta = 2;
    slot.Velocita = 9600;
    slot.Tentativi = 3;
    slot.InizioImpianto = 1;
    slot.LenImpianto = 5;
    slot.InizioBadge = 6;
    slot.LenBadge = 6;
    return slot;
}

/// The window with a register of the test's own, shown off screen.
class ContenitoreTest : public testing::Test
{
protected:
    ContenitoreTest()
    {
        ApplyTheme(*qApp, Theme::Light);
        window.CaricaComboRitardo();
        window.CaricaComboTipoTerminale();
        window.CaricaComboPorta();
        window.CaricaComboVelocita();
    }

    TerminalRecord& Slot(int number)
    {
        return state.TerminalTable.at(static_cast<std::size_t>(number - 1));
    }

    void Register(const TerminalRecord& slot)
    {
        Slot(slot.Terminale) = slot;
        window.AddTerminalLine(ListLine(slot.Terminale, slot, slot.Descrizione.trimmed()));
    }
    void RegisterStrale(int number, const char* description = "Porta")
    {
        Register(Terminal(number, TerminalType::Strale, description));
    }
    void RegisterOrlo(int number, const char* description = "Ingresso")
    {
        TerminalRecord slot = Terminal(number, TerminalType::Orlo, description);
        slot.Priorita = 7;
        slot.PrioritaSecondaria = 6;
        slot.Ritardo = 0.5F;
        Register(slot);
    }

    void Open()
    {
        window.resize(1280, 720);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void Select(int position) { window.SelectTerminalLine(position); }

    template <typename Widget = QWidget>
    Widget& Control(const char* name)
    {
        auto* found = window.findChild<Widget*>(QString::fromUtf8(name));
        if (found == nullptr) throw std::invalid_argument(std::string("no control ") + name);
        return *found;
    }
    QString TextOf(const char* name)
    {
        return Control(name)
            .property(qobject_cast<QComboBox*>(&Control(name)) != nullptr ? "currentText" : "text")
            .toString();
    }
    bool Enabled(const char* name) { return Control(name).isEnabled(); }
    bool Shown(const char* name) { return !Control(name).isHidden(); }
    bool Ticked(const char* name) { return Control<QAbstractButton>(name).isChecked(); }

    void Press(const char* name)
    {
        auto& button = Control<QAbstractButton>(name);
        // A tick box reacts at its tick and words, not in the middle of its room.
        const QPoint place = qobject_cast<QPushButton*>(&button) != nullptr
                                 ? button.rect().center()
                                 : QPoint(8, button.height() / 2);
        QTest::mouseClick(&button, Qt::LeftButton, {}, place);
    }
    void Key(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&Control(name), key, modifiers);
    }
    void Type(const char* name, const char* text)
    {
        QTest::keyClicks(&Control(name), QString::fromUtf8(text));
    }
    void Write(const char* name, const char* text)
    {
        Control<QLineEdit>(name).setText(QString::fromUtf8(text));
    }
    void PickType(const char* type)
    {
        auto& box = Control<ChoiceBox>("ComboTipoTerminale");
        box.Show(QString::fromUtf8(type));
        emit box.activated(box.currentIndex());
    }
    RegisterList& List() { return Control<RegisterList>("ListaTerminali"); }
    void ClickLine(int position, Qt::KeyboardModifiers modifiers = {})
    {
        const QRect place = List().visualItemRect(List().item(position));
        QTest::mouseClick(List().viewport(), Qt::LeftButton, modifiers, place.center());
    }
    QStringList Lines()
    {
        QStringList lines;
        for (int i = 0; i < List().count(); ++i) lines << List().item(i)->text();
        return lines;
    }

    StillClock clock;
    RecordingDialog dialog;
    NoEscape escape;
    NoTrace trace;
    Workstation station{clock, dialog, escape, trace, {}};
    ProgramState state;
    Contenitore window{state, station};
};

}  // namespace orlo::contenitore_test
