// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"

namespace korvel {

class QBAlbum;
class QBSong;

/// Makes a song playable in three stages: tones foreign to the chord go, then bass tones that move
/// with the melody, then what the right hand cannot strike. Each stage is written to a text file in
/// the settings' folder for tablature, which is made when it is missing.
class QBTabToneTrimmer {
 public:
  /// The album is the one that the source is in.
  QBTabToneTrimmer(QBAlbum* album, QBSong* source);
  ~QBTabToneTrimmer();

  /// Answers a new song, titled as the source with "(trimmed)" behind, whose tablature is not built
  /// yet. For a source without chords std::out_of_range, and then the songs of the stages stay.
  /// platform::FileError when the folder cannot be made.
  QBSong* trimmer();

  // Stages: each answers a changed clone of the song, with the number of the stage in its title.
  static QBSong* removeNoneChordTones(QBSong* song);
  static QBSong* contraPoint(QBSong* song);
  static QBSong* applyRightHandPattern(QBSong* song);

 private:
  platform::Ref<QBAlbum> m_album;
  platform::Ref<QBSong> m_source;
};

}  // namespace korvel
