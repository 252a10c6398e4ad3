#include "registry/widgets/register_columns.h"

#include "registry/terminal_type.h"

#include <QStringList>

namespace orlo
{

namespace
{

QString Dash()
{
    return QStringLiteral(" - ");
}

void SplitHead(const QString& head, RegisterColumns& columns)
{
    columns.number = head.section(Dash(), 0, 0).trimmed();
    QString rest = head.section(Dash(), 1);
    for (const TerminalModel& model : TerminalModels()) {
        const QString start = model.name + Dash();
        if (!rest.startsWith(start)) continue;
        columns.type = model.name;
        rest = rest.mid(start.size());
        break;
    }
    columns.description = rest.trimmed();
}

}  // namespace

RegisterColumns SplitRegisterLine(const QString& line)
{
    RegisterColumns columns;
    QStringList pieces = line.split(u'\t');
    SplitHead(pieces.takeFirst(), columns);
    for (const QString& piece : pieces) {
        const QString words = piece.trimmed();
        if (piece.startsWith(Dash()))
            columns.function = piece.mid(Dash().size()).trimmed();
        else if (words == QStringLiteral("Sì") || words == QStringLiteral("No"))
            columns.active = words;
        else if (!words.isEmpty())
            columns.mode = words;
    }
    return columns;
}

}  // namespace orlo
