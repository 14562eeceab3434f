// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::ui {

/// Whose colours the window has: the desktop's, or always light or dark ones.
enum class Theme { system, light, dark };

/// Gives the application the colours of a theme. `system` are those of the desktop; where Qt knows
/// of light ones only although the desktop wants dark ones, as it says by its portal, our own.
void applyTheme(Theme theme, bool desktopIsDark = false);

}  // namespace korvel::ui
