#pragma once

#include <initializer_list>

class QLayout;
class QPushButton;
class QSize;
class QWidget;

namespace orlo
{

/// Gives the controls of a window the fonts and colours of their roles, derived from the window's
/// own font and palette. To be called again whenever one of these changes. Dynamic properties:
/// `ruolo` "titolo" (bold), "intestazione" (large and bold) or "secondario"; `primario` for the one
/// filled button.
void StyleForm(QWidget& window);

/// Gives buttons that stand over each other or side by side one width. To be called behind
/// StyleForm, whose widths differ between the filled button and the others.
void MakeEquallyWide(std::initializer_list<QPushButton*> buttons);

/// Takes from controls of a row, one behind the other, what the row asks for beyond `room`: from a
/// button as far as its words, from a progress bar as far as its figures, from a label all. To be
/// called when these have their widths.
void NarrowRow(QLayout& row, int room, std::initializer_list<QWidget*> controls);

/// Lets controls that are hidden keep their places, so that nothing moves when they come and go.
void KeepRoom(std::initializer_list<QWidget*> controls);

/// What the screen of a window has room for, the title bar apart.
QSize RoomOnScreen(const QWidget& window);

}  // namespace orlo
