#pragma once

#include <QLineEdit>

namespace orlo
{

/// A field of one ring: it says when it is entered and when it is left, by Enter too. What makes no
/// value is refused with a beep, the field shows the value from before, and what is typed behind it
/// is refused too: the rest of 24:00 or 1,5 would be another value. A key that deletes, moves or
/// pastes, selecting all, a click or coming anew ends that.
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
    /// "24:00 non è un'ora", with each character that is refused.
    void Refused(const QString& why);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

    /// A character was typed; it has no modifier but Shift. As in any line edit, unless a field
    /// knows better.
    virtual void TakeWritten(QKeyEvent* event);
    virtual QString WhyRefused(const QString& typed) const = 0;

    void Refuse(const QString& typed);

private:
    QString longest_;
    QString before_;
    /// What is being refused, empty when nothing is.
    QString refused_;
};

/// A time of the day behind the mask hh:mm. An hour that begins with 3 to 9 has one digit, any
/// other two unless a point, comma, blank or colon ends it: 735 is 07:35, 235 is 23:05, 2:35 is
/// 02:35. Leaving it shows the time with all its digits. Nothing is undone step by step.
class TimeField : public CellField
{
    Q_OBJECT

public:
    explicit TimeField(QWidget* parent = nullptr);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void TakeWritten(QKeyEvent* event) override;
    QString WhyRefused(const QString& typed) const override;

private:
    void ForgetSteps();
    void EndHour();
    void TakeDigit(QChar digit);
};

/// A duration of so many digits at the most.
class DurationField : public CellField
{
    Q_OBJECT

public:
    explicit DurationField(QWidget* parent = nullptr);

    void SetDigits(int digits);

protected:
    void TakeWritten(QKeyEvent* event) override;
    QString WhyRefused(const QString& typed) const override;

private:
    QString WithTyped(const QString& typed) const;

    int digits_ = 0;
};

}  // namespace orlo
