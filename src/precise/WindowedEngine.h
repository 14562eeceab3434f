// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "precise/Engine.h"
#include "precise/Experience.h"
#include "precise/Findings.h"
#include "precise/Intake.h"

namespace korvel::precise {

/// The precise detection of a recording of any length. What is longer than ten minutes is heard in
/// windows of that length, so that the memory does not grow with it: about 95 megabytes for the one
/// that is worked on. Windows overlap by twenty seconds, and each knows what those before have told
/// of the tuning, the loudness and the instrument. Up to ten minutes it is what the engine hears.
///
/// Add samples until it is full or the recording ends, which `finish` tells; then step until that
/// answers false, and add on, unless it is still full. One thread at a time.
class WindowedEngine {
 public:
  /// As of the engine. expectedOffset: how far the A lies above 440 Hz, in cents; what is heard is
  /// less than half a semitone off that.
  explicit WindowedEngine(double sensitivity = 0.5, double expectedOffset = 0)
      : m_sensitivity(sensitivity) {
    m_experience.expectedOffset = expectedOffset;
    begin({});
  }

  WindowedEngine(const WindowedEngine&) = delete;
  WindowedEngine& operator=(const WindowedEngine&) = delete;

  /// Not while it is full, or after `finish`.
  void add(std::span<const float> samples) { feed(m_intake.add(samples)); }
  /// No more samples come.
  void finish() { feed(m_intake.finish()); }
  /// More is known than fits into the window.
  bool isFull() const { return m_seen > kWindow; }

  /// Does the work for about so many seconds of the recording; false when the window is heard.
  bool step(double seconds = 1);
  /// How much of the work on the window is done, 0..1.
  double progress() const { return m_engine->progress(); }

  /// To be called once, when all is heard.
  Findings take() { return std::move(m_found); }

 private:
  /// Samples of a block of a song, at kRate; windows begin with blocks.
  static constexpr std::size_t kBlock = 8192;
  /// 600.003 seconds, and the last twenty of them.
  static constexpr std::size_t kWindow = 1615 * kBlock;
  static constexpr std::size_t kOverlap = 54 * kBlock;
  static constexpr std::size_t kStride = kWindow - kOverlap;
  static constexpr auto kOverlapFrames = static_cast<Frame>(kOverlap / kHop);

  void begin(std::span<const float> samples);
  void feed(std::span<const float> samples);
  void collect(const Analysis& window);
  Note inRecording(Note note) const;
  void dropWhatIsNote();
  void extendCutNotes(const Analysis& window);
  void extendCutDoubts(const Analysis& window);
  static Frame seamOf(const Analysis& window);

  double m_sensitivity;
  Intake m_intake;
  Experience m_experience;
  std::optional<Engine> m_engine;  ///< Of the window.
  Frame m_begin = 0;               ///< Of the window, in the recording.
  std::size_t m_seen = 0;          ///< Samples from there on.
  std::vector<float> m_next;       ///< Those of the next window.
  double m_energyBefore = 0;       ///< Of the samples before the window, ...
  double m_energyOfNext = 0;       ///< ... and before the next.

  Findings m_found;
  Frame m_seam = 0;                ///< Notes count that begin there or later.
  std::vector<std::size_t> m_cut;  ///< Notes that were heard to the end of the window before.
};

}  // namespace korvel::precise
