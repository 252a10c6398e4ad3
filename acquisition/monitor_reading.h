#pragma once

#include "acquisition/monitor_file.h"
#include "acquisition/monitor_lines.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace orlo
{

class FrmMonitor;

/// The outcome where `Tentativi` leaves nothing to be asked. An old database that got the column
/// when it was upgraded has nothing in it, which is 0.
inline const QString kNoAttempts = QStringLiteral("Errore: i tentativi sono 0");

/// One reading of a punch memory: the list, the listing beside it, and how it ends.
class MonitorReading
{
public:
    explicit MonitorReading(FrmMonitor& form) : form_(form) {}

    /// Opens the listing when the window wants one. False when it cannot, which the operator is
    /// told.
    bool OpenFile();
    /// Whether the operator wants no more; asked before each request.
    bool Stopped();

    /// The running number of the next line.
    int NextNumber() const;
    void Add(const std::vector<MonitorPunch>& punches);
    void ShowProgress(double part, double whole);

    void NoteMissingBlock() { ++missing_blocks_; }
    /// The pointers that lead the reading are not what the terminal says now.
    void NoteMissingStatus() { status_missing_ = true; }
    /// How many punches the terminal said it holds; below zero as good as none.
    void NoteDeclared(int punches) { declared_ = std::max(punches, 0); }
    /// Ends the reading with that text in place of "Ricezione dati OK".
    void Fail(const QString& text) { failure_ = text; }
    bool Failed() const { return !failure_.isEmpty(); }

    /// Closes the listing and tells how the reading ended. The line is free by then.
    void Finish();
    /// The outcome alone, of a reading that did not begin.
    void TellOutcome();

private:
    void CloseFile();
    void TellFileFailure(const QString& state, const QString& text);
    QString HowItEnded() const;
    QString Outcome() const;
    QString WhatIsWrong() const;
    int BeyondDeclared() const;

    FrmMonitor& form_;
    MonitorFile file_;
    bool stopped_ = false;
    QString file_state_;  ///< of a listing that failed
    bool status_missing_ = false;
    std::optional<int> declared_;
    int missing_blocks_ = 0;
    QString failure_;
};

}  // namespace orlo
