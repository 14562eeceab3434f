// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/FrontEnd.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace korvel::precise {
namespace {

/// A window and its transform, in samples at that rate.
struct Shape {
  std::size_t window;
  std::size_t transform;
  double rate;
};
/// 186, 93 and 46 ms. Semitones of the low strings need the first, and a transform twice as long
/// as its window, whose bins lie close enough for their triangles.
constexpr Shape kLong{512, 1024, kRate / Recording::kLowRateStep};
constexpr Shape kMiddle{2048, 2048, kRate};
constexpr Shape kShort{1024, 1024, kRate};

/// Between these frequencies in Hz the long window gives way to the middle one.
constexpr double kCrossfadeBegin = 420;
constexpr double kCrossfadeEnd = 780;

/// Half the main lobe of a Hann window reaches two bins; narrower triangles would miss lines.
constexpr double kLeastHalfWidth = 1.5;

std::vector<double> centres(std::size_t count, std::size_t binsPerSemitone, double tuningOffset) {
  std::vector<double> found(count);
  for (std::size_t k = 0; k < count; ++k)
    found[k] = binCentre(k, binsPerSemitone) * std::exp2(tuningOffset / 1200);
  return found;
}

Triangles triangles(std::span<const double> centres, const Shape& shape) {
  const double ratio = std::exp2(1.0 / (12 * kBinsPerSemitone));
  const double bandwidth = shape.rate / static_cast<double>(shape.window);
  return {centres,
          ratio,
          {shape.rate / static_cast<double>(shape.transform), kLeastHalfWidth * bandwidth}};
}

std::size_t countBelow(std::span<const double> centres, double frequency) {
  return static_cast<std::size_t>(std::ranges::lower_bound(centres, frequency) - centres.begin());
}

float middleShare(double frequency) {
  const double share = (frequency - kCrossfadeBegin) / (kCrossfadeEnd - kCrossfadeBegin);
  return static_cast<float>(std::clamp(share, 0.0, 1.0));
}

}  // namespace

FrontEnd::FrontEnd(double tuningOffset)
    : FrontEnd(centres(kBins, kBinsPerSemitone, tuningOffset),
               centres(kOnsetBins, 1, tuningOffset)) {}

FrontEnd::FrontEnd(std::span<const double> centres, std::span<const double> onsetCentres)
    : m_longBins(triangles(centres.first(countBelow(centres, kCrossfadeEnd)), kLong)),
      m_middleBins(triangles(centres.subspan(countBelow(centres, kCrossfadeBegin)), kMiddle)),
      m_shortBins(triangles(onsetCentres, kShort)),
      m_steadiness(triangles(onsetCentres, kMiddle)),
      m_longSpectrum(kLong.window, kLong.transform, m_longBins.reach()),
      m_middleSpectrum(kMiddle.window, kMiddle.transform,
                       std::max(m_middleBins.reach(), m_steadiness.reach())),
      m_shortSpectrum(kShort.window, kShort.transform, m_shortBins.reach()) {
  std::ranges::transform(centres, m_middleShare.begin(), middleShare);
}

void FrontEnd::look(const Recording& recording, Frame frame) {
  const auto step = static_cast<Frame>(kHop);
  const Frame centre = frame * step;
  const Frame lowStep = step / Recording::kLowRateStep;
  const auto longLines =
      m_longSpectrum.around(recording.low(), frame * lowStep, (frame + 1) * lowStep);
  const auto middleLines = m_middleSpectrum.around(recording.full(), centre, centre + step);
  const auto shortLines = m_shortSpectrum.around(recording.full(), centre, centre + step);
  for (std::size_t i = 0; i < m_views.size(); ++i) {
    mix(longLines[i], middleLines[i], m_views[i].bins);
    m_shortBins.apply(shortLines[i], m_views[i].onsets);
    m_steadiness.look(m_middleSpectrum.parts()[i], middleLines[i], m_views[i].turns);
  }
}

void FrontEnd::mix(std::span<const float> longLines, std::span<const float> middleLines,
                   BinRow& bins) {
  m_longBins.apply(longLines, std::span(m_longMeans).first(m_longBins.count()));
  m_middleBins.apply(middleLines, std::span(m_middleMeans).last(m_middleBins.count()));
  for (std::size_t k = 0; k < kBins; ++k)
    bins[k] = m_longMeans[k] + m_middleShare[k] * (m_middleMeans[k] - m_longMeans[k]);
}

}  // namespace korvel::precise
