#include "registry/widgets/step_bar.h"

#include "registry/numeric_value.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <limits>

namespace orlo
{

StepBar::StepBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent)
{
    setRange(0, std::numeric_limits<std::int16_t>::max());
    setFocusPolicy(Qt::NoFocus);
    // The style paints a scroll bar that goes upwards; the presses are mapped to it below.
    setInvertedAppearance(true);
}

void StepBar::Drive(QLineEdit* field)
{
    field_ = field;
    field_->installEventFilter(this);
    connect(this, &QScrollBar::valueChanged, field_,
            [field](int value) { field->setText(QString::number(value)); });
    connect(field_, &QLineEdit::textChanged, this, [this](const QString& text) {
        const QSignalBlocker quietly(*this);
        setValue(std::clamp(WholeNumberOrZero<int>(text), minimum(), maximum()));
    });
}

QSize StepBar::sizeHint() const
{
    return {QScrollBar::sizeHint().width(), field_ != nullptr ? field_->sizeHint().height() : 0};
}

bool StepBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == field_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            triggerAction(key == Qt::Key_Up ? SliderSingleStepAdd : SliderSingleStepSub);
            return true;
        }
    }
    return QScrollBar::eventFilter(watched, event);
}

void StepBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    const SliderAction action =
        event->position().y() < height() / 2.0 ? SliderSingleStepAdd : SliderSingleStepSub;
    triggerAction(action);
    setRepeatAction(action);
}

void StepBar::mouseReleaseEvent(QMouseEvent*)
{
    setRepeatAction(SliderNoAction);
}

void StepBar::mouseMoveEvent(QMouseEvent*) {}

void StepBar::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void StepBar::contextMenuEvent(QContextMenuEvent* event)
{
    event->ignore();
}

}  // namespace orlo
