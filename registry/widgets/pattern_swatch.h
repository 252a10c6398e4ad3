#pragma once

#include <QWidget>

class QPainter;

namespace orlo
{

/// How the parts of the memory gauge are filled; the captions above it carry the same patterns.
enum class MemoryPattern { Acquired, Free, ToAcquire };

void FillPattern(QPainter& painter, const QRectF& place, MemoryPattern pattern,
                 const QPalette& palette);

/// The small square before a caption that says which part of the gauge it names.
class PatternSwatch : public QWidget
{
    Q_OBJECT
    /// "pieno", "vuoto" or "tratto".
    Q_PROPERTY(QString motivo MEMBER pattern_)

public:
    explicit PatternSwatch(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString pattern_;
};

}  // namespace orlo
