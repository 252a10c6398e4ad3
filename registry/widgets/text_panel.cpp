#include "registry/widgets/text_panel.h"

#include <QEvent>

namespace orlo
{

TextPanel::TextPanel(QWidget* parent) : QLabel(parent)
{
    // Captions come from terminals: never to be read as markup.
    setTextFormat(Qt::PlainText);
}

void TextPanel::setText(const QString& text)
{
    if (text == this->text()) {
        emit TextRepeated(text);
    } else {
        QLabel::setText(text);
        Notice();
    }
}

bool TextPanel::event(QEvent* event)
{
    if (event->type() == QEvent::Paint) Notice();
    return QLabel::event(event);
}

void TextPanel::Notice()
{
    if (text() == noticed_) return;
    noticed_ = text();
    // The accessible name says what the panel is. This is read out when it is asked for; only an
    // alert is by itself, so that a clock may change every second.
    setAccessibleDescription(noticed_);
    emit TextChanged(noticed_);
}

QFont Enlarged(const QFont& font, double factor)
{
    QFont larger = font;
    if (font.pointSizeF() > 0)
        larger.setPointSizeF(font.pointSizeF() * factor);
    else
        larger.setPixelSize(qRound(font.pixelSize() * factor));
    return larger;
}

}  // namespace orlo
