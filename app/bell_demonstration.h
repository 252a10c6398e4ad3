#pragma once

#include "app/desk.h"

#include <functional>

namespace orlo
{

/// Takes a picture of a window under a name.
using PictureTaker = std::function<void(QWidget& window, const QString& name)>;

/// The bell windows driven as an operator does: a week is entered, stored, sent to the terminals of
/// those two numbers, an Orlo and a serial one, and pictures are taken. True when both took it.
bool ShowBells(Desk& desk, int object_terminal, int serial_terminal, const QString& suffix,
               const PictureTaker& take_picture);

}  // namespace orlo
