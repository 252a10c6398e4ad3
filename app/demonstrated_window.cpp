#include "app/demonstrated_window.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace orlo
{

DemonstratedWindow::DemonstratedWindow(Contenitore& desk, QPushButton* opener, QAnyStringView name)
{
    opener->click();
    window_ = desk.findChild<QDialog*>(name.toString());
    if (window_ == nullptr) throw std::invalid_argument(name.toString().toStdString());
}

DemonstratedWindow::~DemonstratedWindow()
{
    window_->close();
}

void DemonstratedWindow::Press(QAnyStringView button) const
{
    Find<QAbstractButton>(button).click();
}

void DemonstratedWindow::Enter(QAnyStringView field, const QString& text) const
{
    auto& edit = Find<QLineEdit>(field);
    edit.setFocus();
    edit.selectAll();
    edit.insert(text);
}

QString DemonstratedWindow::Text(QAnyStringView label) const
{
    return Find<QLabel>(label).text();
}

}  // namespace orlo
