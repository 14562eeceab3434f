// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "model/songs/ScratchSong.h"
#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;
class QBInstrument;
class QBTone;

/// Finds fingerings for one chord: candidates, one for each string that can play the lowest tone of
/// its highest string, take the other tones on whatever strings they have free. Candidates live in
/// a scratch song.
///
/// `build`; or `collect`, then what narrows the candidates down, then `best`.
class QBTabBuilder {
 public:
  /// The search regards neither the lowest fret nor the offset.
  QBTabBuilder(QBChord* source, QBInstrument* instrument, int minFret, int offset);
  ~QBTabBuilder();

  int m_minFret() const { return m_lowestFret; }
  int m_offset() const { return m_toneOffset; }
  /// In the order in which they were found.
  const std::vector<platform::Ref<QBChord>>& m_chords() const { return m_candidates; }

  void collect();
  /// Collects the candidates and answers the best; none for a chord without tones. The chord is
  /// valid until disposed of.
  QBChord* build();
  /// The best candidate, the first of equals, or none: by the weight of the picking pattern, then a
  /// low and narrow position, then no barre. Holds judge barres more strictly when asked again.
  QBChord* best() const;
  /// Keeps the candidates that have, for each tone of the chord, one of that pitch of its own.
  void keepComplete();
  /// Keeps the candidates that have as many tones as the chord or more and whose fingering is the
  /// end of the chord's own, written from the highest string down.
  void cleanUp();
  /// Deletes the scratch song with the candidates; at the latest, this object does when it goes.
  void dispose() { m_scratch.dispose(); }

  // Steps of the search.
  /// Offers every position of the note on the strings below, then the given one.
  void findPositionsFrom(int string, int fret, int largeTone);
  void addToAllChords(int string, int fret);
  QBChord* createChord(int string, int fret);
  /// Whether the chord has that string free; the fret does not matter.
  static bool isPlayable(const QBChord& chord, int string, int fret);

 private:
  platform::Ref<QBChord> m_source;
  int m_lowestFret;
  int m_toneOffset;
  ScratchSong m_scratch;
  std::vector<platform::Ref<QBChord>> m_candidates;
};

}  // namespace korvel
