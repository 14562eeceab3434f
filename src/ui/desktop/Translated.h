// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <exception>
#include <functional>

#include "platform/text/UserText.h"

namespace korvel::ui {

/// What a lower layer has for the user, in the user's language. Phrases that have no translation
/// stay English.
QString translated(const platform::UserText& text);
/// What an exception says to the user.
QString translated(const std::exception& problem);
/// Does something; what to tell the user when a UserError says that it cannot be done.
QString refusalOf(const std::function<void()>& act);

}  // namespace korvel::ui
