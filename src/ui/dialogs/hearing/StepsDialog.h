// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/loop/Slices.h"

class QString;
class QWidget;

namespace korvel::ui {

/// Works through all of it, behind a dialog that shows how far it is once that takes a moment.
/// False when its user would rather not. Throws what the work throws.
bool workThrough(platform::Slices work, const QString& title, QWidget* parent);

}  // namespace korvel::ui
