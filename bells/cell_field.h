#pragma once

#include <QLineEdit>

namespace orlo
{

/// A field of one ring: it says when it is entered and when it is left, by Enter too.
class CellField : public QLineEdit
{
    Q_OBJECT

public:
    /// `longest` is the longest text that it has to show.
    CellField(QString longest, QWidget* parent);

    /// Takes its width from the font.
    void DeriveRoom();

signals:
    void Entered();
    void Left();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QString longest_;
};

/// A time of the day behind the mask hh:mm. What can be no time cannot be typed; an hour of one
/// digit ends where the next one would make it no hour, or at a point, comma or blank as at the
/// colon. Leaving it shows the time with all its digits.
class TimeField : public CellField
{
    Q_OBJECT

public:
    explicit TimeField(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void TakeDigit(QChar digit);
};

/// A duration of so many digits at the most.
class DurationField : public CellField
{
    Q_OBJECT

public:
    explicit DurationField(QWidget* parent = nullptr);

    void SetDigits(int digits);
};

}  // namespace orlo
