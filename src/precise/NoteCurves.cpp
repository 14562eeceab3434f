// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/NoteCurves.h"

#include "precise/seeing/Power.h"

namespace korvel::precise {
namespace {

/// In which a plucked string becomes half as loud.
constexpr double kSecondsOfHalf = 0.5;

}  // namespace

NoteCurves::NoteCurves(const Analysis& analysis, std::span<const Note> notes) {
  for (const Note& note : notes) add(analysis, note, 0);
}

NoteCurves NoteCurves::fading(std::span<const Note> notes) {
  NoteCurves curves;
  const double fade = std::pow(0.5, kCompression / (kSecondsOfHalf * kFramesPerSecond));
  for (const Note& note : notes) {
    Curve& curve = curves.m_curves.emplace_back(Curve{frameAt(note.onset), 1});
    double activation = std::pow(static_cast<double>(note.amplitude), kCompression);
    for (Frame t = curve.first; t < frameAt(note.end); ++t, activation *= fade)
      curve.activations.push_back(static_cast<float>(activation));
  }
  return curves;
}

void NoteCurves::add(const Analysis& window, const Note& note, Frame begin) {
  const Window frames =
      precise::window(frameAt(note.onset), frameAt(note.end), static_cast<Frame>(window.frames));
  Curve& curve = m_curves.emplace_back(Curve{begin + frames.begin, window.ref});
  for (Frame t = frames.begin; t < frames.end; ++t)
    curve.activations.push_back(window.activation(static_cast<std::size_t>(t), note.pitch));
}

void NoteCurves::extend(std::size_t note, const Analysis& window, int pitch, Frame begin,
                        Frame end) {
  Curve& curve = m_curves[note];
  const auto factor = static_cast<float>(std::pow(window.ref / curve.ref, kCompression));
  for (Frame t = curve.first + std::ssize(curve.activations); t < end; ++t)
    curve.activations.push_back(factor *
                                window.activation(static_cast<std::size_t>(t - begin), pitch));
}

double NoteCurves::amplitude(std::size_t note, const Window& frames) const {
  const Curve& curve = m_curves[note];
  const Window known =
      window(frames.begin - curve.first, frames.end - curve.first, std::ssize(curve.activations));
  const double activation =
      largest(known, [&](Frame t) { return curve.activations[static_cast<std::size_t>(t)]; });
  return Analysis::amplitude(activation, curve.ref);
}

}  // namespace korvel::precise
