// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Tracker.h"

#include <algorithm>
#include <array>

#include "precise/seeing/VectorClones.h"
#include "precise/solving/Smoothed.h"

namespace korvel::precise {
namespace {

/// Zeros on both sides of a curve, as far as windows of frames reach.
constexpr Frame kMargin = 16;
/// The peak is the largest level in so many frames from the start on.
constexpr Frame kPeakFrames = 8;
/// A note begins where its level comes near the peak, ...
constexpr float kNearPeak = 0.7F;
constexpr Frame kBackFrames = 6;
/// ... or in that neighbourhood, where the flux is largest; distance counts against it.
constexpr Frame kRefineFrames = 4;
constexpr float kDistancePenalty = 0.06F;
/// It ends below this level and below this share of its peak: 46 dB of amplitude.
constexpr float kEndLevel = 0.15F;
constexpr float kEndShare = 0.12F;
/// For this long a note does not end.
constexpr Frame kSafeFrames = 2;
/// A rise is measured between this many frames before and after, ...
constexpr Frame kRiseSide = 5;
/// ... and is the largest of this neighbourhood.
constexpr Frame kRiseNeighbours = 4;
/// The dip of a string that is struck again lies within these frames of the strike, and it has
/// bounced back within those after.
constexpr Frame kDipBefore = 4;
constexpr Frame kDipAfter = 3;
constexpr Frame kBounceFrames = 7;

/// Tables are read so many rows at a time.
constexpr std::size_t kFramesOfSlice = 4096;
/// Progress: the shares of the work that are spent on finding the loudest pitch of all frames, and
/// on loading the curves of some pitches.
constexpr double kShareOfLoudest = 0.2;
constexpr double kShareOfLoading = 0.08;

double share(std::size_t done, std::size_t all) {
  return static_cast<double>(done) / static_cast<double>(all);
}

constexpr std::array<float, kPitches> kSilence{};

KORVEL_VECTOR_CLONES
float loudestMedian(const float* before, const float* here, const float* after) {
  float largest = 0;
  for (std::size_t p = 0; p < kPitches; ++p) {
    const float value = median(before[p], here[p], after[p]);
    largest = value > largest ? value : largest;
  }
  return largest;
}

}  // namespace

Tracker::Tracker(const FrameTable& activations, const Flux& flux, const TrackerSettings& settings)
    : m_activations(activations),
      m_flux(flux),
      m_settings(settings),
      m_loudest(activations.frames()),
      m_curves(kTogether * (activations.frames() + 2 * kMargin)) {}

platform::Slices Tracker::findLoudest() {
  const std::size_t frames = m_activations.frames();
  for (std::size_t t = 0; t < frames; ++t) {
    const float* before = t > 0 ? m_activations.row(t - 1).data() : kSilence.data();
    const float* after = t + 1 < frames ? m_activations.row(t + 1).data() : kSilence.data();
    m_loudest[t] = loudestMedian(before, m_activations.row(t).data(), after);
    if (t % kFramesOfSlice == 0) co_yield share(t, frames);
  }
}

platform::Slices Tracker::loadCurves(std::size_t first) {
  const std::size_t frames = m_activations.frames();
  const std::size_t length = frames + 2 * kMargin;
  for (std::size_t t = 0; t < frames; ++t) {
    const float* here = m_activations.row(t).data() + first;
    const float* before = t > 0 ? m_activations.row(t - 1).data() + first : kSilence.data();
    const float* after = t + 1 < frames ? m_activations.row(t + 1).data() + first : kSilence.data();
    for (std::size_t p = 0; p < kTogether; ++p)
      m_curves[p * length + kMargin + t] = median(before[p], here[p], after[p]);
    if (t % kFramesOfSlice == 0) co_yield share(t, frames);
  }
}

/// Makes a pitch's curve, which is loaded, the one that is looked at.
void Tracker::choose(std::size_t pitch) {
  const std::size_t length = m_activations.frames() + 2 * kMargin;
  m_pitch = pitch;
  m_curve = m_curves.data() + pitch % kTogether * length + kMargin;
}

float Tracker::level(Frame frame) const { return m_curve[frame]; }

float Tracker::highest(Frame first, Frame end) const {
  float largest = 0;
  for (Frame t = first; t < end; ++t) largest = std::max(largest, level(t));
  return largest;
}

bool Tracker::starts(Frame frame) const {
  const float loudest = m_loudest[static_cast<std::size_t>(frame)];
  return level(frame) > m_settings.start && level(frame) > m_settings.startShare * loudest;
}

bool Tracker::ends(const Candidate& note, Frame frame) const {
  const float here = level(frame);
  const float loudest = m_loudest[static_cast<std::size_t>(frame)];
  return frame > note.onset + kSafeFrames &&
         (here < kEndLevel || here < kEndShare * note.peak || here < m_settings.endShare * loudest);
}

bool Tracker::rises(const Candidate& note, Frame frame) const {
  if (frame < note.onset + m_settings.riseGap) return false;
  const auto rise = [this](Frame t) { return level(t + kRiseSide) - level(t - kRiseSide); };
  const float here = rise(frame);
  if (here <= m_settings.rise || here <= m_settings.riseShare * level(frame - kRiseSide))
    return false;
  for (Frame t = frame - kRiseNeighbours; t <= frame + kRiseNeighbours; ++t)
    if (rise(t) > here) return false;
  return true;
}

/// A note that begins where the flux of its pitch is largest.
Candidate Tracker::noteAt(Frame middle, Frame earliest) const {
  Candidate note{.pitch = m_pitch, .onset = std::max(middle, earliest)};
  float best = -1;
  for (Frame t = std::max(earliest, middle - kRefineFrames); t <= middle + kRefineFrames; ++t) {
    const float flux = m_flux.of(m_pitch, t);
    const auto distance = static_cast<float>(t < middle ? middle - t : t - middle);
    const float value = flux * (1 - kDistancePenalty * distance);
    if (value <= best) continue;
    best = value;
    note.onset = t;
    note.flux = flux;
  }
  return note;
}

/// Whether a note begins near the frame, at which its pitch has become active.
std::optional<Candidate> Tracker::begin(Frame frame, Frame earliest) const {
  const float peak = highest(frame, frame + kPeakFrames);
  Frame middle = std::max(earliest, frame - kBackFrames);
  while (level(middle) < kNearPeak * peak) ++middle;
  Candidate note = noteAt(middle, earliest);
  note.peak = peak;
  if (note.flux < m_settings.startFlux * peak) return std::nullopt;
  return note;
}

/// Whether the flux has a peak at which the level bounces back from a dip: a finger or the pick
/// stops a string before it strikes it again.
bool Tracker::isStruck(const Candidate& note, Frame frame) const {
  if (m_settings.strikeFlux <= 0 || frame < note.onset + m_settings.riseGap) return false;
  const float flux = m_flux.of(m_pitch, frame);
  if (flux <= m_settings.strikeFlux) return false;
  for (Frame t = frame - kRiseNeighbours; t <= frame + kRiseNeighbours; ++t)
    if (m_flux.of(m_pitch, t) > flux) return false;
  float low = level(frame);
  for (Frame t = frame - kDipBefore; t <= frame + kDipAfter; ++t) low = std::min(low, level(t));
  return highest(frame + 1, frame + kBounceFrames) - low > m_settings.strikeRise;
}

std::optional<Candidate> Tracker::beginAgain(const Candidate& note, Frame frame) const {
  Candidate again{.pitch = m_pitch, .onset = frame, .flux = m_flux.of(m_pitch, frame)};
  if (!isStruck(note, frame)) {
    if (!rises(note, frame)) return std::nullopt;
    again = noteAt(frame, note.onset + 1);
    if (again.flux <= m_settings.riseFlux * level(frame + kRiseSide)) return std::nullopt;
  }
  if (again.onset - note.onset < m_settings.shortest) return std::nullopt;
  again.reattack = true;
  again.peak = highest(again.onset, again.onset + kPeakFrames);
  return again;
}

void Tracker::keep(Candidate note, Frame end, std::vector<Candidate>& found) const {
  note.end = end;
  if (end - note.onset >= m_settings.shortest) found.push_back(note);
}

platform::Slices Tracker::track(std::vector<Candidate>& found) {
  static_assert(kPitches % kTogether == 0);
  platform::Slices preparing = findLoudest();
  while (preparing.next()) co_yield preparing.done() * kShareOfLoudest;
  double done = kShareOfLoudest;
  for (std::size_t pitch = 0; pitch < kPitches; ++pitch) {
    if (pitch % kTogether == 0) {
      preparing = loadCurves(pitch);
      while (preparing.next()) co_yield done + preparing.done() * kShareOfLoading;
      done += kShareOfLoading;
    }
    choose(pitch);
    trackChosen(found);
    done += (1 - kShareOfLoudest) / kPitches - kShareOfLoading / kTogether;
    co_yield done;
  }
}

void Tracker::trackChosen(std::vector<Candidate>& found) const {
  const auto frames = static_cast<Frame>(m_activations.frames());
  std::optional<Candidate> note;
  Frame earliest = 0;
  for (Frame t = 0; t < frames; ++t) {
    if (!note) {
      if (starts(t)) note = begin(t, earliest);
      continue;
    }
    if (t <= note->onset + kPeakFrames) note->peak = std::max(note->peak, level(t));
    if (ends(*note, t)) {
      keep(*note, t, found);
      earliest = t;
      note.reset();
    } else if (const auto again = beginAgain(*note, t)) {
      keep(*note, again->onset, found);
      note = again;
    }
  }
  if (note) keep(*note, frames, found);
}

}  // namespace korvel::precise
