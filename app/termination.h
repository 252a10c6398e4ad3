#pragma once

#include <QObject>

class QSocketNotifier;

namespace orlo
{

/// Turns SIGTERM, SIGINT and SIGHUP into an orderly end of the program, so that no lock file stays
/// behind. One object for the program's life.
class Termination : public QObject
{
    Q_OBJECT

public:
    explicit Termination(QObject* parent = nullptr);
    ~Termination() override;
    Termination(const Termination&) = delete;
    Termination& operator=(const Termination&) = delete;

    /// True as soon as a signal has come, also while the event loop does not run.
    static bool Requested();

signals:
    /// From the event loop.
    void Asked();

private:
    QSocketNotifier* notifier_;
};

}  // namespace orlo
