// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/spectrum/QBFrequencyMatrix.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "analysis/spectrum/QBFrequencyMapper.h"
#include "model/instruments/QBTuning.h"
#include "music/Neck.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr int kHighestString = 5;
constexpr int kFretsOfHighestString = 12;
constexpr double kShareOfSemitone = 0.075;
constexpr int kFirstBin = 7;
constexpr int kLastBin = 135;
constexpr std::size_t kBigBins = 223;

/// Where the tones of the mapper's coarse table stand, in their order, in a table of fine bins.
constexpr auto kBigPlaces = std::to_array<std::size_t>(
    {0,  2,  4,  6,  9,  11, 13,  16,  19,  21,  25,  28,  31,  35,  39,  43,  47,  52, 57,
     62, 67, 73, 79, 86, 92, 100, 107, 116, 124, 133, 143, 153, 164, 176, 188, 201, 215});

/// Fret 4 of string 3 sounds as string 4 does open, which plays it.
constexpr std::array kFretsOfSeeded{5, 5, 5, 4, 5, kFretsOfHighestString};

bool isSeeded(const OpenPitches& open) { return open == kStandardPitches || open == kDropDPitches; }

/// How many frets of a string are searched, from the open string on.
int fretsSearched(const OpenPitches& open, int string) {
  const auto at = static_cast<std::size_t>(string);
  if (isSeeded(open) || string == kHighestString) return kFretsOfSeeded.at(at);
  return std::clamp(open.at(at + 1) - open.at(at), 0, kFretsOfHighestString);
}

// Bounds in single precision, from products in double precision.
bool isNear(float f, float tone) {
  const float below = tone - tone / kSemitone;
  const float above = tone * kSemitone - tone;
  const auto lower = static_cast<float>(tone - kShareOfSemitone * below);
  const auto upper = static_cast<float>(tone + kShareOfSemitone * above);
  return lower < f && f < upper;
}

QBFloatMatrix positionOf(int string, int fret) {
  QBFloatMatrix position;
  position.setFloat(1, 0, static_cast<float>(fret));
  position.setFloat(2, 0, static_cast<float>(string));
  return position;
}

std::vector<float> playableBins(QBTuning* tuning) {
  std::vector<float> table;
  for (int bin = kFirstBin; bin <= kLastBin; ++bin) {
    const float f = static_cast<float>(bin) * QBFrequencyMapper::kBinWidth;
    table.push_back(QBFrequencyMatrix::infoByFrequencyComputed(f, tuning) ? f : 0.0F);
  }
  return table;
}

std::array<float, kBigBins> finePlaces() {
  std::array<float, kBigBins> table{};
  std::size_t next = 0;
  for (const float f : QBFrequencyMapper::bigD(nullptr))
    if (f != 0.0F) table[kBigPlaces.at(next++)] = f;
  return table;
}

}  // namespace

std::optional<QBFloatMatrix> QBFrequencyMatrix::infoByFrequencyComputed(float f, QBTuning* tuning) {
  if (!tuning) return std::nullopt;
  const OpenPitches& open = tuning->openStrings().pitches();
  for (int string = 0; string < kStrings; ++string)
    for (int fret = 0; fret < fretsSearched(open, string); ++fret)
      if (isNear(f, tuning->computeFrequency(string, fret))) return positionOf(string, fret);
  return std::nullopt;
}

// Keeps the answer for the tuning of the first call, as intended: its readers
// hold on to the table.
std::span<const float> QBFrequencyMatrix::buildSpektrum(QBTuning* tuning) {
  static const std::vector<float> table = playableBins(tuning);
  return table;
}

std::span<const float> QBFrequencyMatrix::buildSpectrumBig() {
  static const std::array<float, kBigBins> table = finePlaces();
  return table;
}

std::span<const float> QBFrequencyMatrix::buildSpectrumSmall() {
  return QBFrequencyMapper::bigD(nullptr);
}

}  // namespace korvel
