// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "analysis/beats/HeardSound.h"
#include "platform/text/UserText.h"
#include "rhythm/stored/HeardBytes.h"

namespace korvel {

class QBSong;
class SongRecording;

/// What a song's recording keeps of all that was heard in it, and of how its rhythm was read.
class RecordedRhythm {
 public:
  /// Throws EditRefused for a song without a recording, and where what was heard is damaged or of a
  /// later version.
  explicit RecordedRhythm(QBSong& song);

  /// Why no rhythm of the song can be read; none when one can, as far as can be told at once.
  static std::optional<platform::UserText> refusal(const QBSong& song);

  /// Those that the song has by its user's corrections.
  const std::vector<fingering::Note>& notes() const { return m_notes; }
  const rhythm::Reading& reading() const { return m_stored.rhythm.reading; }
  const std::vector<rhythm::Alternative>& others() const { return m_stored.rhythm.others; }
  /// Too free to be sure of any of them.
  bool isFree() const { return m_stored.rhythm.isFree; }
  const rhythm::Wishes& wishes() const { return m_stored.wishes; }
  /// The notes with another reading; wishes are kept with what comes of them by `store`.
  HeardSound readBy(const rhythm::Wishes& wishes) const;
  void store(const HeardSound& heard) const;
  const SongRecording& recording() const { return m_recording; }

 private:
  SongRecording& m_recording;
  std::vector<fingering::Note> m_notes;  ///< By onset.
  rhythm::StoredRhythm m_stored;
};

}  // namespace korvel
