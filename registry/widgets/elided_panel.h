#pragma once

#include "registry/widgets/text_panel.h"

namespace orlo
{

/// One line of text in a room that does not depend on it: what does not fit is elided and shown in
/// full as the tool tip, so that no answer of a terminal widens the window.
class ElidedPanel : public TextPanel
{
    Q_OBJECT

public:
    explicit ElidedPanel(QWidget* parent = nullptr);

    /// The room is that of `sample` in the panel's font.
    void SetRoom(const QString& sample);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    /// The font the text is painted in.
    virtual QFont PaintedFont() const { return font(); }
    /// What is painted, before eliding.
    virtual QString PaintedText() const { return text(); }

private:
    void ShowToolTip();

    QString sample_;
};

}  // namespace orlo
