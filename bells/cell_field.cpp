#include "bells/cell_field.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QRegularExpressionValidator>

#include <algorithm>
#include <utility>

namespace orlo
{

namespace
{

constexpr int kMinutes = 3;  // where they begin behind the mask

/// Hour and minute, blanks where no digit was typed yet.
QValidator* MakeTimeValidator(QObject* parent)
{
    return new QRegularExpressionValidator(
        QRegularExpression(
            QStringLiteral("(?:[ 01][ \\d]|2[ 0-3]|[3-9] ):(?:[ 0-5][ \\d]|[6-9] )")),
        parent);
}

bool EndsAnHour(const QString& typed)
{
    static const QString separators = QStringLiteral(".,; :");
    return typed.size() == 1 && separators.contains(typed);
}

/// Keys by which somebody corrects what was typed. Not Shift, which some keyboards need for a
/// colon.
bool BeginsAnew(const QKeyEvent& key)
{
    static const QList<int> keys = {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left,
                                    Qt::Key_Right,     Qt::Key_Home,   Qt::Key_End};
    static const QList<QKeySequence::StandardKey> edits = {QKeySequence::SelectAll,
                                                           QKeySequence::Paste, QKeySequence::Cut,
                                                           QKeySequence::Undo, QKeySequence::Redo};
    return keys.contains(key.key()) ||
           std::ranges::any_of(edits, [&key](auto edit) { return key.matches(edit); });
}

bool IsDigit(const QString& typed)
{
    return typed.size() == 1 && typed[0] >= u'0' && typed[0] <= u'9';
}

bool IsWritten(const QKeyEvent& key)
{
    const QString typed = key.text();
    return !typed.isEmpty() && typed[0].isPrint() &&
           (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
}

}  // namespace

CellField::CellField(QString longest, QWidget* parent)
    : QLineEdit(parent), longest_(std::move(longest))
{
    connect(this, &QLineEdit::returnPressed, this, &CellField::Left);
}

void CellField::DeriveRoom()
{
    const QFontMetrics metrics(font());
    setFixedWidth(metrics.horizontalAdvance(longest_) + metrics.height() + 6);
}

void CellField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    // Typing replaces the value, unless the pointer has chosen a place in it.
    if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason)
        selectAll();
    refused_.clear();
    if (!isModified()) before_ = text();
    emit Entered();
}

void CellField::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) emit Left();
}

void CellField::mousePressEvent(QMouseEvent* event)
{
    refused_.clear();
    QLineEdit::mousePressEvent(event);
}

void CellField::keyPressEvent(QKeyEvent* event)
{
    if (!isModified()) before_ = text();
    if (!IsWritten(*event)) {
        if (BeginsAnew(*event)) refused_.clear();
        QLineEdit::keyPressEvent(event);
    } else if (!refused_.isEmpty()) {
        Refuse(refused_ + event->text());
    } else {
        TakeWritten(event);
    }
}

void CellField::TakeWritten(QKeyEvent* event)
{
    QLineEdit::keyPressEvent(event);
}

void CellField::Refuse(const QString& typed)
{
    // Nobody reads on where it runs over.
    constexpr int kShown = 6;
    QApplication::beep();
    refused_ = typed.left(kShown);
    setText(before_);
    selectAll();
    emit Refused(WhyRefused(refused_));
}

TimeField::TimeField(QWidget* parent) : CellField(QStringLiteral("00:00"), parent)
{
    setInputMask(QStringLiteral("00:00"));
    setValidator(MakeTimeValidator(this));
    setAlignment(Qt::AlignCenter);
}

void TimeField::contextMenuEvent(QContextMenuEvent* event)
{
    ForgetSteps();
    CellField::contextMenuEvent(event);
}

/// The steps back lead through a field that is empty, which is midnight.
void TimeField::ForgetSteps()
{
    const bool modified = isModified();
    const int cursor = cursorPosition();
    const int selected = selectionStart();
    const int length = selectionLength();
    setText(displayText());
    setModified(modified);
    setCursorPosition(cursor);
    if (length > 0) setSelection(selected, length);
}

void TimeField::keyPressEvent(QKeyEvent* event)
{
    // See ForgetSteps.
    if (event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo)) return;
    CellField::keyPressEvent(event);
}

void TimeField::TakeWritten(QKeyEvent* event)
{
    const QString typed = event->text();
    if (IsDigit(typed)) return TakeDigit(typed[0]);
    if (EndsAnHour(typed)) return EndHour();
    // The mask would let a letter delete what is selected.
    QApplication::beep();
}

void TimeField::EndHour()
{
    if (hasSelectedText()) del();
    setCursorPosition(kMinutes);
}

// Typed over a whole field or over one digit; what the first of two digits would make no time of
// gives way.
void TimeField::TakeDigit(QChar digit)
{
    if (hasSelectedText()) del();
    QString shown = displayText();
    int place = cursorPosition();
    if (place == kMinutes - 1) ++place;
    if (place >= shown.size()) return;
    const auto fits = [this, digit](QString text, int at) {
        int unused = 0;
        return validator()->validate(text.replace(at, 1, digit), unused) != QValidator::Invalid;
    };
    const bool first_of_two = place == 0 || place == kMinutes;
    if (!fits(shown, place) && first_of_two) shown[place + 1] = u' ';
    if (place == 1 && shown[0] >= u'3') place = kMinutes;
    if (!fits(shown, place) && place == kMinutes) shown[place + 1] = u' ';
    const bool fit = fits(shown, place);
    shown[place] = digit;
    // Of 24 the colon is the mask's.
    if (!fit) return Refuse(place < kMinutes ? shown.left(kMinutes - 1) : shown.remove(u' '));
    setSelection(0, static_cast<int>(shown.size()));
    insert(shown);
    setCursorPosition(place == 1 ? kMinutes : place + 1);
}

QString TimeField::WhyRefused(const QString& typed) const
{
    constexpr int kTime = 5;
    QString time = typed;
    if (time.size() > kMinutes - 1 && !time.contains(u':')) time.insert(kMinutes - 1, u':');
    return tr("%1 non è un'ora").arg(time.left(kTime));
}

DurationField::DurationField(QWidget* parent) : CellField(QStringLiteral("000"), parent)
{
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    SetDigits(3);
}

void DurationField::SetDigits(int digits)
{
    digits_ = digits;
    delete validator();
    setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("\\d{0,%1}").arg(digits)), this));
}

void DurationField::TakeWritten(QKeyEvent* event)
{
    const QString typed = event->text();
    if (typed[0].isLetter()) return QApplication::beep();
    const QString whole = WithTyped(typed);
    if (!IsDigit(typed) || whole.size() > digits_) return Refuse(whole);
    CellField::TakeWritten(event);
}

/// What the field would show.
QString DurationField::WithTyped(const QString& typed) const
{
    QString whole = text();
    if (!hasSelectedText()) return whole.insert(cursorPosition(), typed);
    return whole.replace(selectionStart(), selectionLength(), typed);
}

QString DurationField::WhyRefused(const QString& typed) const
{
    return tr("%1 non è una durata").arg(typed);
}

}  // namespace orlo
