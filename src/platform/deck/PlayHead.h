// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace korvel::platform {

/// How a loop gets faster: shares of the speed that is set, `step` more after each so many rounds.
struct SpeedRamp {
  double from = 0.6;
  double step = 0.05;
  int rounds = 2;
};

/// What is played again and again, in beats of a sequence.
struct Rounds {
  double begin;
  double end;
  /// Where a further round begins: `begin`, or before it where clicks or silence lie in between.
  double again;
  std::optional<SpeedRamp> ramp{};
};

/// Which place of a sequence each frame is of, turning back at the end of a loop to the frame. One
/// thread at a time; allocates nothing.
class PlayHead {
 public:
  struct Span {
    double beat = 0;           ///< Of its first frame.
    double beatsPerFrame = 0;  ///< 0 where it stands still.
    std::size_t frames = 0;
    bool turned = false;  ///< The loop turned back to its first frame.
  };

  /// edge: a place that no span goes across but one may begin with.
  PlayHead(const std::optional<Rounds>& rounds, double edge);

  /// Beats a second; 0 and less stands still.
  void setRate(double rate);
  /// The rounds are counted anew.
  void seek(double beat);
  /// At most so many frames, at least one; at least half as many before a turn, where the loop has
  /// them.
  Span next(std::size_t most);
  /// That is set, by the ramp.
  double rate() const;

 private:
  double position() const { return m_anchor + static_cast<double>(m_frame) * m_beatsPerFrame; }
  void anchorAt(double beat);
  double framesTo(double beat) const;
  void turn();

  std::optional<Rounds> m_rounds;
  double m_edge;
  double m_rate = 1;
  int m_round = 0;
  double m_anchor = 0;       ///< Where the rate or the place last changed, in beats.
  std::int64_t m_frame = 0;  ///< Frames since then.
  double m_beatsPerFrame = 0;
  bool m_turned = false;
};

}  // namespace korvel::platform
