#pragma once

#include "bells/cell_field.h"
#include "registry/ring_table.h"

#include <QWidget>

#include <array>

namespace orlo
{

/// The 24 rings of a day in two columns: time `Ring_0` to `Ring_23`, duration `TempoRings_0` to
/// `TempoRings_23`. The tab key goes from the time to the duration to the next ring, downwards.
class DayRings : public QWidget
{
    Q_OBJECT

public:
    explicit DayRings(QWidget* parent = nullptr);

    TimeField& Ring(int index) { return *rings_.at(static_cast<std::size_t>(index)).time; }
    DurationField& TempoRings(int index)
    {
        return *rings_.at(static_cast<std::size_t>(index)).duration;
    }
    void ShowTime(int index, const RingEntry& entry);
    void ShowDuration(int index, const RingEntry& entry);

    /// Takes the widths of the fields from the font.
    void DeriveRoom();

signals:
    void Entered(int index);
    void RingLeft(int index);
    void TempoRingsLeft(int index);
    /// Why a time was refused, see TimeField.
    void Refused(const QString& why);
    /// A field has changed under the operator's hands.
    void Edited();

private:
    struct Cells {
        TimeField* time = nullptr;
        DurationField* duration = nullptr;
    };

    Cells MakeCells(int index);

    std::array<Cells, kRingsOfDay> rings_;
};

}  // namespace orlo
