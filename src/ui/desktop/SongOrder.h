// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::ui {

/// How songs stand in the library. Albums follow where that says something of them, too.
enum class SongOrder {
  asStored,
  byTitle,      ///< As the language has it, and numbers by their values.
  newestFirst,  ///< By when they were made.
  byLength,     ///< The shortest first; of albums nothing.
};

}  // namespace korvel::ui
