#include "bells/day_rings.h"

#include "bells/ring_text.h"

#include <QGridLayout>
#include <QLabel>

namespace orlo
{

namespace
{

constexpr int kRows = kRingsOfDay / 2;
/// Number, time, duration, and the gap to the second half.
constexpr int kGridColumns = 4;

QLabel* SecondaryLabel(const QString& text, Qt::Alignment alignment)
{
    auto* label = new QLabel(text);
    label->setProperty("ruolo", QStringLiteral("secondario"));
    label->setAlignment(alignment);
    return label;
}

}  // namespace

DayRings::DayRings(QWidget* parent) : QWidget(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    // The rows spread over the height that is there; a small screen has little.
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(2);
    for (const int first : {0, kGridColumns}) {
        grid->addWidget(SecondaryLabel(tr("Ora"), Qt::AlignCenter), 0, first + 1);
        grid->addWidget(SecondaryLabel(tr("Durata"), Qt::AlignRight), 0, first + 2);
    }
    grid->setColumnMinimumWidth(kGridColumns - 1, 18);
    // The rows share the height. The fields are aligned in them, else their own height would be
    // that of the row.
    for (int row = 1; row <= kRows; ++row) grid->setRowStretch(row, 1);
    for (int index = 0; index < kRingsOfDay; ++index) {
        const int row = 1 + index % kRows;
        const int first = index < kRows ? 0 : kGridColumns;
        const Cells cells = MakeCells(index);
        rings_.at(static_cast<std::size_t>(index)) = cells;
        grid->addWidget(
            SecondaryLabel(QString::number(index + 1), Qt::AlignRight | Qt::AlignVCenter), row,
            first);
        grid->addWidget(cells.time, row, first + 1, Qt::AlignVCenter);
        grid->addWidget(cells.duration, row, first + 2, Qt::AlignVCenter);
        ShowTime(index, {});
        ShowDuration(index, {});
    }
}

DayRings::Cells DayRings::MakeCells(int index)
{
    const Cells cells{new TimeField(this), new DurationField(this)};
    cells.time->setObjectName(QStringLiteral("Ring_%1").arg(index));
    cells.time->setAccessibleName(tr("Suoneria %1: ora").arg(index + 1));
    cells.duration->setObjectName(QStringLiteral("TempoRings_%1").arg(index));
    cells.duration->setAccessibleName(tr("Suoneria %1: durata").arg(index + 1));
    for (const CellField* field :
         std::initializer_list<const CellField*>{cells.time, cells.duration}) {
        connect(field, &CellField::Entered, this, [this, index] { emit Entered(index); });
        connect(field, &QLineEdit::textEdited, this, &DayRings::Edited);
        connect(field, &CellField::Refused, this, &DayRings::Refused);
    }
    connect(cells.time, &CellField::Left, this, [this, index] { emit RingLeft(index); });
    connect(cells.duration, &CellField::Left, this, [this, index] { emit TempoRingsLeft(index); });
    return cells;
}

void DayRings::ShowTime(int index, const RingEntry& entry)
{
    Ring(index).setText(RingTimeText({entry.Hour, entry.Minute}));
}

void DayRings::ShowDuration(int index, const RingEntry& entry)
{
    TempoRings(index).setText(QString::number(entry.HowLong));
}

void DayRings::DeriveRoom()
{
    for (const Cells& cells : rings_) {
        cells.time->DeriveRoom();
        cells.duration->DeriveRoom();
    }
}

}  // namespace orlo
