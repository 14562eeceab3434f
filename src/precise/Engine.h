// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <span>

#include "precise/Analysis.h"

namespace korvel::precise {

class Observer;
struct Experience;

/// The precise detection: from the samples of a recording to its notes. Add all samples, then step
/// until it is done, then take the result; to cancel, destroy the engine. The result is the same
/// for any division into calls. Uses no other threads; one thread at a time.
/// Ten minutes of sound take about two seconds and, while they are worked on, 110 megabytes. What
/// is longer is for WindowedEngine.
class Engine {
 public:
  /// sensitivity, 0..1: how faint or doubtful a note may be. 0.5 is the most probable reading.
  /// observer: is shown what the notes are chosen from; must outlive the engine's steps.
  explicit Engine(double sensitivity = 0.5, Observer* observer = nullptr);
  /// For a window of a long recording: goes by what is known of those before, and adds to that.
  Engine(double sensitivity, Experience& experience);
  Engine(Engine&&) noexcept;
  Engine& operator=(Engine&&) noexcept;
  ~Engine();

  /// Takes any number of the next samples, mono, kInputRate of them a second; NaN and infinities
  /// count as 0. Not to be called after `step`.
  void add(std::span<const float> samples);
  /// The same with samples that an intake has halved. energy: the sum of the squares of all so far.
  void addHalved(std::span<const float> samples, double energy);

  /// Does the work for about so many seconds of the recording; false when all is done.
  bool step(double seconds = 1);
  /// How much of the work is done, 0..1.
  double progress() const;

  /// The result; to be called once, after `step` has answered false.
  Analysis take();

 private:
  class State;
  std::unique_ptr<State> m_state;
};

}  // namespace korvel::precise
