// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/NoteCutter.h"

#include <algorithm>
#include <cmath>

#include "model/Pitch.h"

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

constexpr std::size_t kStep = 2;  // samples that are taken as one
constexpr double kRate = 44100.0 / kStep;
constexpr std::size_t kWindow = 4096;
constexpr std::size_t kLastLag = 340;  // below C#2
constexpr std::size_t kAfterStroke = 2048;
constexpr double kClearNote = 0.8;
constexpr double kNearlyBest = 0.9;
constexpr double kConcertA = 440;
constexpr int kMidiOfConcertA = 69;

std::vector<double> thinned(std::span<const std::int16_t> samples) {
  std::vector<double> thin;
  for (std::size_t i = 0; i + 1 < samples.size(); i += kStep)
    thin.push_back(samples[i] + samples[i + 1]);
  return thin;
}

/// How like itself the sound is when it is shifted, -1..1, by lag.
std::vector<double> likeness(std::span<const double> sound) {
  std::vector<double> alike(kLastLag + 2);
  for (std::size_t lag = 0; lag < alike.size(); ++lag) {
    double common = 0;
    double energy = 0;
    for (std::size_t i = 0; i < kWindow; ++i) {
      common += sound[i] * sound[i + lag];
      energy += sound[i] * sound[i] + sound[i + lag] * sound[i + lag];
    }
    alike[lag] = energy > 0 ? 2 * common / energy : 0;
  }
  return alike;
}

bool isPeak(const std::vector<double>& alike, std::size_t lag) {
  return alike[lag] > alike[lag - 1] && alike[lag] >= alike[lag + 1];
}

/// The top of the parabola through the peak and its neighbours.
double exactLag(const std::vector<double>& alike, std::size_t lag) {
  const double before = alike[lag - 1];
  const double after = alike[lag + 1];
  const double bend = before - 2 * alike[lag] + after;
  return static_cast<double>(lag) + (bend < 0 ? (before - after) / (2 * bend) : 0);
}

/// Small shifts are alike whatever the period is, up to the first that is the opposite. Multiples
/// of the period are alike as well: it is the first shift that is nearly as good as the best.
std::optional<double> periodOf(const std::vector<double>& alike) {
  const auto opposite = std::ranges::find_if(alike, [](double each) { return each < 0; });
  const auto first = static_cast<std::size_t>(opposite - alike.begin());
  double best = 0;
  for (std::size_t lag = first; lag <= kLastLag; ++lag)
    if (isPeak(alike, lag)) best = std::max(best, alike[lag]);
  if (best < kClearNote) return std::nullopt;
  std::size_t lag = first;
  while (!isPeak(alike, lag) || alike[lag] < kNearlyBest * best) ++lag;
  return exactLag(alike, lag);
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
  constexpr std::size_t kNeeded = kStep * (kWindow + kLastLag + 2);
  if (stretch.size() < kNeeded) return std::nullopt;
  const std::size_t from = std::min(kAfterStroke, stretch.size() - kNeeded);
  const auto period = periodOf(likeness(thinned(stretch.subspan(from, kNeeded))));
  if (!period) return std::nullopt;
  const double octaves = std::log2(kRate / *period / kConcertA);
  return kMidiOfConcertA + static_cast<int>(std::lround(octaves * kNotesPerOctave));
}

}  // namespace korvel
