#include "registry/widgets/choice_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

namespace orlo
{

namespace
{

bool IsTyping(const QKeyEvent& event)
{
    if (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete ||
        event.matches(QKeySequence::Paste) || event.matches(QKeySequence::Cut))
        return true;
    if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0)
        return false;
    return !event.text().isEmpty() && event.text().front().isPrint();
}

}  // namespace

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void ChoiceBox::Show(const QString& text)
{
    setCurrentIndex(findText(text));
    if (isEditable() && currentText() != text) setEditText(text);
}

void ChoiceBox::SetRoom(const QString& sample)
{
    sample_ = sample;
    if (isEditable()) {
        // Neither completion nor paste nor drop may bring in a text of their own.
        setCompleter(nullptr);
        lineEdit()->setReadOnly(true);
    }
    updateGeometry();
}

QSize ChoiceBox::sizeHint() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QFontMetrics metrics = fontMetrics();
    const QSize content(metrics.horizontalAdvance(sample_) + 2 * metrics.horizontalAdvance(u' '),
                        metrics.height() + 2);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, content, this);
}

void ChoiceBox::keyPressEvent(QKeyEvent* event)
{
    if (isEditable() && IsTyping(*event))
        Show(QString());
    else
        QComboBox::keyPressEvent(event);
}

void ChoiceBox::inputMethodEvent(QInputMethodEvent* event)
{
    if (isEditable())
        Show(QString());
    else
        QComboBox::inputMethodEvent(event);
}

void ChoiceBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

void ChoiceBox::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    const QWidget* other = QApplication::focusWidget();
    if (other != nullptr && other != this && other->window() == window()) emit Left();
}

}  // namespace orlo
