#pragma once

#include <QLabel>

namespace orlo
{

/// A label whose caption is written by the procedures and watched by other parts of a window.
/// QLabel tells nobody that its text has changed: this class's own setText does so at once, and a
/// text written as into any QLabel is noticed when it is painted. For assistive programs it is the
/// panel's description.
class TextPanel : public QLabel
{
    Q_OBJECT

public:
    explicit TextPanel(QWidget* parent = nullptr);

    void setText(const QString& text);
    void clear() { setText(QString()); }

signals:
    void TextChanged(const QString& text);
    /// By this class's setText, the text that stands there.
    void TextRepeated(const QString& text);

protected:
    bool event(QEvent* event) override;

private:
    void Notice();

    QString noticed_;
};

/// `font` at `factor` times its size, whether that is given in points or in pixels.
QFont Enlarged(const QFont& font, double factor);

/// Times, counters and the terminal's heading are this much larger than the other texts.
inline constexpr double kLargeText = 1.45;

}  // namespace orlo
