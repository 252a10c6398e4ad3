#pragma once

#include "registry/widgets/register_columns.h"

#include <QStyledItemDelegate>

#include <array>

namespace orlo
{

inline constexpr std::size_t kRegisterColumns = 6;

/// Horizontal places of the columns, left to right: number, type, description, function, active,
/// mode.
struct ColumnPlace {
    int left = 0;
    int width = 0;
};
using ColumnPlaces = std::array<ColumnPlace, kRegisterColumns>;

const std::array<QString, kRegisterColumns>& RegisterHeadings();

/// Every column is as wide as its widest text but the description, which takes what is left.
ColumnPlaces PlacesFor(const QFontMetrics& metrics, int width);

/// The narrowest list in which a description of the stored length can still be read.
int NarrowestRegister(const QFontMetrics& metrics);

/// Paints the lines of the register in columns. Active is a filled or hollow dot and the word; the
/// line of a terminal that is not active is in the secondary colour.
class RegisterDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// While a command runs all lines but the current one are in the secondary colour.
    void SetMuted(bool muted) { muted_ = muted; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    bool muted_ = false;
};

}  // namespace orlo
