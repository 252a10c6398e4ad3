#pragma once

#include <QString>

namespace orlo
{

/// Why the system refused something, by its error number (ENOSPC), in Italian, to stand behind a
/// colon. A rare one is in the words of the toolkit or of the system.
QString SystemReason(int error);

}  // namespace orlo
