#pragma once

#include "link/operator_dialog.h"

class QMessageBox;
class QWidget;

namespace orlo
{

class Termination;

/// Message boxes over the main window. A request to end the program takes an open box away.
class MessageBoxes : public OperatorDialog
{
public:
    explicit MessageBoxes(const Termination& termination) : termination_(termination) {}

    void SetParentWindow(QWidget* window) { parent_ = window; }

    void Tell(DialogIcon icon, const QString& title, const QString& text,
              const QString& informative) override;
    bool AskYesNo(DialogIcon icon, const QString& title, const QString& text,
                  bool when_ending) override;
    bool OperatorPresent() const override { return true; }

private:
    QWidget* Above() const;
    int Show(QMessageBox& box) const;

    const Termination& termination_;
    QWidget* parent_ = nullptr;
};

}  // namespace orlo
