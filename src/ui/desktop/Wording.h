// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace korvel::ui {

/// A line that a lower layer has worded for the user, such as the reason of a refusal, in the
/// user's language; as it stands when there is no translation of it.
QString worded(const QString& line);

}  // namespace korvel::ui
