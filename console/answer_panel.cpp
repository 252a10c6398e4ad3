#include "console/answer_panel.h"

#include <QKeyEvent>
#include <QPlainTextEdit>

namespace orlo
{

namespace
{

constexpr int kLines = 5;

}  // namespace

AnswerPanel::AnswerPanel(QWidget* parent) : TextPanel(parent), view_(new QPlainTextEdit(this))
{
    view_->setReadOnly(true);
    view_->setTabChangesFocus(true);
    view_->setWordWrapMode(QTextOption::WrapAnywhere);
    view_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    view_->installEventFilter(this);
    setFocusProxy(view_);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(this, &TextPanel::TextChanged, view_, &QPlainTextEdit::setPlainText);
}

void AnswerPanel::setAccessibleName(const QString& name)
{
    TextPanel::setAccessibleName(name);
    view_->setAccessibleName(name);
}

void AnswerPanel::CopyAll()
{
    view_->selectAll();
    view_->copy();
}

QSize AnswerPanel::sizeHint() const
{
    return {0, kLines * fontMetrics().height()};
}

void AnswerPanel::changeEvent(QEvent* event)
{
    TextPanel::changeEvent(event);
    if (event->type() == QEvent::FontChange) view_->setFont(font());
}

void AnswerPanel::resizeEvent(QResizeEvent* event)
{
    TextPanel::resizeEvent(event);
    view_->setGeometry(rect());
}

// Reading the answer, Enter sends nothing.
bool AnswerPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) return true;
    }
    return TextPanel::eventFilter(watched, event);
}

}  // namespace orlo
