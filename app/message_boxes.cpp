#include "app/message_boxes.h"

#include "app/termination.h"

#include <QGuiApplication>
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
    ArrowPointer() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowPointer() { QGuiApplication::restoreOverrideCursor(); }
    ArrowPointer(const ArrowPointer&) = delete;
    ArrowPointer& operator=(const ArrowPointer&) = delete;
};

}  // namespace

void MessageBoxes::Tell(DialogIcon icon, const QString& title, const QString& text,
                        const QString& informative)
{
    const ArrowPointer arrow;
    QMessageBox box(BoxIcon(icon), title, text, QMessageBox::Ok, parent_);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(informative);
    box.exec();
}

bool MessageBoxes::AskYesNo(DialogIcon icon, const QString& title, const QString& text)
{
    // Whoever ends the program from outside does not see a question.
    if (Termination::Requested()) return true;
    const ArrowPointer arrow;
    QMessageBox box(BoxIcon(icon), title, text, QMessageBox::Yes | QMessageBox::No, parent_);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

}  // namespace orlo
