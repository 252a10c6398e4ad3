#include "app/standard_error_dialog.h"

#include "app/termination.h"

#include <cstdio>

namespace orlo
{

void StandardErrorDialog::Tell(DialogIcon /*icon*/, const QString& title, const QString& text,
                               const QString& informative)
{
    const QString heading = title.isEmpty() ? QString() : title + QStringLiteral(": ");
    WriteErrorLine(heading + QString(text).replace(u'\r', u' '));
    if (!informative.isEmpty()) WriteErrorLine(informative);
}

bool StandardErrorDialog::AskYesNo(DialogIcon /*icon*/, const QString& /*title*/,
                                   const QString& /*text*/, bool when_ending)
{
    return when_ending && Termination::Requested();
}

void WriteErrorLine(const QString& text)
{
    const QByteArray line = (text + u'\n').toUtf8();
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
    std::fflush(stderr);
}

}  // namespace orlo
