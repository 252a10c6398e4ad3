#pragma once

#include "registry/terminal_window.h"

#include <memory>

namespace Ui
{
class FrmMonitor;
}

namespace orlo
{

/// The punches that a terminal holds, listed without being acquired.
class FrmMonitor : public TerminalWindow
{
    Q_OBJECT

public:
    explicit FrmMonitor(Contenitore& desk);
    ~FrmMonitor() override;

    /// The controls by their names, for the procedures of this folder. Needs "ui_frm_monitor.h".
    const Ui::FrmMonitor& Controls() const { return *ui_; }

    /// How many lines the filter lets through, of those read so far.
    void ShowFiltered();
    /// What says that the reading goes on, or can be stopped, is gone before a box says how it
    /// ended.
    void ShowReadingDone();

protected:
    void Form_Load() override;
    void DeriveLook() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cmdMonitor_Click();
    void OfferStates(bool object_driven);
    void Filter();

    std::unique_ptr<Ui::FrmMonitor> ui_;
};

}  // namespace orlo
