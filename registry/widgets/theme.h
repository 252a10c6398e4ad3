#pragma once

class QApplication;

namespace orlo
{

enum class Theme { Desktop, Light, Dark };

/// Sets style and palette of the whole program. Desktop asks the desktop portal which of the two
/// it prefers; without an answer the system's palette is taken. Never fails, never waits long.
void ApplyTheme(QApplication& application, Theme theme);

}  // namespace orlo
