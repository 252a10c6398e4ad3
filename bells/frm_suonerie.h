#pragma once

#include "bells/week_state.h"
#include "registry/terminal_window.h"

#include <array>
#include <functional>
#include <memory>

class QButtonGroup;
class QPushButton;

namespace Ui
{
class FrmSuonerie;
}

namespace orlo
{

/// The bells of an Orlo or a Sipa: seven days of 24 rings in RingTable, read, edited, sent.
class FrmSuonerie : public TerminalWindow
{
    Q_OBJECT

public:
    explicit FrmSuonerie(Contenitore& desk);
    ~FrmSuonerie() override;

    /// Takes what was typed and not left yet, and closes.
    void done(int result) override;

protected:
    void Form_Load() override;
    void DeriveLook() override;

private:
    void cmdRiceveSuonerie_Click();
    void cmdTrasmetteSuonerie_Click();
    void Giorno_Click(int day);
    void Ring_LostFocus(int index);
    void TempoRings_LostFocus(int index);

    void TakeRead(int rings);
    void Transfer(QPushButton* button, const QString& task, const QString& failed,
                  const std::function<bool()>& work);
    RingEntry& Entry(int index);
    void ChooseRing(int index);
    void ShowRefusal(const QString& why);
    void ForgetRefusal();
    void TakePending();
    void ForgetDay();
    void ShowDay();
    void ShowTitle();
    void EndTask();
    void ShowWeek();
    void TakeChange();
    WeekState& ShownWeek() { return weeks_.at(static_cast<std::size_t>(Terminal() - 1)); }
    void SetWeek(WeekState week);

    std::unique_ptr<Ui::FrmSuonerie> ui_;
    QButtonGroup* days_;
    /// What runs, shown in place of the day.
    QString task_;
    int shown_day_ = -1;
    int entered_ring_ = -1;
    /// Of each terminal, kept as long as RingTable.
    std::array<WeekState, kTerminalSlots> weeks_{};
};

}  // namespace orlo
