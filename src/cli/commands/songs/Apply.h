// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `apply`: derives songs by the commands of the song menu, and prints the titles of the new ones;
/// or prints the menu, titles with the names of their commands.
void addApply(Command& tool);

}  // namespace korvel::cli
