// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/voices/VoiceEvidence.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvel::chords {
namespace {

using Strengths = std::array<float, kTones>;

/// The mean of what sounds from a place to the next one.
struct PlaceSound {
  Strengths tones{};
  Strengths peaks{};
  float level = 0;
  float stroke = 0;
  float lowStroke = 0;
};

/// What is strong in the whole recording.
struct StrongSound {
  float tone = 0;
  float peak = 0;
  float level = 0;
};

constexpr float kAlmostNothing = 1e-9F;
constexpr double kShareBelowStrong = 0.9;

float strongOf(std::vector<float> values) {
  const auto at = values.begin() + static_cast<std::ptrdiff_t>(
                                       kShareBelowStrong * static_cast<double>(values.size() - 1));
  std::ranges::nth_element(values, at);
  return *at + kAlmostNothing;
}

void addTo(PlaceSound& sum, const ToneFrame& frame, float level, float share) {
  for (std::size_t i = 0; i < kTones; ++i) {
    sum.tones[i] += share * static_cast<float>(frame.tones[i]) / ToneFrame::kStepsOfOne;
    sum.peaks[i] += share * static_cast<float>(frame.peaks[i]) / ToneFrame::kStepsOfOne;
  }
  sum.level += share * std::sqrt(level);
}

/// A frame stands for the time around its middle, as long as one is to the next.
PlaceSound soundBetween(const BandSound& sound, double from, double to) {
  const double first = from / sound.frameSeconds + 0.5, last = to / sound.frameSeconds + 0.5;
  const double length = std::max(last - first, 1e-3);
  PlaceSound sum;
  const auto begin = static_cast<std::size_t>(std::max(first, 0.0));
  for (std::size_t t = begin; t < sound.tones.size() && static_cast<double>(t) < last; ++t) {
    const double at = static_cast<double>(t);
    const double part = std::min(last, at + 1) - std::max(first, at);
    addTo(sum, sound.tones[t], sound.frames[t].level, static_cast<float>(part / length));
  }
  return sum;
}

/// Each stroke belongs to the place next to it.
void addStrokes(std::span<const Stroke> strokes, std::span<const VoicePlace> places,
                std::vector<PlaceSound>& sounds) {
  constexpr double kNearStroke = 0.07;
  constexpr float kMostStroke = 2;
  for (const Stroke& stroke : strokes) {
    auto after = std::ranges::lower_bound(places, stroke.time, {}, &VoicePlace::time);
    if (after != places.begin() &&
        (after == places.end() || stroke.time - std::prev(after)->time < after->time - stroke.time))
      --after;
    if (std::abs(after->time - stroke.time) >= kNearStroke) continue;
    PlaceSound& sound = sounds[static_cast<std::size_t>(after - places.begin())];
    sound.stroke = std::min(std::max(sound.stroke, stroke.strength), kMostStroke);
    sound.lowStroke = std::min(std::max(sound.lowStroke, stroke.low), kMostStroke);
  }
}

std::vector<PlaceSound> soundsOf(const BandSound& sound, std::span<const VoicePlace> places,
                                 double end) {
  std::vector<PlaceSound> sounds;
  for (std::size_t i = 0; i < places.size(); ++i)
    sounds.push_back(
        soundBetween(sound, places[i].time, i + 1 < places.size() ? places[i + 1].time : end));
  addStrokes(sound.strokes, places, sounds);
  return sounds;
}

StrongSound strongOf(std::span<const PlaceSound> sounds) {
  std::vector<float> tones, peaks, levels;
  for (const PlaceSound& each : sounds) {
    tones.push_back(std::ranges::max(each.tones));
    peaks.push_back(std::ranges::max(each.peaks));
    levels.push_back(each.level);
  }
  return {strongOf(std::move(tones)), strongOf(std::move(peaks)), strongOf(std::move(levels))};
}

/// Judges the tones of one place.
class PlaceJudge {
 public:
  PlaceJudge(const PlaceSound& sound, const StrongSound& strong, const VoiceWeights& weights)
      : m_sound(sound), m_strong(strong), m_weights(weights) {
    constexpr float kLeastTone = 0.05F, kLeastPeak = 0.02F;
    m_strongest =
        *std::max_element(sound.tones.begin() + first(), sound.tones.begin() + last() + 1);
    m_highest = *std::max_element(sound.peaks.begin(), sound.peaks.begin() + last() + 1);
    m_toneScale = 1 / (m_strongest + kLeastTone * strong.tone);
    m_peakScale = 1 / (m_highest + kLeastPeak * strong.peak);
    for (const float each : sound.tones) m_power += each * each * m_toneScale * m_toneScale;
  }

  VoiceEvidence judged(unsigned chord) const {
    VoiceEvidence result;
    float below = 0;
    for (int i = 0; i <= last(); ++i) {
      const float power = tone(i) * tone(i);
      if (i >= first()) result.sounds.push_back(scoreOf(i, m_power - below - power, below, chord));
      below += power;
    }
    result.rests = restScore();
    makeProbabilities(result);
    return result;
  }

 private:
  int first() const { return m_weights.lowest - kLowestTone; }
  int last() const { return m_weights.highest - kLowestTone; }
  static float at(const Strengths& strengths, int tone) {
    const bool isIn = tone >= 0 && tone < static_cast<int>(kTones);
    return isIn ? strengths[static_cast<std::size_t>(tone)] : 0;
  }
  float tone(int i) const { return at(m_sound.tones, i) * m_toneScale; }
  float peak(int i) const { return at(m_sound.peaks, i) * m_peakScale; }

