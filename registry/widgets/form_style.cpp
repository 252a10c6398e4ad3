#include "registry/widgets/form_style.h"

#include "registry/widgets/colours.h"
#include "registry/widgets/text_panel.h"

#include <QLabel>
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
    const int words = button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width();
    button.setMinimumWidth(
        std::max(words + 2 * kBesideWord,
                 metrics.averageCharWidth() * (filled ? 16 : 11) + metrics.height()));
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
