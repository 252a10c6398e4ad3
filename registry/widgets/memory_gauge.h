#pragma once

#include "registry/terminal_type.h"

#include <QWidget>

namespace orlo
{

/// Parts of the punch memory, in punches. All zero while the counters are not known.
struct MemoryParts {
    double capacity = 0;
    double acquired = 0;
    double to_acquire = 0;

    bool operator==(const MemoryParts&) const = default;
};

/// The parts shown for the texts of the panels. Serial terminals count all punches in memory,
/// object-driven ones only those already acquired. The parts never exceed the capacity.
MemoryParts MemoryPartsOf(LinkFamily family, const QString& capacity, const QString& punches,
                          const QString& to_acquire);

/// The whole punch memory as a bar: acquired, to be acquired, free.
class MemoryGauge : public QWidget
{
    Q_OBJECT

public:
    explicit MemoryGauge(QWidget* parent = nullptr);

    void Show(const MemoryParts& parts);
    const MemoryParts& Parts() const { return parts_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    MemoryParts parts_;
};

}  // namespace orlo
