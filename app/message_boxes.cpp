#include "app/message_boxes.h"

#include "app/termination.h"

#include <QApplication>
#include <QMessageBox>

namespace orlo
{

namespace
{

QMessageBox::Icon BoxIcon(DialogIcon icon)
{
    switch (icon) {
        case DialogIcon::Information:
            return QMessageBox::Information;
        case DialogIcon::Question:
            return QMessageBox::Question;
        case DialogIcon::Critical:
            return QMessageBox::Critical;
        case DialogIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

/// The arrow for as long as a box is shown, whatever pointer the running command has set.
class ArrowPointer
{
public:
    ArrowPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowPointer() { QApplication::restoreOverrideCursor(); }
    ArrowPointer(const ArrowPointer&) = delete;
    ArrowPointer& operator=(const ArrowPointer&) = delete;
};

}  // namespace

/// A box over a window that is modal to the main window belongs to that window.
QWidget* MessageBoxes::Above() const
{
    QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : parent_;
}

int MessageBoxes::Show(QMessageBox& box) const
{
    const ArrowPointer arrow;
    box.setTextFormat(Qt::PlainText);
    QObject::connect(&termination_, &Termination::Asked, &box, &QDialog::reject);
    return box.exec();
}

void MessageBoxes::Tell(DialogIcon icon, const QString& title, const QString& text,
                        const QString& informative)
{
    if (Termination::Requested()) return;
    QMessageBox box(BoxIcon(icon), title, text, QMessageBox::Ok, Above());
    box.setInformativeText(informative);
    Show(box);
}

bool MessageBoxes::AskYesNo(DialogIcon icon, const QString& title, const QString& text,
                            bool when_ending)
{
    if (Termination::Requested()) return when_ending;
    QMessageBox box(BoxIcon(icon), title, text, QMessageBox::Yes | QMessageBox::No, Above());
    box.setDefaultButton(QMessageBox::No);
    const bool yes = Show(box) == QMessageBox::Yes;
    return Termination::Requested() ? when_ending : yes;
}

}  // namespace orlo
