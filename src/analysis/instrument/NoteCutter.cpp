// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/instrument/NoteCutter.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "music/ConcertPitch.h"
#include "music/Pitch.h"
#include "platform/sound/SampleRate.h"

namespace korvel {
namespace {

constexpr std::size_t kFrame = 1024;  // samples of a level
constexpr std::size_t kShortestNote = 12;
constexpr std::size_t kFramesOfStroke = 3;
constexpr float kStroke = 2;  // times as loud as just before
constexpr double kFullScale = 32768;

// The threshold between sound and silence lies above the noise, and within these parts of the
// loudest sound.
constexpr double kShareOfNoise = 0.1;
constexpr float kAboveNoise = 3;
constexpr float kLowestThreshold = 0.01F;
constexpr float kHighestThreshold = 0.1F;

using Levels = std::vector<float>;

float noiseOf(Levels levels) {
  const auto place = levels.begin() + static_cast<std::ptrdiff_t>(
                                          static_cast<double>(levels.size() - 1) * kShareOfNoise);
  std::ranges::nth_element(levels, place);
  return *place;
}

float thresholdOf(const Levels& levels) {
  const float loudest = std::ranges::max(levels);
  return std::clamp(noiseOf(levels) * kAboveNoise, loudest * kLowestThreshold,
                    loudest * kHighestThreshold);
}

/// Whether a string is struck there while the one before still rings from frame `begin` on.
bool isStruckAgain(const Levels& levels, std::size_t begin, std::size_t frame) {
  if (frame < begin + kShortestNote) return false;
  const auto before = std::span(levels).subspan(frame - kFramesOfStroke, kFramesOfStroke);
  return levels[frame] > kStroke * std::ranges::min(before);
}

std::size_t endOfNote(const Levels& levels, std::size_t begin, float threshold) {
  std::size_t end = begin + 1;
  while (end < levels.size() && levels[end] >= threshold && !isStruckAgain(levels, begin, end))
    ++end;
  return end;
}

// ---- pitch

constexpr std::size_t kStep = 4;        // of the samples that are looked at
constexpr std::size_t kSmoothing = 12;  // samples that make one of them, against shrill overtones
constexpr double kRate = platform::kSampleRate / double{kStep};
constexpr std::size_t kWindow = 2048;
constexpr std::size_t kLastLag = 170;  // below C#2
constexpr std::size_t kAfterStroke = 2048;
constexpr double kClearNote = 0.7;  // of chords it is hardly more than 0.5
constexpr double kNearlyBest = 0.9;

std::vector<double> thinned(std::span<const std::int16_t> samples) {
  std::vector<double> thin;
  for (std::size_t i = 0; i + kSmoothing <= samples.size(); i += kStep) {
    const auto few = samples.subspan(i, kSmoothing);
    thin.push_back(std::accumulate(few.begin(), few.end(), 0.0));
  }
  return thin;
}

/// How like itself the sound is when it is shifted, -1..1, by lag.
std::vector<double> likeness(std::span<const double> sound) {
  std::vector<double> alike(kLastLag + 2);
  const auto begin = sound.begin();
  const auto end = begin + kWindow;
  const double energy = std::inner_product(begin, end, begin, 0.0);
  double shifted = energy;
  for (std::size_t lag = 0; lag < alike.size(); ++lag) {
    const double common =
        std::inner_product(begin, end, begin + static_cast<std::ptrdiff_t>(lag), 0.0);
    alike[lag] = energy + shifted > 0 ? 2 * common / (energy + shifted) : 0;
    shifted += sound[lag + kWindow] * sound[lag + kWindow] - sound[lag] * sound[lag];
  }
  return alike;
}

struct Peak {
  double lag;
  double alike;
};

/// The top of the parabola through a value that is none below its neighbours: a period need not be
/// a whole number of samples.
std::optional<Peak> peakAt(const std::vector<double>& alike, std::size_t lag) {
  const double before = alike[lag - 1];
  const double here = alike[lag];
  const double after = alike[lag + 1];
  if (here <= before || here < after) return std::nullopt;
  const double offset = (before - after) / (2 * (before - 2 * here + after));
  return Peak{static_cast<double>(lag) + offset, here - (before - after) * offset / 4};
}

/// Small shifts are alike whatever the period is, up to the first that is the opposite.
std::vector<Peak> peaksOf(const std::vector<double>& alike) {
  const auto opposite = std::ranges::find_if(alike, [](double each) { return each < 0; });
  std::vector<Peak> peaks;
  for (auto lag = static_cast<std::size_t>(opposite - alike.begin()); lag <= kLastLag; ++lag)
    if (const auto peak = peakAt(alike, lag)) peaks.push_back(*peak);
  return peaks;
}

/// Multiples of the period are alike as well: it is the first shift that is nearly as good as the
/// best.
std::optional<double> periodOf(const std::vector<double>& alike) {
  const std::vector<Peak> peaks = peaksOf(alike);
  const auto best = std::ranges::max_element(peaks, {}, &Peak::alike);
  if (best == peaks.end() || best->alike < kClearNote) return std::nullopt;
  const auto isNearlyBest = [&](const Peak& peak) {
    return peak.alike >= kNearlyBest * best->alike;
  };
  return std::ranges::find_if(peaks, isNearlyBest)->lag;
}

}  // namespace

void NoteCutter::add(std::span<const std::int16_t> samples) {
  for (const std::int16_t sample : samples) {
    const double value = sample / kFullScale;
    m_energy += value * value;
    if (++m_count < kFrame) continue;
    m_levels.push_back(static_cast<float>(std::sqrt(m_energy / kFrame)));
    m_energy = 0;
    m_count = 0;
  }
}

std::vector<NoteCutter::Stretch> NoteCutter::stretches() const {
  std::vector<Stretch> found;
  if (m_levels.empty()) return found;
  const float threshold = thresholdOf(m_levels);
  for (std::size_t begin = 0; begin < m_levels.size();) {
    if (m_levels[begin] < threshold || m_levels[begin] == 0) {
      ++begin;
      continue;
    }
    const std::size_t end = endOfNote(m_levels, begin, threshold);
    const auto levels = std::span(m_levels).subspan(begin, end - begin);
    if (levels.size() >= kShortestNote)
      found.push_back({begin * kFrame, end * kFrame, std::ranges::max(levels)});
    begin = end;
  }
  return found;
}

std::optional<int> singleNote(std::span<const std::int16_t> stretch) {
  constexpr std::size_t kNeeded = kStep * (kWindow + kLastLag + 2) + kSmoothing;
  if (stretch.size() < kNeeded) return std::nullopt;
  const std::size_t from = std::min(kAfterStroke, stretch.size() - kNeeded);
  const auto period = periodOf(likeness(thinned(stretch.subspan(from, kNeeded))));
  if (!period) return std::nullopt;
  return noteOfHertz(kRate / *period);
}

}  // namespace korvel
