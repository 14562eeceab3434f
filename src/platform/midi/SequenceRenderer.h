// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/midi/MusicEvent.h"
#include "platform/midi/Synthesizer.h"

namespace korvel::platform {

/// Plays events on a synthesiser from a place on, at a rate: each at the frame nearest to its time.
/// For one thread at a time; after construction nothing waits, throws or allocates, so that an
/// audio callback can drive it.
class SequenceRenderer {
 public:
  /// A stretch of a sequence, in beats; its end is later than its beginning.
  struct Loop {
    double begin;
    double end;
  };

  /// The synthesiser must outlive this.
  explicit SequenceRenderer(Synthesizer& synthesizer);

  /// What to play from now on; it must stay until it is replaced. Changes of channels that are past
  /// take effect now, past notes do not sound, and sounding ones end as they would have.
  void use(const MusicEvents& events);
  /// Beats a second, up to 1000; 0 stands still while notes ring, and anything below counts as 0.
  void setRate(double rate);
  /// Goes to another place, in beats. What sounds ends (it fades out over the first few
  /// milliseconds there), and channels become what the events before the place make of them.
  void seek(double beat);
  /// Whenever it comes to the end of the loop it goes on at its beginning, to the frame. What
  /// sounds ends there, as a note does.
  void setLoop(const std::optional<Loop>& loop) { m_loop = loop; }

  /// Goes on at another place as at the end of a loop, now.
  void goOnAt(double beat);

  /// The next frames, stereo, interleaved.
  void render(std::span<std::int16_t> samples);

  /// The place of the next frame, in beats.
  double position() const { return m_anchor + static_cast<double>(m_frame) * m_beatsPerFrame; }
  double beatsPerFrame() const { return m_beatsPerFrame; }
  /// No event is left and no note is held.
  bool isOver() const { return m_next == m_events.size() && m_held.empty(); }

 private:
  static constexpr std::size_t kFadeFrames = 256;

  struct Held {
    MidiNoteMessage note;
    double end;  ///< In beats.
  };

  /// Frames from the anchor to the one nearest to a place; infinite when it is never reached.
  double frameOf(double beat) const;
  bool isDue(double beat) const { return frameOf(beat) <= static_cast<double>(m_frame); }
  void anchorAt(double beat);
  void locate();
  void fadeOut();
  void turnBack();
  void perform();
  void endNotes();
  void strike(const MidiNoteMessage& note, double time);
  std::size_t framesToNext(std::size_t most) const;
  void addFade(std::span<std::int16_t> samples);

  Synthesizer& m_synthesizer;
  std::span<const MusicEvent> m_events;
  std::size_t m_next = 0;
  std::optional<Loop> m_loop;
  std::vector<Held> m_held;  ///< One for each pitch of a channel at most.

  double m_anchor = 0;       ///< Where the rate or the place last changed, in beats.
  std::int64_t m_frame = 0;  ///< Frames rendered since then.
  double m_beatsPerFrame = 1.0 / Synthesizer::kSampleRate;

  std::array<std::int16_t, kFadeFrames * Synthesizer::kChannels> m_fade{};
  std::size_t m_faded = m_fade.size();  ///< Samples of the fade that were given out.
};

}  // namespace korvel::platform
