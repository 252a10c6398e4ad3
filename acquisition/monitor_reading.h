#pragma once

#include "acquisition/monitor_file.h"
#include "acquisition/monitor_lines.h"

#include <vector>

namespace orlo
{

class FrmMonitor;

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
    /// Ends the reading with that text in place of "Ricezione dati OK".
    void Fail(const QString& text) { failure_ = text; }
    bool Failed() const { return !failure_.isEmpty(); }

    /// Closes the listing and tells how the reading ended. The line is free by then.
    void Finish();

private:
    void CloseFile();
    QString Outcome() const;
    /// The outcome alone, of a reading that did not begin.
    void TellOutcome();

    FrmMonitor& form_;
    MonitorFile file_;
    void TellFileFailure(const QString& text);
    bool stopped_ = false;
    int missing_blocks_ = 0;
    QString failure_;
};

}  // namespace orlo
    bool file_failed_ = false;
    bool status_missing_ = false;
    bool more_than_declared_ = false;
