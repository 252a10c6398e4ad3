#pragma once

#include <QWidget>

#include <array>
#include <vector>

namespace orlo
{

/// A field of the badge: position of its first character and number of characters. A field
/// without characters is not there.
struct BadgeField {
    int start = 0;
    int length = 0;

    bool operator==(const BadgeField&) const = default;
};

struct BadgeLayout {
    BadgeField plant;
    BadgeField company;
    BadgeField badge;
    /// Characters of the whole badge, 0 when not known.
    int length = 0;

    bool operator==(const BadgeLayout&) const = default;
};

/// The positions that are drawn: from the first, 1 or 0 when a field starts there, `count` of them.
struct BadgePositions {
    int first = 1;
    int count = 0;

    bool operator==(const BadgePositions&) const = default;
};
BadgePositions PositionsOf(const BadgeLayout& layout);

/// Positions that more than one field claims, in order.
std::vector<BadgeField> OverlapsOf(const BadgeLayout& layout);

/// The longest part of one of the layout's fields that no other one claims: there its name stands.
BadgeField FreePart(const BadgeField& field, const BadgeLayout& layout);

/// The badge as a row of characters: which of them are plant code, company code and badge number.
class BadgeDrawing : public QWidget
{
    Q_OBJECT

public:
    explicit BadgeDrawing(QWidget* parent = nullptr);

    void Show(const BadgeLayout& layout);
    const BadgeLayout& Layout() const { return layout_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF Place(const BadgeField& field) const;
    void PaintField(QPainter& painter, const BadgeField& field, const QColor& fill) const;
    void PaintName(QPainter& painter, const BadgeField& field,
                   const std::array<QString, 3>& names) const;

    BadgeLayout layout_;
};

}  // namespace orlo
