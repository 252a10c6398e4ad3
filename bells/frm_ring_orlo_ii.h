#pragma once

#include "bells/bell_window.h"
#include "bells/suonerie.h"

#include <array>
#include <memory>

class QCheckBox;

namespace Ui
{
class frmRingOrloII;
}

namespace orlo
{

/// The bells of a serial terminal: 32 positions, kept in table Suonerie, sent as the list shows
/// them.
class frmRingOrloII : public BellWindow
{
    Q_OBJECT

public:
    explicit frmRingOrloII(Contenitore& main);
    ~frmRingOrloII() override;

protected:
    void Form_Load() override;
    void DeriveLook() override;
    void RefreshAvailability() override;

private:
    void CaricaSuonerie();
    void ListaSuonerie_Click();
    void cmdAggiorna_Click();
    void cmdReset_Click();
    void cmdTrasmette_Click();

    /// What the edit controls hold, as the row of the chosen line.
    BellRow Entered() const;
    void SetRelay(int number);
    void CompleteFields();
    void ShowWeek();
    void ShowWhetherModified();

    std::unique_ptr<Ui::frmRingOrloII> ui_;
    std::array<QCheckBox*, 8> days_;
    /// The list shows what the table holds.
    bool loaded_ = false;
};

}  // namespace orlo
