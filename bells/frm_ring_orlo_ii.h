#pragma once

#include "bells/serial_rings.h"
#include "bells/suonerie.h"
#include "registry/terminal_window.h"

#include <array>
#include <functional>
#include <memory>

class QCheckBox;
class QPushButton;

namespace Ui
{
class frmRingOrloII;
}

namespace orlo
{

/// The bells of a serial terminal: 32 positions, kept in table Suonerie, sent as the list shows
/// them.
class frmRingOrloII : public TerminalWindow
{
    Q_OBJECT

public:
    explicit frmRingOrloII(Contenitore& desk);
    ~frmRingOrloII() override;

protected:
    void Form_Load() override;
    void DeriveLook() override;

private:
    bool CaricaSuonerie();
    void ListaSuonerie_Click();
    void cmdAggiorna_Click();
    void cmdReset_Click();
    void cmdTrasmette_Click();

    void RunBehind(QPushButton* button, const QString& task, const std::function<void()>& work);
    /// What the edit controls hold, as the row of the chosen line.
    BellRow Entered() const;
    void ShowOutcome(const BellOutcome& outcome, const QString& besides = {});
    void EmptyList();
    void SetRelay(int number);
    void CompleteFields();
    void ShowWeek();
    void ShowRefusal(const QString& why);
    void ForgetRefusal();
    void ShowWhetherModified();
    void SayUnsaved(const QString& remark);

    std::unique_ptr<Ui::frmRingOrloII> ui_;
    std::array<QCheckBox*, 8> days_;
};

}  // namespace orlo
