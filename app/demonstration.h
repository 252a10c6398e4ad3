#pragma once

#include "app/desk.h"

#include <QDir>

namespace orlo
{

/// The main window driven without a display: every terminal of the register is acquired,
/// one of them tested, its clock set and its badge layout read, each by its button, and pictures of
/// the window in its states are saved, those of the manual among them.
class Demonstration
{
public:
    /// The desk's start-up must be done. Pictures go into `pictures`, which must exist.
    Demonstration(Desk& desk, const QDir& pictures);

    /// Acquires terminal after terminal, those behind a modem between log-in and log-off, and says
    /// on standard output how each went. True when all were emptied.
    bool AcquireAll();

    /// The clock and the badge layout of the terminal of that number, with the pictures of their
    /// pages in the manual. True when it answered throughout.
    bool ShowClockAndBadge(int terminal);

    /// The monitor of the terminal of that number, with its listing, and the console; pictures of
    /// both. True when it answered throughout.
    bool ShowMonitorAndConsole(int terminal, const QString& suffix);

    /// Saves the window as it is, under that name.
    void TakePicture(const QString& name);

    /// Saves the window with the terminals selected one after the other.
    void TakePictureOfEveryTerminal(const QString& suffix);

private:
    bool Dial();
    bool HangUp();
    bool AcquireSelected();
    bool Press(QPushButton* button);
    bool ReadMonitor(const QString& suffix);
    bool SendCommand(const QString& suffix);
    void Say(const QString& deed) const;
    void TakePicture(QWidget& window, const QString& name);
    void TakePictureInTheMiddle();

    Contenitore& window_;
    QDir pictures_;
    bool middle_taken_ = false;
};

}  // namespace orlo
