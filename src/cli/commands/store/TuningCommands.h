// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `tunings`: lists them; its commands select the one of new songs, add one and print its name, or
/// edit, rename and delete one.
void addTunings(Command& tool);

}  // namespace korvel::cli
