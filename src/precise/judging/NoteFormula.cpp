// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/NoteFormula.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace korvel::precise {
namespace {

/// The attack, in frames after the onset: what follows the pick's noise.
constexpr Frame kAttackBegin = 2;
constexpr Frame kAttackEnd = 22;
/// What is loud within half a second before or after is heard together.
constexpr Frame kLocalFrames = 43;
/// Keep ratios and logarithms of nothing in bounds.
constexpr double kTiny = 0.001;
constexpr double kSmall = 0.02;
/// A pitch sounds when it has this share of the loudest pitch.
constexpr float kSounding = 0.25F;

/// Bins from the fundamental to the partials 1 to 7: 36 times the binary logarithm.
constexpr std::array<std::size_t, 7> kPartialBins = {0, 36, 57, 72, 84, 93, 101};

using Levels = std::array<double, kPitches>;

}  // namespace

/// What the frames of an attack have in common.
struct NoteFormula::Attack {
  Window window;
  /// Means over the frames: of each pitch, of all together, of the number of pitches that sound.
  Levels levels{};
  double total = 0;
  double sounding = 0;
  /// Largest of any pitch in any frame.
  double loudest = 0;
  /// Of the candidate's pitch; never 0.
  double mean = 0;
};

NoteFormula::NoteFormula(const FrameTable& activations, const FrameTable& spectra, const Flux& flux,
                         const OnsetIndex& onsets, std::span<const float> loudest)
    : m_activations(activations),
      m_spectra(spectra),
      m_flux(flux),
      m_onsets(onsets),
      m_frames(static_cast<Frame>(activations.frames())),
      m_loudest(loudest) {}

NoteFormula::Attack NoteFormula::attackOf(const Candidate& candidate) const {
  Attack attack;
  attack.window = window(candidate.onset + kAttackBegin,
                         std::min(candidate.end, candidate.onset + kAttackEnd), m_frames);
  const Frame frames = attack.window.end - attack.window.begin;
  const double share = 1 / static_cast<double>(std::max<Frame>(1, frames));
  Frame sounding = 0;
  for (Frame t = attack.window.begin; t < attack.window.end; ++t) {
    const auto row = m_activations.row(static_cast<std::size_t>(t));
    const float loudest = m_loudest[static_cast<std::size_t>(t)];
    attack.loudest = std::max<double>(attack.loudest, loudest);
    for (std::size_t p = 0; p < kPitches; ++p) {
      attack.levels[p] += share * row[p];
      attack.total += share * row[p];
      if (row[p] > kSounding * loudest) ++sounding;
    }
  }
  attack.sounding = share * static_cast<double>(sounding);
  attack.mean = attack.levels[candidate.pitch] + kTiny;
  return attack;
}

double NoteFormula::meanLevel(std::size_t pitch, const Window& window) const {
  return mean(window,
              [&](Frame t) { return m_activations.row(static_cast<std::size_t>(t))[pitch]; });
}

/// Mean strength of the pitch's partial in the spectra; 0 beyond the scale.
double NoteFormula::partialLevel(std::size_t pitch, std::size_t number,
                                 const Window& window) const {
  const std::size_t bin = fundamentalBin(pitch) + kPartialBins[number - 1];
  if (bin >= kBins) return 0;
  const std::size_t end = std::min(bin + 2, kBins);
  return mean(window, [&](Frame t) {
    return std::ranges::max(
        m_spectra.row(static_cast<std::size_t>(t)).subspan(bin - 1, end - bin + 1));
  });
}

double NoteFormula::riseOfPartial(const Candidate& candidate, std::size_t semitones) const {
  const std::size_t bin = candidate.pitch + 1 + semitones;
  return largest(window(candidate.onset - 1, candidate.onset + 2, m_frames),
                 [&](Frame t) { return m_flux.at(bin, t); });
}

void NoteFormula::addLevels(const Candidate& candidate, const Attack& attack, Known& x) const {
  using enum NoteFeature;
  const Window near =
      window(candidate.onset - kLocalFrames, candidate.onset + kLocalFrames, m_frames);
  const auto loudest = [&](Frame t) { return m_loudest[static_cast<std::size_t>(t)]; };
  const auto share = [&](Frame t) {
    return m_activations.row(static_cast<std::size_t>(t))[candidate.pitch] /
           std::max(loudest(t), 1e-9F);
  };
  x[Peak] = std::log(candidate.peak);
  x[PeakShare] = std::log(candidate.peak / (attack.loudest + kTiny));
  x[LocalShare] = std::log(candidate.peak / (largest(near, loudest) + kTiny));
  x[Mean] = std::log(attack.mean);
  x[MeanShare] = std::log(mean(window(candidate.onset, candidate.end, m_frames), share) + kTiny);
  x[Share] = std::log(attack.mean / (attack.total + kTiny));
  x[Polyphony] = std::log(attack.sounding + kTiny);
}

