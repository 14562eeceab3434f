// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/judging/BeatEvidence.h"

#include <algorithm>
#include <cmath>

namespace korvel::chords {
namespace {

constexpr double kLoudShare = 0.9;
/// 50 dB below what is loud in the recording.
constexpr float kSilence = 1e-5F;

float loudLevel(const std::vector<SoundFrame>& frames) {
  std::vector<float> levels;
  for (const SoundFrame& frame : frames) levels.push_back(frame.level);
  if (levels.empty()) return 0;
  const auto at = levels.begin() +
                  static_cast<std::ptrdiff_t>(kLoudShare * static_cast<double>(levels.size() - 1));
  std::ranges::nth_element(levels, at);
  return *at;
}

/// Of the power of some frames.
float percussiveShare(std::span<const SoundFrame> frames) {
  float power = 0, drums = 0;
  for (const SoundFrame& frame : frames) {
    power += frame.level;
    drums += frame.level * frame.percussive;
  }
  return power > 0 ? drums / power : 0;
}

void addTo(Chroma& sum, const Chroma& part) {
  for (std::size_t i = 0; i < kClasses; ++i) sum[i] += part[i];
}

}  // namespace

std::vector<BeatEvidence> evidenceOf(const BandSound& sound, std::span<const double> times) {
  std::vector<BeatEvidence> beats(times.empty() ? 0 : times.size() - 1);
  const float silence = kSilence * loudLevel(sound.frames);
  const float usual = percussiveShare(sound.frames);
  for (std::size_t i = 0; i < beats.size(); ++i) {
    BeatEvidence& beat = beats[i];
    beat.seconds = times[i + 1] - times[i];
    const auto frameAt = [&](double time) {
      const double frame = std::ceil(time / sound.frameSeconds);
      return static_cast<std::size_t>(
          std::clamp(frame, 0.0, static_cast<double>(sound.frames.size())));
    };
    const std::size_t from = frameAt(times[i]), to = frameAt(times[i + 1]);
    float loudest = 0;
    for (std::size_t t = from; t < to; ++t) {
      addTo(beat.treble, sound.frames[t].treble);
      addTo(beat.bass, sound.frames[t].bass);
      loudest = std::max(loudest, sound.frames[t].level);
    }
    beat.isSilent = loudest <= silence;
    const std::span<const SoundFrame> frames(sound.frames);
    beat.percussive =
        (usual + percussiveShare(frames.subspan(from, std::max(from, to) - from))) / 2;
    const float count = static_cast<float>(std::max<std::size_t>(to - from, 1));
    for (std::size_t k = 0; k < kClasses; ++k) {
      beat.treble[k] /= count;
      beat.bass[k] /= count;
    }
  }
  return beats;
}

}  // namespace korvel::chords
