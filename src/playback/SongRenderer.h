// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "model/songs/SongTime.h"
#include "platform/midi/MusicEvent.h"
#include "platform/midi/SequenceRenderer.h"
#include "platform/midi/Synthesizer.h"

namespace korvel {

class QBSong;

/// A song as samples, computed as fast as they are taken: from the first chord on, and until the
/// last note has faded away.
class SongRenderer {
 public:
  /// Positions of chords, both included.
  struct Range {
    int from;
    int to;
  };

  /// Without a range all chords; rate: 1 is the speed of the recording. The tempo is that of a song
  /// on beats. The synthesiser must outlive this.
  SongRenderer(QBSong& song, const std::optional<Range>& range, double rate,
               platform::Synthesizer& synthesizer,
               SongTime::Tempo tempo = SongTime::Tempo::asRecorded);
  /// The loop that is set in the song, or none; an end that is not set is the song's.
  static std::optional<Range> loopOf(QBSong& song);
  SongRenderer(const SongRenderer&) = delete;
  SongRenderer& operator=(const SongRenderer&) = delete;

  /// Renders the next frames, stereo and interleaved: as many as fit in, fewer at the end, then
  /// none.
  std::span<const std::int16_t> next(std::span<std::int16_t> samples);
  /// No tone is active in any of the chords.
  bool isSilent() const { return m_length <= 0; }
  /// Share of the notes that is rendered, 0..1.
  double progress() const;

 private:
  platform::MusicEvents m_events;
  double m_length;  ///< In beats.
  platform::SequenceRenderer m_renderer;
  double m_longestEcho;  ///< Frames that may follow the last note.
};

}  // namespace korvel
