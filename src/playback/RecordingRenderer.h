// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "platform/deck/DeckOutput.h"
#include "platform/deck/DeckTape.h"
#include "playback/SongRenderer.h"

namespace korvel {

/// A song with its recording as samples, computed as fast as they are taken: as they are played
/// beside each other, once.
class RecordingRenderer {
 public:
  struct Sound {
    std::shared_ptr<const platform::DecodedSound> recording;
    platform::DeckLevels levels;
    double pitch = 1;  ///< A factor.
    double rate = 1;
  };

  /// Without a range all chords. The song's chords must have times of the recording (`isInStep`).
  /// The synthesiser must outlive this.
  RecordingRenderer(QBSong& song, const std::optional<SongRenderer::Range>& range,
                    const Sound& sound, platform::Synthesizer& synthesizer);
  RecordingRenderer(const RecordingRenderer&) = delete;
  RecordingRenderer& operator=(const RecordingRenderer&) = delete;

  /// Whether the chords follow a recording.
  static bool isInStep(QBSong& song);

  /// Renders the next frames, stereo and interleaved; none at the end. Waits while the recording is
  /// decoded.
  std::span<const std::int16_t> next(std::span<std::int16_t> samples);
  /// Share that is rendered, 0..1.
  double progress() const;
  /// Once all is rendered: how long after the end of the recording the last chord begins, in its
  /// seconds.
  double secondsMissing() const;

 private:
  void fill(std::size_t frames);

  const Sound m_sound;
  platform::MusicEvents m_events;
  double m_begin = 0;  ///< In beats.
  double m_end = 0;
  double m_lastSecond = 0;  ///< Of the recording, where the last chord begins.
  platform::SequenceRenderer m_renderer;
  std::unique_ptr<platform::DeckRing> m_ring;
  std::unique_ptr<platform::DeckTape> m_tape;
  platform::DeckOutput m_output;
  platform::PlayTimeline m_timeline;
  std::uint64_t m_frames = 0;
};

}  // namespace korvel
