#pragma once

#include "tests/acquisition/acquisition_fixture.h"
#include "tests/support/fake_component.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace orlo::testing
{

/// Terminal 4 is an Orlo behind a component in memory.
class ObjectAcquisitionTest : public AcquisitionTest
{
protected:
    FakeComponent component;

    void SetUp() override
    {
        AcquisitionTest::SetUp();
        state.Component = component.Make();
        RegisterObject("Orlo");
    }

    /// The component as after a restart of the program; the terminal keeps its memory.
    void Restart()
    {
        component.on_call = {};
        component.calls.clear();
        state.Component = component.Make();
        state.TelegramLinkOpen = false;
    }

    void Punches(std::initializer_list<const char*> badges)
    {
        for (const char* badge : badges) {
            FakeRecord record;
            record.IdNumber = badge;
            component.records.push_back(record);
        }
    }
    FakeRecord& Last() { return component.records.back(); }

    void Throw(const char* member)
    {
        component.on_call = [member](const std::string& call) {
            if (call.starts_with(member)) throw std::runtime_error("guasto");
        };
    }

    /// Badges of the punch file's lines, in order.
    QStringList Badges() const
    {
        QStringList badges;
        for (const QByteArray& punch : PunchLines())
            badges << QString::fromLatin1(punch.mid(18, 10));
        return badges;
    }
    const Ui::Contenitore& Controls() const { return window.Controls(); }
    /// The one box that was shown, as "title|text"; only a critical one counts.
    QString CriticalBox() const
    {
        if (pc.dialog.told.size() != 1 || pc.dialog.told[0].icon != DialogIcon::Critical) return {};
        return pc.dialog.told[0].title + u'|' + pc.dialog.told[0].text;
    }
};

}  // namespace orlo::testing