/// How the level moves from before the onset on.
void NoteFormula::addShape(const Candidate& candidate, double attackMean, Known& x) const {
  using enum NoteFeature;
  const Frame onset = candidate.onset;
  const auto level = [&](Frame first, Frame end) {
    return meanLevel(candidate.pitch, window(first, end, m_frames));
  };
  x[Duration] = std::log(static_cast<double>(candidate.end - onset) / kFramesPerSecond);
  x[Decay] = std::log((level(onset, candidate.end) + kTiny) / attackMean);
  x[Before] = std::log((level(onset - 6, onset - 2) + kSmall) / candidate.peak);
  x[Sustain] = std::log(level(onset + 3, onset + 9) / candidate.peak + 0.05);
}

/// Other pitches that sound at the attack, for which it may be mistaken.
void NoteFormula::addNeighbours(const Candidate& candidate, const Attack& attack, Known& x) const {
  using enum NoteFeature;
  const auto near = [&](std::initializer_list<std::ptrdiff_t> distances) {
    double found = 0;
    for (const std::ptrdiff_t distance : distances) {
      const std::size_t pitch = candidate.pitch + static_cast<std::size_t>(distance);
      if (pitch < kPitches)
        found = std::max(found, std::log(1 + attack.levels[pitch] / attack.mean));
    }
    return found;
  };
  x[OctaveBelow] = near({-12});
  x[TwelfthBelow] = near({-19});
  x[TwoOctavesBelow] = near({-24});
  x[FarBelow] = near({-28, -31, -34, -36});
  x[OctaveAbove] = near({12});
  x[TwelfthAbove] = near({19});
  x[TwoOctavesAbove] = near({24});
  x[Fifths] = near({-7, -5, 5, 7});
  x[Beside] = near({-1, 1});
}

/// A pitch that is heard an octave below a note has nothing at its odd partials.
void NoteFormula::addPartials(const Candidate& candidate, const Attack& attack, Known& x) const {
  using enum NoteFeature;
  std::array<double, 8> level{};
  for (std::size_t number = 1; number < level.size(); ++number)
    level[number] = partialLevel(candidate.pitch, number, attack.window);
  const double even = (level[2] + level[4] + level[6]) / 3;
  const double odd = (level[3] + level[5] + level[7]) / 3;
  x[Fundamental] = std::log(level[1] / attack.mean + 0.01);
  x[FundamentalToEven] = std::log((level[1] + kSmall) / ((level[2] + level[4]) / 2 + kSmall));
  x[ThirdToEven] = std::log((level[3] + kSmall) / (even + kSmall));
  x[OddToEven] = std::log((odd + kSmall) / (even + kSmall));
  x[SecondPartial] = std::log((level[2] + kSmall) / (attack.mean + kSmall));
}

void NoteFormula::addFlux(const Candidate& candidate, Known& x) const {
  using enum NoteFeature;
  const auto rise = [&](std::size_t semitones) { return riseOfPartial(candidate, semitones); };
  x[Flux] = candidate.flux / candidate.peak;
  x[OddFlux] =
      std::log((rise(0) + rise(19) + rise(28) + 0.1) / (rise(12) + rise(24) + rise(31) + 0.1));
  x[FundamentalFlux] = std::log(rise(0) / candidate.peak + kSmall);
}

Features<NoteFeature> NoteFormula::features(const Candidate& candidate) const {
  using enum NoteFeature;
  const Attack attack = attackOf(candidate);
  Known x;
  addLevels(candidate, attack, x);
  addShape(candidate, attack.mean, x);
  addNeighbours(candidate, attack, x);
  addPartials(candidate, attack, x);
  addFlux(candidate, x);
  x[Covered] = m_onsets.isCovered(candidate.pitch, candidate.onset) ? 1 : 0;
  x[Pitch] = centredPitch(candidate.pitch);
  x[Reattack] = candidate.reattack ? 1 : 0;
  return x;
}

}  // namespace korvel::precise
