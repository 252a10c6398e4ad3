#pragma once

#include "badge/formato_badge.h"
#include "tests/support/connected_window.h"

#include <ostream>

namespace orlo::testing
{

inline const QString kSerialModels[] = {QStringLiteral("Orlo II"),  QStringLiteral("Strale"),
                                        QStringLiteral("Strale N"), QStringLiteral("Lumo"),
                                        QStringLiteral("OrloTre"),  QStringLiteral("SuperStrale")};

struct Layout {
    QString plant_start, plant_length, badge_start, badge_length, plant_code;

    bool operator==(const Layout&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Layout& layout)
{
    return out << layout.plant_start.toStdString() << '/' << layout.plant_length.toStdString()
               << '/' << layout.badge_start.toStdString() << '/'
               << layout.badge_length.toStdString() << '/' << layout.plant_code.toStdString();
}

inline Layout Of(const char* plant_start, const char* plant_length, const char* badge_start,
                 const char* badge_length, const char* plant_code)
{
    const auto text = [](const char* words) { return QString::fromLatin1(words); };
    return {text(plant_start), text(plant_length), text(badge_start), text(badge_length),
            text(plant_code)};
}

class SerialBadgeFormat : public ConnectedWindow
{
protected:
    int clock_reads = 0;

    void Receive()
    {
        cmdRiceveCard_Click(window, [this] { ++clock_reads; });
    }
    void Send() { cmdTrasmetteCard_Click(window); }
    void Enter(const Layout& layout)
    {
        Controls().InizioImpianto->setText(layout.plant_start);
        Controls().LenImpianto->setText(layout.plant_length);
        Controls().InizioBadge->setText(layout.badge_start);
        Controls().LenBadge->setText(layout.badge_length);
        Controls().NomeCard->setText(layout.plant_code);
    }
    Layout Shown() const
    {
        return {Controls().InizioImpianto->text(), Controls().LenImpianto->text(),
                Controls().InizioBadge->text(), Controls().LenBadge->text(),
                Controls().NomeCard->text()};
    }
    // The same as commands of the window: what its line of the last command says behind the number
    // of the terminal.
    QString LastLineOfReceiving()
    {
        return LastLineOf([this] { Receive(); });
    }
    QString LastLineOfSending()
    {
        return LastLineOf([this] { Send(); });
    }
    /// What the operator was told, with nothing sent.
    QString ToldInsteadOfSending()
    {
        Send();
        EXPECT_TRUE(pc.com1.sent.empty());
        EXPECT_EQ(pc.com1.times_opened, 0);
        if (pc.dialog.told.size() != 1) return {};
        const FakeDialog::Box box = pc.dialog.told.front();
        pc.dialog.told.clear();
        EXPECT_EQ(box.icon, DialogIcon::None);
        EXPECT_EQ(box.title, QStringLiteral("Orlo Desk"));
        return box.text;
    }

private:
    QString LastLineOf(const std::function<void()>& command)
    {
        window.RunCommand(Controls().cmdRiceveCard, QStringLiteral("Prova in corso…"),
                          EscapeUse::Ignored, command);
        return Controls().LabelUltimoComando->text().section(QStringLiteral(", terminale 4: "), 1);
    }
};

}  // namespace orlo::testing
