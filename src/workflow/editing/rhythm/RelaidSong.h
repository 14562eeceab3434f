// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "platform/persistence/Ref.h"
#include "workflow/editing/CopiedChord.h"

namespace korvel {

class ChordSupply;
class QBChord;
class QBHarmony;
class QBRightHandPattern;
class QBSong;
class QBTabMgr;

/// A song that gets other chords and bars of the same recording. What the user changed of its
/// chords stays at its time, and so does the playback loop.
class RelaidSong {
 public:
  /// Of the song as it is.
  explicit RelaidSong(QBSong& song);
  ~RelaidSong();

  /// All chords and bars go, and those that are supplied come; the supply may set the song's
  /// tempo.
  void fillFrom(ChordSupply& supply);

 private:
  /// A chord that the user changed.
  struct Kept {
    double seconds;
    double length;  ///< Likewise; 0 when it was not on beats.
    CopiedChord chord;
    platform::Ref<QBHarmony> harmony;
    std::optional<int> baseTone;
    platform::Ref<QBRightHandPattern> pattern;
    platform::Ref<QBChord> target{};
  };

  void keepEdited();
  void clear();
  void take(ChordSupply& supply);
  void putBack();
  void findTargets();
  void fill(const Kept& kept) const;
  void setLengths();
  void setLength(const Kept& kept, int wished);
  QBChord* nearest(double seconds) const;
  void setLoop();

  QBTabMgr& m_db;
  QBSong& m_song;
  std::vector<Kept> m_kept;  ///< By time.
  std::optional<double> m_loopBegin;
  std::optional<double> m_loopEnd;
};

/// When a chord was struck or is written, in seconds of the recording; none for one that was made
/// without it.
std::optional<double> recordedSecondsOf(const QBChord& chord);

}  // namespace korvel
