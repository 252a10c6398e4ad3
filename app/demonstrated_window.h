#pragma once

#include "registry/contenitore.h"

#include <QAnyStringView>
#include <QDialog>

#include <stdexcept>

class QPushButton;

namespace orlo
{

/// A window over the main one, driven as an operator does; its controls by their names. It is
/// closed with the life of this.
class DemonstratedWindow
{
public:
    /// Opens the window by its button of the main window. Throws when there is none of that name.
    DemonstratedWindow(Contenitore& desk, QPushButton* opener, QAnyStringView name);
    ~DemonstratedWindow();
    DemonstratedWindow(const DemonstratedWindow&) = delete;
    DemonstratedWindow& operator=(const DemonstratedWindow&) = delete;

    QDialog& Window() const { return *window_; }

    template <typename Control>
    Control& Find(QAnyStringView name) const
    {
        auto* const control = window_->findChild<Control*>(name.toString());
        if (control == nullptr) throw std::invalid_argument(name.toString().toStdString());
        return *control;
    }
    void Press(QAnyStringView button) const;
    /// As typed over what the field holds.
    void Enter(QAnyStringView field, const QString& text) const;
    QString Text(QAnyStringView label) const;

private:
    QDialog* window_;
};

}  // namespace orlo
