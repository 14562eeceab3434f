// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace korvel::ui {

// In the colour of the application's button texts, also when that changes.
QIcon playIcon();
QIcon stopIcon();
/// Two arrows to the right: there is more than fits.
QIcon moreIcon();

}  // namespace korvel::ui