  float scoreOf(int i, float above, float below, unsigned chord) const {
    const SoundWeights& w = m_weights.sound;
    return w.tone * tone(i) + w.toneSquared * tone(i) * tone(i) +
           w.toneOfAll * at(m_sound.tones, i) / m_strong.tone + w.octaveAbove * tone(i + 12) +
           w.octaveBelow * tone(i - 12) + w.fifthAbove * tone(i + 7) +
           w.twelfthAbove * tone(i + 19) + w.twelfthBelow * tone(i - 19) + w.peak * peak(i) +
           w.peakOfAll * at(m_sound.peaks, i) / m_strong.peak +
           w.peakTwoOctavesAbove * peak(i + 24) + w.peakOctaveBelow * peak(i - 12) +
           w.peakFifthAbove * peak(i + 7) +
           w.peakOverNeighbours * (peak(i) - std::max(peak(i - 1), peak(i + 1))) +
           surroundingsScore(i, above, below, chord);
  }

  /// The powers count half, and no more than those of four tones.
  float surroundingsScore(int i, float above, float below, unsigned chord) const {
    constexpr float kMostPower = 4;
    const SoundWeights& w = m_weights.sound;
    const auto middle = static_cast<float>(m_weights.lowest + m_weights.highest) / 2;
    const float height = (static_cast<float>(kLowestTone + i) - middle) / kClasses;
    const bool ofChord = (chord >> (static_cast<unsigned>(kLowestTone + i) % kClasses) & 1U) != 0;
    return (w.above * std::clamp(above, 0.0F, kMostPower) + w.below * std::min(below, kMostPower)) /
               2 +
           (ofChord ? w.ofChord : 0) + w.height * height + w.heightSquared * height * height;
  }

  float restScore() const {
    constexpr float kSomePower = 0.1F;
    const RestWeights& w = m_weights.rest;
    float power = kSomePower;
    for (int i = first(); i <= last(); ++i) power += tone(i) * tone(i);
    return w.always + w.tone * m_strongest / m_strong.tone +
           w.peak *
               *std::max_element(m_sound.peaks.begin() + first(),
                                 m_sound.peaks.begin() + last() + 1) /
               m_strong.peak +
           w.level * m_sound.level / m_strong.level + w.powerOfTones * std::log(power);
  }

  static void makeProbabilities(VoiceEvidence& scores) {
    const float most = std::max(scores.rests, std::ranges::max(scores.sounds));
    float sum = std::exp(scores.rests - most);
    for (const float each : scores.sounds) sum += std::exp(each - most);
    const float all = most + std::log(sum);
    scores.rests -= all;
    for (float& each : scores.sounds) each -= all;
  }

  const PlaceSound& m_sound;
  const StrongSound& m_strong;
  const VoiceWeights& m_weights;
  float m_strongest = 0;  ///< Of the tones of the range.
  float m_highest = 0;    ///< Of the peaks up to the highest of the range.
  float m_toneScale = 1;
  float m_peakScale = 1;
  float m_power = 0;
};

/// At the ends of the recording a place is its own neighbour.
struct Neighbours {
  const PlaceSound& before;
  const PlaceSound& here;
  const PlaceSound& after;
};

float restrikeScore(const Neighbours& around, VoicePlace::Kind kind, std::size_t i,
                    const StrongSound& strong, const RestrikeWeights& w) {
  const auto rise = [i](const Strengths& from, const Strengths& to) { return to[i] - from[i]; };
  const float risen = rise(around.before.tones, around.here.tones) / strong.tone;
  const float peakRisen = rise(around.before.peaks, around.here.peaks) / strong.peak;
  const float rises = rise(around.here.tones, around.after.tones) / strong.tone;
  const float peakRises = rise(around.here.peaks, around.after.peaks) / strong.peak;
  const float place = kind == VoicePlace::Kind::onBeat   ? w.onBeat
                      : kind == VoicePlace::Kind::onHalf ? w.onHalf
                                                         : 0;
  return w.always + w.risen * risen + w.rises * rises + w.peakRisen * peakRisen +
         w.peakRises * peakRises + w.stroke * around.here.stroke +
         w.lowStroke * around.here.lowStroke + place +
         w.toneOfAll * around.here.tones[i] / strong.tone;
}

}  // namespace

std::vector<VoiceEvidence> voiceEvidence(const BandSound& sound, std::span<const VoicePlace> places,
                                         double end, const VoiceWeights& weights) {
  if (places.empty()) return {};
  const std::vector<PlaceSound> sounds = soundsOf(sound, places, end);
  const StrongSound strong = strongOf(sounds);
  std::vector<VoiceEvidence> result;
  for (std::size_t i = 0; i < places.size(); ++i) {
    result.push_back(PlaceJudge(sounds[i], strong, weights).judged(places[i].chord));
    result.back().kind = places[i].kind;
    const Neighbours around{sounds[i > 0 ? i - 1 : i], sounds[i],
                            sounds[std::min(i + 1, places.size() - 1)]};
    for (int tone = weights.lowest; tone <= weights.highest; ++tone)
      result.back().restrikes.push_back(restrikeScore(around, places[i].kind,
                                                      static_cast<std::size_t>(tone - kLowestTone),
                                                      strong, weights.restrike));
  }
  return result;
}

}  // namespace korvel::chords
