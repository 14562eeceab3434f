// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/NoteFormula.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "analysis/precise/Logistic.h"
#include "analysis/precise/Window.h"

namespace korvel::precise {
namespace {

/// The attack, in frames after the onset: what follows the pick's noise.
constexpr Frame kAttackBegin = 2;
constexpr Frame kAttackEnd = 22;
/// Keeps ratios and logarithms of nothing in bounds.
constexpr double kTiny = 0.001;
/// The weights were fitted on pitches up to E5, and would drop most of what lies above.
constexpr double kHighestFitted = 0.9;
/// A pitch sounds when it has this share of the loudest pitch.
constexpr float kSounding = 0.25F;

/// In semitones: where a pitch has its overtones, and so those pitches above which it may be
/// mistaken for a note.
constexpr std::array<std::ptrdiff_t, 7> kPartials = {12, 19, 24, 28, 31, 34, 36};
constexpr std::array<std::ptrdiff_t, 4> kFarPartials = {28, 31, 34, 36};

using Levels = std::array<double, kPitches>;

/// What the frames of an attack have in common.
struct Attack {
  /// Means over the frames: of each pitch, of all together, of the number of pitches that sound.
  Levels levels{};
  double total = 0;
  double sounding = 0;
  /// Largest of any pitch in any frame.
  double loudest = 0;
};

Attack attackOf(const FrameTable& activations, const Window& window) {
  Attack attack;
  const double share = 1 / static_cast<double>(std::max<Frame>(1, window.end - window.begin));
  for (Frame t = window.begin; t < window.end; ++t) {
    const auto row = activations.row(static_cast<std::size_t>(t));
    const float loudest = std::ranges::max(row);
    attack.loudest = std::max<double>(attack.loudest, loudest);
    for (std::size_t p = 0; p < kPitches; ++p) {
      attack.levels[p] += share * row[p];
      attack.total += share * row[p];
      if (row[p] > kSounding * loudest) attack.sounding += share;
    }
  }
  return attack;
}

/// How strong a pitch at that distance is, compared with the pitch itself.
class Neighbours {
 public:
  Neighbours(const Levels& levels, std::size_t pitch, double mean)
      : m_levels(levels), m_pitch(static_cast<std::ptrdiff_t>(pitch)), m_mean(mean) {}

  double operator()(std::ptrdiff_t distance) const {
    const std::ptrdiff_t pitch = m_pitch + distance;
    if (pitch < 0 || pitch >= static_cast<std::ptrdiff_t>(kPitches)) return 0;
    return std::log(1 + m_levels[static_cast<std::size_t>(pitch)] / m_mean);
  }

 private:
  const Levels& m_levels;
  std::ptrdiff_t m_pitch;
  double m_mean;
};

}  // namespace

NoteFormula::NoteFormula(const FrameTable& activations, const FrameTable& spectra,
                         const OnsetIndex& onsets)
    : m_activations(activations), m_spectra(spectra), m_onsets(onsets) {}

/// Whether a note that starts at the same time has an overtone at the candidate's pitch.
bool NoteFormula::isCovered(const Candidate& candidate) const {
  return std::ranges::any_of(kPartials, [&](std::ptrdiff_t distance) {
    const auto semitones = static_cast<std::size_t>(distance);
    return candidate.pitch >= semitones &&
           m_onsets.contains(candidate.pitch - semitones, candidate.onset);
  });
}

double NoteFormula::fundamentalAt(std::size_t pitch, Frame frame) const {
  const auto row = m_spectra.row(static_cast<std::size_t>(frame));
  return std::ranges::max(row.subspan(fundamentalBin(pitch) - 1, kBinsPerSemitone));
}

Features<NoteFeature> NoteFormula::features(const Candidate& candidate) const {
  using enum NoteFeature;
  const std::size_t p = candidate.pitch;
  const auto frames = static_cast<Frame>(m_activations.frames());
  const Window whole = window(candidate.onset, candidate.end, frames);
  const Window early = window(candidate.onset + kAttackBegin,
                              std::min(candidate.end, candidate.onset + kAttackEnd), frames);
  const auto level = [&](Frame t) { return m_activations.row(static_cast<std::size_t>(t))[p]; };
  const auto share = [&](Frame t) {
    const auto row = m_activations.row(static_cast<std::size_t>(t));
    return row[p] / std::max(std::ranges::max(row), 1e-9F);
  };
  const Attack attack = attackOf(m_activations, early);
  const double attackMean = attack.levels[p] + kTiny;
  const Neighbours near(attack.levels, p, attackMean);
  const auto seconds = static_cast<double>(candidate.end - candidate.onset) / kFramesPerSecond;

  Features<NoteFeature> x;
  x[Peak] = std::log(candidate.peak);
  x[PeakShare] = std::log(candidate.peak / (attack.loudest + kTiny));
  x[Mean] = std::log(attackMean);
  x[MeanShare] = std::log(mean(whole, share) + kTiny);
  x[Duration] = std::log(seconds);
  x[Flux] = candidate.flux / candidate.peak;
  x[OctaveBelow] = near(-12);
  x[TwelfthBelow] = near(-19);
  x[TwoOctavesBelow] = near(-24);
  for (const std::ptrdiff_t distance : kFarPartials)
    x[FarBelow] = std::max(x[FarBelow], near(-distance));
  x[OctaveAbove] = near(12);
  x[TwelfthAbove] = near(19);
  x[Beside] = std::max(near(-1), near(1));
  x[Polyphony] = std::log(attack.sounding + kTiny);
  x[Covered] = isCovered(candidate) ? 1 : 0;
  x[Pitch] = std::min(centredPitch(p), kHighestFitted);
  x[Reattack] = candidate.reattack ? 1 : 0;
  x[Decay] = std::log((mean(whole, level) + kTiny) / attackMean);
  x[Share] = std::log(attackMean / (attack.total + kTiny));
  x[Fundamental] =
      std::log(mean(early, [&](Frame t) { return fundamentalAt(p, t); }) / attackMean + 0.01);
  return x;
}

double NoteFormula::probability(const Candidate& candidate) const {
  return logistic(noteTerms(), features(candidate));
}

}  // namespace korvel::precise
