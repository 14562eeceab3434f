// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `tunings`: lists them, with a star at the one of new songs; its commands select, add, edit,
/// rename and delete one.
void addTunings(Command& tool);

}  // namespace korvel::cli
