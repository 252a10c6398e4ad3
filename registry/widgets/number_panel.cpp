#include "registry/widgets/number_panel.h"

namespace orlo
{

NumberPanel::NumberPanel(QWidget* parent) : ElidedPanel(parent)
{
    SetRoom(QStringLiteral("00000"));
}

void NumberPanel::SetBold(bool bold)
{
    bold_ = bold;
    updateGeometry();
}

QFont NumberPanel::PaintedFont() const
{
    QFont font = Enlarged(this->font(), kLargeText);
    font.setBold(bold_);
    return font;
}

QString NumberPanel::PaintedText() const
{
    return text().isEmpty() ? QStringLiteral("–") : text().trimmed();
}

}  // namespace orlo
