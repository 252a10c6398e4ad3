#pragma once

class QApplication;

namespace orlo
{

/// Italian whatever the environment says: numbers with a decimal comma, boxes with Sì and No.
void SpeakItalian(QApplication& application);

}  // namespace orlo
