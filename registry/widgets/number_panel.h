#pragma once

#include "registry/widgets/elided_panel.h"

namespace orlo
{

/// A counter or a time in large digits; an empty one is painted as a dash, its text stays empty.
/// Blanks around it (the time that some models answer begins with one) are not painted.
class NumberPanel : public ElidedPanel
{
    Q_OBJECT

public:
    explicit NumberPanel(QWidget* parent = nullptr);

    /// The number for which one looks here.
    void SetBold(bool bold);

protected:
    QFont PaintedFont() const override;
    QString PaintedText() const override;

private:
    bool bold_ = false;
};

}  // namespace orlo
