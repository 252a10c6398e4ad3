#pragma once

#include "link/line_trace.h"

#include <QDateTime>
#include <QFile>

namespace orlo
{

/// One line of the trace: time, port, direction, the bytes in hexadecimal and as text.
///   2026-03-05 14:07:09,123 COM2 >  02 84 33 32 EB 0D        |..32..|
QString TraceLine(const QDateTime& time, int port, char direction, std::string_view bytes);

/// Appends the trace to a file, each line with the system as soon as it is made.
class FileTrace : public LineTrace
{
public:
    /// False when the file cannot be opened; the reason is in `error`.
    [[nodiscard]] bool Open(const QString& file_name, QString& error);

    void Sent(int port, std::string_view bytes) override;
    void Received(int port, std::string_view bytes) override;
    void Note(const QString& text) override;

private:
    void Append(const QString& line);

    QFile file_;
};

}  // namespace orlo
