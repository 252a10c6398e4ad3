#pragma once

#include "link/operator_dialog.h"

namespace orlo
{

/// Message boxes of an unattended run: their texts go to standard error. Nobody is there to be
/// asked: the only yes is the one to stop, after a request to end the program.
class StandardErrorDialog : public OperatorDialog
{
public:
    void Tell(DialogIcon icon, const QString& title, const QString& text,
              const QString& informative) override;
    bool AskYesNo(DialogIcon icon, const QString& title, const QString& text,
                  bool when_ending) override;
    bool OperatorPresent() const override { return false; }
};

/// Writes a line to standard error, in UTF-8.
void WriteErrorLine(const QString& text);

}  // namespace orlo
