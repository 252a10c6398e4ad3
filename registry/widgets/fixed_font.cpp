#include "registry/widgets/fixed_font.h"

#include <QFontDatabase>

namespace orlo
{

QFont FixedFont(const QFont& font)
{
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (font.pointSizeF() > 0)
        fixed.setPointSizeF(font.pointSizeF());
    else
        fixed.setPixelSize(font.pixelSize());
    return fixed;
}

}  // namespace orlo
