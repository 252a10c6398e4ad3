#include "link/file_trace.h"

namespace orlo
{

namespace
{

constexpr int kBytesPerLine = 16;

QString TimeText(const QDateTime& time)
{
    return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss,zzz"));
}

QChar Printable(char byte)
{
    const bool printable = byte >= 0x20 && byte < 0x7f;
    return printable ? QLatin1Char(byte) : QLatin1Char('.');
}

}  // namespace

QString TraceLine(const QDateTime& time, int port, char direction, std::string_view bytes)
{
    QString hexadecimal;
    QString text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned>(static_cast<unsigned char>(byte));
        hexadecimal += QStringLiteral("%1 ").arg(code, 2, 16, QLatin1Char('0')).toUpper();
        text += Printable(byte);
    }
    return QStringLiteral("%1 COM%2 %3  %4 |%5|")
        .arg(TimeText(time), QString::number(port), QString(QLatin1Char(direction)),
             hexadecimal.leftJustified(qsizetype{kBytesPerLine} * 3), text);
}

bool FileTrace::Open(const QString& file_name, QString& error)
{
    file_.setFileName(file_name);
    if (file_.open(QIODevice::Append | QIODevice::Unbuffered)) return true;
    error = file_.errorString();
    return false;
}

void FileTrace::Sent(int port, std::string_view bytes)
{
    for (std::size_t i = 0; i < bytes.size(); i += kBytesPerLine)
        Append(TraceLine(QDateTime::currentDateTime(), port, '>', bytes.substr(i, kBytesPerLine)));
}

void FileTrace::Received(int port, std::string_view bytes)
{
    for (std::size_t i = 0; i < bytes.size(); i += kBytesPerLine)
        Append(TraceLine(QDateTime::currentDateTime(), port, '<', bytes.substr(i, kBytesPerLine)));
}

void FileTrace::Note(const QString& text)
{
    Append(QStringLiteral("%1 %2").arg(TimeText(QDateTime::currentDateTime()), text));
}

// A trace that can no longer be written must not stop the work that it is about.
void FileTrace::Append(const QString& line)
{
    file_.write((line + QLatin1Char('\n')).toUtf8());
}

}  // namespace orlo
