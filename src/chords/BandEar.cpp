// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/BandEar.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvel::chords {
namespace {

/// About half a minute.
constexpr std::size_t kMostWaiting = 640;
/// Below 77 Hz.
constexpr std::size_t kBinsOfLow = 36;
constexpr float kCompression = 0.3F;

/// How much a tone belongs to the treble and to the bass, by its MIDI number.
float trebleOf(int tone) {
  return std::clamp(static_cast<float>(tone - 43) / 9, 0.0F, 1.0F) *
         std::clamp(static_cast<float>(93 - tone) / 17, 0.0F, 1.0F);
}
float bassOf(int tone) {
  return std::clamp(static_cast<float>(tone - 26) / 3, 0.0F, 1.0F) *
         std::clamp(static_cast<float>(56 - tone) / 10, 0.0F, 1.0F);
}

}  // namespace

/// Silence lies before the first sample, so that frame 0 is centred there.
BandEar::BandEar(bool hearsVoices)
    : m_hearsVoices(hearsVoices), m_samples(LogSpectrum::kWindow / 2) {
  m_sound.frameSeconds = kHopSeconds;
}

void BandEar::add(std::span<const float> samples) {
  m_new.clear();
  m_quarter.add(samples, m_new);
  m_all += m_new.size();
  m_strokes.add(m_new);
  m_samples.insert(m_samples.end(), m_new.begin(), m_new.end());
  look();
}

void BandEar::look() {
  std::size_t from = 0;
  LogSpectrum::Pair rows;
  for (; from + kHop + LogSpectrum::kWindow <= m_samples.size(); from += 2 * kHop) {
    const std::span<const float> rest = std::span(m_samples).subspan(from);
    m_spectrum.of(rest.first(LogSpectrum::kWindow), rest.subspan(kHop, LogSpectrum::kWindow), rows);
    for (const LogRow& row : rows) see(row);
  }
  m_samples.erase(m_samples.begin(), m_samples.begin() + static_cast<std::ptrdiff_t>(from));
}

void BandEar::see(const LogRow& row) {
  m_drums.add(row);
  if (++m_seen > DrumFilter::kDelay) keepMiddle();
}

void BandEar::keepMiddle() {
  m_drums.middle(m_waiting.emplace_back());
  m_detuning.add(m_waiting.back().tones);
  if (m_waiting.size() == kMostWaiting) listenToWaiting();
}

void BandEar::listenToWaiting() {
  for (DrumFilter::Row& row : m_waiting) listenTo(row);
  m_waiting.clear();
}

void BandEar::listenTo(DrumFilter::Row& row) {
  SoundFrame& frame =
      m_sound.frames.emplace_back(SoundFrame{.level = row.level, .percussive = row.percussive});
  float low = 0, all = 0;
  for (std::size_t bin = 0; bin < kBins; ++bin) {
    all += row.tones[bin] * row.tones[bin];
    if (bin < kBinsOfLow) low += row.tones[bin] * row.tones[bin];
  }
  frame.low = all > 0 ? low / all : 0;
  Detuning::mend(row.tones, m_detuning.cents());
  LogRow whitened = row.tones;
  m_whitening.apply(whitened);
  Tones tones;
  m_solver.solve(whitened, tones);
  if (m_hearsVoices) m_sound.tones.push_back(toneFrameOf(row.tones, tones));
  for (std::size_t i = 0; i < kTones; ++i) {
    const int tone = kLowestTone + static_cast<int>(i);
    const float strength = std::pow(tones[i], kCompression);
    const auto at = static_cast<std::size_t>(tone) % kClasses;
    frame.treble[at] += trebleOf(tone) * strength;
    frame.bass[at] += bassOf(tone) * strength;
  }
}

BandSound BandEar::take() {
  std::vector<float> last;
  m_quarter.finish(last);
  m_all += last.size();
  last.resize(last.size() + LogSpectrum::kWindow + 2 * kHop);
  m_strokes.add(last);
  m_samples.insert(m_samples.end(), last.begin(), last.end());
  look();
  const std::size_t frames = m_all / kHop + 1;
  for (std::size_t i = 0; i < DrumFilter::kDelay; ++i) see({});
  listenToWaiting();
  m_sound.frames.resize(std::min(frames, m_sound.frames.size()));
  if (m_hearsVoices) m_sound.tones.resize(m_sound.frames.size());
  m_sound.tuningOffset = m_detuning.cents();
  m_sound.strokes = m_strokes.take();
  return std::move(m_sound);
}

}  // namespace korvel::chords
