// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
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
/// A new arrangement is a filter (`QBChordVisitor`) and a row in a table of this folder, which
/// names it, with `filteredBy<Filter>` or a function of one's own as `make`. Titles, tags and
/// sentences are known to users by heart, the odd ones too; none is to be corrected.
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

/// `undo` of a command that is undone under the title that the menu has.
inline constexpr platform::Phrase kAsTitled;

}  // namespace korvel
