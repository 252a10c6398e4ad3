#pragma once

#include <QAbstractButton>
#include <QAnyStringView>
#include <QLabel>
#include <QSet>
#include <QWidget>

#include <gtest/gtest.h>

#include <stdexcept>

namespace orlo::testing
{

/// The control of that name. Throws when the window has none, which fails the test.
template <typename Control>
Control& ControlOf(const QWidget& window, QAnyStringView name)
{
    auto* const control = window.findChild<Control*>(name.toString());
    if (control == nullptr)
        throw std::invalid_argument("no control " + name.toString().toStdString());
    return *control;
}

/// The letters under which Alt reaches the buttons of a window and the fields of its labels.
inline QString MnemonicsOf(const QWidget& window)
{
    QStringList texts;
    for (const auto* button : window.findChildren<QAbstractButton*>()) texts << button->text();
    for (const auto* label : window.findChildren<QLabel*>())
        if (label->buddy() != nullptr) texts << label->text();
    QString letters;
    for (const QString& text : texts) {
        const qsizetype mark = text.indexOf(u'&');
        if (mark >= 0) letters += text[mark + 1].toUpper();
    }
    return letters;
}

inline bool AllDifferent(const QString& letters)
{
    return QSet<QChar>(letters.begin(), letters.end()).size() == letters.size();
}

}  // namespace orlo::testing
