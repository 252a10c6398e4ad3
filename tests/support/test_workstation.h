#pragma once

#include "link/workstation.h"
#include "tests/support/fake_clock.h"
#include "tests/support/scripted_port.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace orlo::testing
{

/// An operator who answers by himself and remembers what he was told.
class FakeDialog : public OperatorDialog
{
public:
    struct Box {
        DialogIcon icon;
        QString title;
        QString text;
        QString informative;
        bool when_ending = false;
    };
    std::vector<Box> told;
    std::vector<Box> asked;
    /// What happens while a told box stands.
    std::function<void()> on_tell = [] {};
    bool answer_yes = false;
    bool present = true;

    void Tell(DialogIcon icon, const QString& title, const QString& text,
              const QString& informative) override
    {
        told.push_back({icon, title, text, informative});
        on_tell();
    }
    bool AskYesNo(DialogIcon icon, const QString& title, const QString& text,
                  bool when_ending) override
    {
        asked.push_back({icon, title, text, {}, when_ending});
        return answer_yes;
    }
    bool OperatorPresent() const override { return present; }
};

class FakeEscape : public EscapeKey
{
public:
    bool pressed = false;
    bool held = false;

    EscapeKeyState Query() override { return {std::exchange(pressed, pressed && held), held}; }
    void Forget() override { pressed = false; }
};

class FakeTrace : public NoTrace
{
public:
    QStringList notes;
    void Note(const QString& text) override { notes << text; }
};

/// A PC made of parts that a test moves by hand.
struct TestWorkstation {
    FakeClock clock;
    FakeDialog dialog;
    FakeEscape escape;
    FakeTrace trace;
    ScriptedPort com1{clock}, com2{clock}, com3{clock}, com4{clock};
    Workstation workstation{clock, dialog, escape, trace, {&com1, &com2, &com3, &com4}};
};

}  // namespace orlo::testing
