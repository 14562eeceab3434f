// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/ending/EndSurroundings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "precise/judging/Quantile.h"

namespace korvel::precise {
namespace {

/// Frames from the onset of a note to where it is asked which of its partials are its own.
constexpr Frame kSettled = 4;
/// A note that was tracked to end this many frames before another begins is still beside it.
constexpr Frame kJustEnded = 6;
/// Bins from the fundamental to the partials: 36 times the binary logarithm of their numbers.
constexpr std::array<std::size_t, kPartialCount> kPartialBins{0, 36, 57, 72, 84, 93, 101, 108};

/// Falls are looked for within so many frames.
constexpr std::size_t kFallFrames = 7;
/// Keeps logarithms of nothing in bounds.
constexpr float kSmall = 0.03F;

float ratio(float level, float other) { return std::log((level + kSmall) / (other + kSmall)); }

float textureOf(std::span<const Candidate> notes) {
  Frame sounding = 0;
  Frame sum = 0;
  Frame end = 0;
  for (const Candidate& note : notes) {
    sum += note.end - note.onset;
    sounding += std::max<Frame>(0, note.end - std::max(end, note.onset));
    end = std::max(end, note.end);
  }
  return static_cast<float>(sum) / static_cast<float>(std::max<Frame>(1, sounding));
}

}  // namespace

EndSurroundings::EndSurroundings(const Seen& seen, std::span<const Candidate> notes)
    : m_seen(seen),
      m_level(seen.activations),
      m_notes(notes),
      m_firstBeside(notes.size()),
      m_totals(seen.activations.frames()),
      m_texture(textureOf(notes)) {
  for (std::size_t t = 0; t < m_totals.size(); ++t) {
    const auto row = seen.activations.row(t);
    m_totals[t] = std::accumulate(row.begin(), row.end(), 0.0F);
  }
  findFirstBeside();
  m_fall = fallOfTotals();
  m_fallOfNotes = medianOfSteepestFalls();
}

/// What few frames fall by more.
float EndSurroundings::fallOfTotals() const {
  constexpr double kSteepest = 0.03;
  std::vector<float> falls;
  for (std::size_t t = kFallFrames; t < m_totals.size(); ++t)
    falls.push_back(ratio(m_totals[t], m_totals[t - kFallFrames]));
  return quantile(falls, kSteepest);
}

float EndSurroundings::steepestFall(const Candidate& note) const {
  float steepest = 0;
  for (Frame t = note.onset + kSettled; t < note.end; ++t)
    steepest = std::min(steepest, ratio(level(note.pitch, t + static_cast<Frame>(kFallFrames)),
                                        level(note.pitch, t)));
  return steepest;
}

float EndSurroundings::medianOfSteepestFalls() const {
  std::vector<float> falls;
  for (const Candidate& note : m_notes) falls.push_back(steepestFall(note));
  return quantile(falls, 0.5);
}

void EndSurroundings::findFirstBeside() {
  std::vector<std::size_t> sounding;  // in order
  for (std::size_t i = 0; i < m_notes.size(); ++i) {
    std::erase_if(sounding,
                  [&](std::size_t j) { return m_notes[j].end <= m_notes[i].onset - kJustEnded; });
    sounding.push_back(i);
    m_firstBeside[i] = sounding.front();
  }
}

Frame EndSurroundings::inside(Frame frame) const {
  return std::clamp<Frame>(frame, 0, frames() - 1);
}

float EndSurroundings::level(std::size_t pitch, Frame frame) const {
  return m_level(pitch, inside(frame));
}

float EndSurroundings::loudest(Frame frame) const {
  return m_seen.loudest[static_cast<std::size_t>(inside(frame))];
}

float EndSurroundings::total(Frame frame) const {
  return m_totals[static_cast<std::size_t>(inside(frame))];
}

float EndSurroundings::stroke(Frame frame) const {
  const Flux& flux = m_seen.flux;
  return std::max({flux.overall(frame - 1), flux.overall(frame), flux.overall(frame + 1)});
}

float EndSurroundings::partials(std::size_t pitch, const PartialShares& shares,
                                const PartialGroup& group, Frame frame) const {
  const auto row = m_seen.spectra.rowNear(frame);
  float sum = 0;
  float all = 0;
  for (std::size_t i = group.begin; i < group.end; ++i) {
    const std::size_t bin = fundamentalBin(pitch) + kPartialBins[i];
    if (bin + 1 < kBins) sum += shares[i] * std::max({row[bin - 1], row[bin], row[bin + 1]});
    all += shares[i];
  }
  return sum / all;
}

PartialShares EndSurroundings::sharesOf(const Candidate& note) const {
  /// So that there is some of each.
  constexpr float kLeast = 0.02F;
  const auto row = m_seen.activations.rowNear(note.onset + kSettled);
  PartialShares shares = sharesOfPartials(row, note.pitch);
  for (float& share : shares) share += kLeast;
  return shares;
}

}  // namespace korvel::precise
