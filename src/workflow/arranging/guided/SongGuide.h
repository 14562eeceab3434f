// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "platform/text/UserText.h"

namespace korvel {

class QBSong;

/// What a user chose to have made of a song: it can be looked at before it is accepted.
class SongGuide {
 public:
  /// Makes a song beside the first one that is given, drawn and under its title. That is the second
  /// one or the beginning of it; what counts in a song as a whole, as its key, is to be looked for
  /// in the second. May throw EditRefused; what was made stays then.
  using Make = std::function<QBSong*(QBSong& song, QBSong& whole)>;

  /// title: of the action and of the entry; line: logged once the song is there.
  SongGuide(const platform::Phrase& title, const platform::Phrase& line, Make make)
      : m_title(title), m_line(line), m_make(std::move(make)) {}

  // Both throw EditRefused for a song without chords and where nothing would be left to play;
  // nothing has changed then.

  /// The first line of the tablature that would come of it. Nothing of it stays in the store, nor
  /// anything to undo.
  std::string preview(QBSong& song) const;
  /// The new song, which becomes the active one: one undoable action, saved and logged. Throws
  /// StoreError, too.
  QBSong& accept(QBSong& song) const;

 private:
  void requireChords(const QBSong& song) const;

  platform::Phrase m_title;
  platform::Phrase m_line;
  Make m_make;
};

/// The first line of a tablature that shows some of the chords from first to last, by their indexes
/// in `allChords`, with their names and durations; "" when none of them is drawn.
std::string firstLineOf(QBSong& song, int first, int last);

}  // namespace korvel
