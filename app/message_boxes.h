#pragma once

#include "link/operator_dialog.h"

class QWidget;

namespace orlo
{

/// Message boxes over the main window.
class MessageBoxes : public OperatorDialog
{
public:
    void SetParentWindow(QWidget* window) { parent_ = window; }

    void Tell(DialogIcon icon, const QString& title, const QString& text,
              const QString& informative) override;
    bool AskYesNo(DialogIcon icon, const QString& title, const QString& text) override;
    bool OperatorPresent() const override { return true; }

private:
    QWidget* parent_ = nullptr;
};

}  // namespace orlo
