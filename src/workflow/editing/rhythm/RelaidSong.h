// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "workflow/editing/fingers/KeptFingers.h"
#include "workflow/editing/rhythm/EditedChords.h"
#include "workflow/editing/words/AnchoredWords.h"

namespace korvel {

class ChordSupply;
class QBChord;
class QBSong;
class QBTabMgr;

/// A song that gets other chords and bars of the same recording. What the user changed of its
/// chords stays (`EditedChords`), on which strings tones are played (`KeptFingers`), and the
/// playback loop, by its time.
class RelaidSong {
 public:
  /// Of the song as it is.
  explicit RelaidSong(QBSong& song);
  ~RelaidSong();

  /// All chords and bars go, and those that are supplied come; the supply may set the song's
  /// tempo.
  void fillFrom(ChordSupply& supply);

 private:
  void clear();
  void take(ChordSupply& supply);
  QBChord* nearest(double seconds) const;
  void setLoop();

  QBTabMgr& m_db;
  QBSong& m_song;
  EditedChords m_edited;
  KeptFingers m_fingers;
  TimedWords m_words;
  std::optional<double> m_loopBegin;  ///< Seconds of the recording.
  std::optional<double> m_loopEnd;
};

}  // namespace korvel
