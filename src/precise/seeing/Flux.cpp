// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/Flux.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "precise/judging/Quantile.h"
#include "precise/seeing/VectorClones.h"

namespace korvel::precise {
namespace {

constexpr double kLevelShare = 0.98;
constexpr double kStrongShare = 0.95;
/// The first bin above 2 kHz.
constexpr std::size_t kHighBins = 59;
/// Silence is divided by this.
constexpr float kLeast = 1e-9F;

/// A partial in semitones above the fundamental, and how much its rise says.
struct Partial {
  std::size_t distance;
  float weight;
};
constexpr std::array kPartials = {Partial{0, 1.0F},  Partial{12, 0.9F}, Partial{19, 0.8F},
                                  Partial{24, 0.7F}, Partial{28, 0.5F}, Partial{31, 0.5F},
                                  Partial{34, 0.4F}, Partial{36, 0.4F}};

KORVEL_VECTOR_CLONES
void takeRoots(const float* values, float* roots) {
  for (std::size_t b = 0; b < kOnsetBins; ++b) roots[b] = std::sqrt(values[b]);
}

/// How far `next` lies above both frames before.
KORVEL_VECTOR_CLONES
void takeRises(const float* before, const float* between, const float* next, float* rises) {
  for (std::size_t b = 0; b < kOnsetBins; ++b) {
    const float level = before[b] > between[b] ? before[b] : between[b];
    rises[b] = next[b] > level ? next[b] - level : 0;
  }
}

}  // namespace

Flux::Flux(std::size_t frames) : m_rises(frames, kOnsetBins) {
  m_loudest.reserve(frames);
  m_totals.reserve(frames);
}

void Flux::add(const OnsetRow& magnitudes) {
  m_loudest.push_back(std::ranges::max(magnitudes));
  std::rotate(m_recent.begin(), m_recent.begin() + 1, m_recent.end());
  takeRoots(magnitudes.data(), m_recent[3].data());
  const std::size_t frame = m_loudest.size() - 1;
  if (frame == 0) return;
  const auto rises = m_rises.row(frame - 1);
  takeRises(m_recent[0].data(), m_recent[1].data(), m_recent[3].data(), rises.data());
  m_totals.push_back(std::accumulate(rises.begin(), rises.end(), 0.0F));
}

void Flux::settle(Earlier& earlier) {
  if (m_rises.frames() == 0) return;
  std::ranges::fill(m_rises.row(m_rises.frames() - 1), 0.0F);
  m_totals.push_back(0);
  std::vector<float> loudest = earlier.loudest.join(m_loudest);
  m_level = std::max(std::sqrt(quantile(loudest, kLevelShare)), kLeast);
  std::vector<float> totals = earlier.totals.join(m_totals);
  m_strongTotal = std::max(quantile(totals, kStrongShare), kLeast);
  m_loudest = {};
}

bool Flux::contains(Frame frame) const {
  return frame >= 0 && frame < static_cast<Frame>(m_rises.frames());
}

float Flux::of(std::size_t pitch, Frame frame) const {
  if (!contains(frame)) return 0;
  const auto rises = m_rises.row(static_cast<std::size_t>(frame));
  float sum = 0;
  for (const Partial& partial : kPartials) {
    const std::size_t bin = pitch + 1 + partial.distance;
    if (bin < kOnsetBins) sum += partial.weight * rises[bin];
  }
  return sum / m_level;
}

float Flux::at(std::size_t bin, Frame frame) const {
  if (!contains(frame) || bin >= kOnsetBins) return 0;
  return m_rises.row(static_cast<std::size_t>(frame))[bin] / m_level;
}

float Flux::strongest(Frame frame) const {
  if (!contains(frame)) return 0;
  return std::ranges::max(m_rises.row(static_cast<std::size_t>(frame))) / m_level;
}

float Flux::high(Frame frame) const {
  if (!contains(frame)) return 0;
  const auto rises = m_rises.row(static_cast<std::size_t>(frame)).subspan(kHighBins);
  return std::accumulate(rises.begin(), rises.end(), 0.0F) / m_level;
}

float Flux::overall(Frame frame) const {
  return contains(frame) ? m_totals[static_cast<std::size_t>(frame)] / m_strongTotal : 0;
}

}  // namespace korvel::precise
