#pragma once

#include <QScrollBar>

class QLineEdit;

namespace orlo
{

/// A vertical scroll bar of a field's height: its two arrows raise and lower the number in the
/// field. The upper arrow raises. The wheel does nothing, so that scrolling the page changes no
/// value.
class StepBar : public QScrollBar
{
    Q_OBJECT

public:
    explicit StepBar(QWidget* parent = nullptr);

    /// Every change of the bar's value is written into `field`; a number typed into the field
    /// moves the bar without being written back. Up and Down in the field work like the arrows.
    void Drive(QLineEdit* field);

    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QLineEdit* field_ = nullptr;
};

}  // namespace orlo
