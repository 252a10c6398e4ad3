#pragma once

class QCoreApplication;

namespace orlo
{

/// Italian whatever the environment says: numbers with a decimal comma, boxes with Sì and No.
void SpeakItalian(QCoreApplication& application);

}  // namespace orlo
