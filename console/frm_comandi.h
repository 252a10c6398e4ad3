#pragma once

#include "console/command_history.h"
#include "console/invia_comando.h"
#include "registry/terminal_window.h"

#include <memory>

namespace Ui
{
class FrmComandi;
}

namespace orlo
{

/// The console: a raw command for the selected terminal, and its answer.
class FrmComandi : public TerminalWindow
{
    Q_OBJECT

public:
    explicit FrmComandi(Contenitore& desk);
    ~FrmComandi() override;

protected:
    void Form_Load() override;
    void DeriveLook() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CommandField_Change();
    void cmdTrasmetteComando_Click();
    void cmdCopia_Click();
    void OfferCopy();
    void Refuse(const QString& character);
    void SendCommand(const TypedCommand& typed);
    void ShowAnswer(const CommandAnswer& answer);
    TypedCommand Typed() const;
    void Recall(const TypedCommand& command);

    std::unique_ptr<Ui::FrmComandi> ui_;
    CommandHistory history_;
};

}  // namespace orlo
