#pragma once

#include "registry/widgets/text_panel.h"

namespace orlo
{

/// A caption of the form "DATE - TIME" painted in two lines: the time large, the date below.
class TwoLineLabel : public TextPanel
{
    Q_OBJECT

public:
    explicit TwoLineLabel(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace orlo
