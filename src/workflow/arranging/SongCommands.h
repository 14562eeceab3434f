// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

#include "platform/text/UserText.h"
#include "workflow/arranging/commands/SongCommand.h"

namespace korvel {

/// A part of a song's menu: a submenu under a title, plain items without one, or, without items, a
/// separator.
struct SongMenuSection {
  platform::Phrase title{};
  std::span<const SongCommand> items{};

  bool isSeparator() const { return items.empty(); }
};

/// The menu of a song from top to bottom.
std::span<const SongMenuSection> songMenu();

/// The title of a command as it is undone: "Extract Melody" for the item "Melody".
platform::Phrase undoTitle(const SongCommand& command);

// The command of that name, or none.
const SongCommand* findSongCommand(std::string_view command);
const SongCommand* findSongAction(std::string_view action);

}  // namespace korvel
