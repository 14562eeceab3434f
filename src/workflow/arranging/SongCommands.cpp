// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/SongCommands.h"

#include <algorithm>

#include "workflow/arranging/commands/HandCommands.h"
#include "workflow/arranging/commands/HarmonyCommands.h"
#include "workflow/arranging/commands/MetreCommands.h"
#include "workflow/arranging/commands/VoiceCommands.h"
#include "workflow/library/QBSongNode.h"

namespace korvel {
namespace {

using platform::phrase;

/// What the node of a song does itself.
constexpr SongCommand kPlain[] = {
    {phrase("SongMenu", "Export To Textfile"),
     kAsTitled,
     phrase("SongHint", "The tablature as plain text, in a file of your choice"),
     "exportAsFile",
     "exportAsFile",
     {},
     "",
     {},
     &QBSongNode::exportAsFile},
    {phrase("SongMenu", "Clone"),
     phrase("UndoAction", "Clone"),
     phrase("SongHint", "A copy to change and try things on"),
     "cloneSong",
     "copySong",
     {},
     "",
     {},
     &QBSongNode::copySong},
    {phrase("SongMenu", "Delete"),
     phrase("UndoAction", "Delete"),
     phrase("SongHint", "Takes the song out of its album; Undo in the menu Edit brings it back"),
     "deleteSong",
     "deleteSong",
     {},
     "",
     {},
     &QBSongNode::deleteSong},
};

const SongCommand* find(std::string_view SongCommand::*name, std::string_view wanted) {
  for (const SongMenuSection& section : songMenu()) {
    const auto found = std::ranges::find(section.items, wanted, name);
    if (found != section.items.end()) return &*found;
  }
  return nullptr;
}

}  // namespace

std::span<const SongMenuSection> songMenu() {
  static const SongMenuSection kMenu[] = {
      {phrase("SongMenu", "Apply Standard Filters"), standardCommands()},
      {phrase("SongMenu", "Apply Plectrum Filters"), plectrumCommands()},
      {phrase("SongMenu", "Apply Rhythm Filters"), metreCommands()},
      {},
      {phrase("SongMenu", "Extract Voices"), extractedVoices()},
      {phrase("SongMenu", "Extract Loudest Voices"), loudestVoices()},
      {},
      {phrase("SongMenu", "Remove Options"), removedOptions()},
      {phrase("SongMenu", "Remove Voices"), removedVoices()},
      {},
      {phrase("SongMenu", "Transpose Up By"), transposedUp()},
      {phrase("SongMenu", "Transpose Down By"), transposedDown()},
      {},
      {{}, kPlain},
  };
  return kMenu;
}

platform::Phrase undoTitle(const SongCommand& command) {
  return command.undo.empty() ? command.title : command.undo;
}

const SongCommand* findSongCommand(std::string_view command) {
  return find(&SongCommand::command, command);
}

const SongCommand* findSongAction(std::string_view action) {
  return find(&SongCommand::action, action);
}

}  // namespace korvel
