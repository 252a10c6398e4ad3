#include "registro/terminal_list.h"

#include "registro/column_text.h"

#include <QStringList>

#include <algorithm>

namespace orlo::registro
{

namespace
{

constexpr std::array kShown = {kTerminale, kTipo,      kDescrizione, kAttivo, kPorta,
                               kVelocita,  kTentativi, kRitardo,     kModem};

using Widths = std::array<qsizetype, kShown.size()>;

QStringList Heading()
{
    QStringList cells;
    for (const Column column : kShown) cells << kTerminalColumns[column].Name();
    return cells;
}

QStringList Cells(const TerminalValues& terminal)
{
    QStringList cells;
    for (const Column column : kShown)
        cells << WrittenValue(kTerminalColumns[column], terminal[column]);
    return cells;
}

Widths WidthsOf(const std::vector<QStringList>& lines)
{
    Widths widths{};
    for (const QStringList& line : lines)
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], line[static_cast<qsizetype>(i)].size());
    return widths;
}

bool IsText(Column column)
{
    const Content content = kTerminalColumns[column].content;
    return content == Content::Text || content == Content::Model || content == Content::YesNo;
}

QString Line(const QStringList& cells, const Widths& widths)
{
    QStringList aligned;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const QString& cell = cells[static_cast<qsizetype>(i)];
        aligned << (IsText(kShown[i]) ? cell.leftJustified(widths[i])
                                      : cell.rightJustified(widths[i]));
    }
    QString line = aligned.join(QStringLiteral("  "));
    while (line.endsWith(u' ')) line.chop(1);
    return line + u'\n';
}

}  // namespace

QString TerminalList(const std::vector<TerminalValues>& terminals)
{
    std::vector<QStringList> lines = {Heading()};
    std::ranges::transform(terminals, std::back_inserter(lines), Cells);
    const Widths widths = WidthsOf(lines);
    QString text;
    for (const QStringList& line : lines) text += Line(line, widths);
    return text;
}

}  // namespace orlo::registro
