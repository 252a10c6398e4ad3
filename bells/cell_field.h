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

/// A time of the day behind the mask hh:mm. An hour that begins with 3 to 9 has one digit, any
/// other two unless a point, comma, blank or colon ends it: 735 is 07:35, 235 is 23:05, 2:35 is
/// 02:35. A digit that makes no time is refused with a beep, the field shows the time from before,
/// and what is typed behind it is refused too: the rest of 24:00 would be another time. A key that
/// deletes or moves, a click or coming anew ends that. Leaving it shows the time with all its
/// digits. Nothing is undone step by step.
class TimeField : public CellField
{
    Q_OBJECT

public:
    explicit TimeField(QWidget* parent = nullptr);

signals:
    /// "24:00 non è un'ora", with each digit that is refused.
    void Refused(const QString& why);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void ForgetSteps();
    void EndHour();
    void TakeDigit(QChar digit);
    void Refuse(const QString& typed);

    QString before_;
    /// What is being refused, empty when nothing is.
    QString refused_;
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
