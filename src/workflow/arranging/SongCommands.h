// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

#include "platform/text/UserText.h"

namespace korvel {

class QBSong;
class QBSongNode;

/// Makes the song that is derived from another one, under its title.
using MakeSong = QBSong* (*)(QBSong&, const std::string& title);

/// How a command is done: by the letter of its filter, or so that the result can be played and
/// keeps what it need not lose, which is what users are offered.
enum class Manner { literal, forPlayers };

/// How a command makes its song, in either manner; most know but one.
struct Making {
  MakeSong literal = nullptr;
  MakeSong forPlayers = nullptr;

  constexpr Making() = default;
  constexpr Making(MakeSong both) : literal(both), forPlayers(both) {}
  constexpr Making(MakeSong byLetter, MakeSong byHand) : literal(byLetter), forPlayers(byHand) {}
  explicit constexpr operator bool() const { return literal != nullptr; }
};

/// One command that a user can give a song. A command that derives a song has `make`; the others
/// are the node's own business, `perform`.
///
/// A new arrangement is a filter (`QBChordVisitor`) and a row in the table of commands, which names
/// it, with `filteredBy<Filter>` or a function of one's own as `make`.
struct SongCommand {
  platform::Phrase title;    ///< In the menus.
  platform::Phrase undo;     ///< Of the action; none where the title tells enough by itself.
  platform::Phrase hint;     ///< What comes out, in a guitarist's words.
  std::string_view action;   ///< Its name in the application's song menu.
  std::string_view command;  ///< Its name as a command of the song's node.
  platform::Phrase message;  ///< Logged once the derived song is there.
  /// Said behind the source's title in that of the derived song, which is made free; empty for a
  /// song that finds its title itself.
  std::string_view tag;
  Making make{};
  void (QBSongNode::*perform)() = nullptr;
};

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
