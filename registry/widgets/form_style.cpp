#include "registry/widgets/form_style.h"

#include "registry/widgets/colours.h"
#include "registry/widgets/text_panel.h"

#include <QLabel>
#include <QLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

#include <algorithm>

namespace orlo
{

namespace
{

/// Left and right of the word of a button.
constexpr int kBesideWord = 12;

/// Disabled texts keep the grey of the desktop.
void Colour(QWidget& widget, QPalette::ColorRole role, const QColor& colour)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Active, role, colour);
    palette.setColor(QPalette::Inactive, role, colour);
    widget.setPalette(palette);
}

/// A line looks the same in a disabled page.
void ColourLine(QWidget& line, const QColor& colour)
{
    QPalette palette = line.palette();
    palette.setColor(QPalette::WindowText, colour);
    line.setPalette(palette);
}

void StyleLabel(QLabel& label, const QWidget& window)
{
    const QString role = label.property("ruolo").toString();
    if (role == QLatin1String("secondario"))
        Colour(label, QPalette::WindowText, SecondaryOnWindow(window.palette()));
    if (role != QLatin1String("titolo") && role != QLatin1String("intestazione")) return;
    QFont font = window.font();
    font.setBold(true);
    label.setFont(role == QLatin1String("titolo") ? font : Enlarged(font, kLargeText));
}

int RoomOfWords(const QPushButton& button)
{
    return button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width() + 2 * kBesideWord;
}

void StyleButton(QPushButton& button, const QWidget& window)
{
    const QFontMetrics metrics(window.font());
    const bool filled = button.property("primario").toBool();
    if (filled) {
        QFont bold = window.font();
        bold.setBold(true);
        button.setFont(bold);
        Colour(button, QPalette::Button, FilledButtonColour(window.palette()));
        Colour(button, QPalette::ButtonText, window.palette().color(QPalette::HighlightedText));
    } else {
        // It may have been the filled one.
        button.setFont({});
        button.setPalette({});
    }
    button.setMinimumWidth(std::max(
        RoomOfWords(button), metrics.averageCharWidth() * (filled ? 16 : 11) + metrics.height()));
}

int Narrowest(const QWidget& control)
{
    if (const auto* button = qobject_cast<const QPushButton*>(&control))
        return RoomOfWords(*button);
    if (qobject_cast<const QProgressBar*>(&control) != nullptr)
        return control.fontMetrics().horizontalAdvance(QStringLiteral("100%")) + 2 * kBesideWord;
    return 1;
}

/// Not those of the windows that belong to this one.
template <typename Control>
QList<Control*> ControlsOf(const QWidget& window)
{
    QList<Control*> controls = window.findChildren<Control*>();
    controls.removeIf([&window](const Control* control) { return control->window() != &window; });
    return controls;
}

}  // namespace

void StyleForm(QWidget& window)
{
    for (QLabel* label : ControlsOf<QLabel>(window)) StyleLabel(*label, window);
    for (QPushButton* button : ControlsOf<QPushButton>(window)) StyleButton(*button, window);
    for (QProgressBar* bar : ControlsOf<QProgressBar>(window))
        Colour(*bar, QPalette::Highlight, FilledButtonColour(window.palette()));
    for (QFrame* frame : ControlsOf<QFrame>(window))
        if (frame->frameShape() == QFrame::HLine || frame->frameShape() == QFrame::VLine)
            ColourLine(*frame, Hairline(window.palette()));
}

void MakeEquallyWide(std::initializer_list<QPushButton*> buttons)
{
    int width = 0;
    for (const QPushButton* button : buttons)
        width = std::max({width, button->sizeHint().width(),
                          16 * QFontMetrics(button->window()->font()).averageCharWidth()});
    for (QPushButton* button : buttons) button->setMinimumWidth(width);
}

void NarrowRow(QLayout& row, int room, std::initializer_list<QWidget*> controls)
{
    row.invalidate();
    int missing = row.minimumSize().width() - room;
    for (QWidget* control : controls) {
        if (missing <= 0) return;
        const int width = control->minimumWidth() > 0 ? control->minimumWidth()
                                                      : control->minimumSizeHint().width();
        const int narrower = std::max(width - missing, std::min(width, Narrowest(*control)));
        control->setMinimumWidth(narrower);
        missing -= width - narrower;
    }
}

void KeepRoom(std::initializer_list<QWidget*> controls)
{
    for (QWidget* control : controls) {
        QSizePolicy policy = control->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        control->setSizePolicy(policy);
    }
}

QSize RoomOnScreen(const QWidget& window)
{
    const int title_bar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return window.screen()->availableSize() - QSize(0, title_bar);
}

}  // namespace orlo
