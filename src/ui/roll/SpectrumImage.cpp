// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/SpectrumImage.h"

#include <algorithm>
#include <cmath>

namespace korvel::ui {
namespace {

constexpr double kDecibelsShown = 54;
constexpr double kMostInk = 0.62;
/// Above 1, so that what is faint stays in the background.
constexpr double kContrast = 1.4;

/// Shares of two neighbours are counted in so many parts.
constexpr int kParts = 256;

struct Between {
  std::size_t first;
  int partsOfNext;
};

Between between(double place, std::size_t count) {
  const double within = std::clamp(place, 0.0, static_cast<double>(count - 1));
  const auto first = std::min(static_cast<std::size_t>(within), count - 2);
  return {first, static_cast<int>((within - static_cast<double>(first)) * kParts)};
}

int mixed(int first, int next, int partsOfNext) {
  return (first * (kParts - partsOfNext) + next * partsOfNext) / kParts;
}

}  // namespace

SpectrumImage::SpectrumImage(const QColor& ink, int loudShade) {
  constexpr double kShades = kDecibelsShown / SoundTile::kDecibelsOfShade;
  for (int shade = 0; shade < 256; ++shade) {
    const double share = std::clamp(1 + (shade - loudShade) / kShades, 0.0, 1.0);
    QColor color = ink;
    color.setAlphaF(static_cast<float>(kMostInk * std::pow(share, kContrast)));
    m_inks.push_back(qPremultiply(color.rgba()));
  }
}

QImage SpectrumImage::painted(const SoundPicture::Columns& columns, std::span<const double> places,
                              std::span<const double> bins) const {
  QImage image(static_cast<int>(places.size()), static_cast<int>(bins.size()),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  if (image.isNull() || columns.shades.size() < 2) return image;
  const auto [lowest, highest] = std::ranges::minmax(bins);
  const std::size_t first = between(lowest, SoundTile::kBins).first;
  const std::size_t count = between(highest, SoundTile::kBins).first + 2 - first;
  std::vector<std::uint8_t> rows;
  gather(columns, places, first, rows, count);
  const auto width = places.size();
  for (std::size_t y = 0; y < bins.size(); ++y) {
    if (bins[y] < 0 || bins[y] > SoundTile::kBins - 1) continue;
    const auto [bin, parts] = between(bins[y], SoundTile::kBins);
    const std::uint8_t* row = &rows[(bin - first) * width];
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(static_cast<int>(y)));
    for (std::size_t x = 0; x < width; ++x)
      line[x] = m_inks[static_cast<std::size_t>(mixed(row[x], row[x + width], parts))];
  }
  return image;
}

/// For each bin in turn the shades of all columns of the image.
void SpectrumImage::gather(const SoundPicture::Columns& columns, std::span<const double> places,
                           std::size_t firstBin, std::vector<std::uint8_t>& rows,
                           std::size_t count) const {
  const std::size_t width = places.size();
  rows.assign(width * count, 0);
  for (std::size_t x = 0; x < width; ++x) {
    const auto [column, parts] = between(places[x], columns.shades.size());
    const std::uint8_t* first = columns.shades[column];
    const std::uint8_t* next = columns.shades[column + 1];
    if (!first && !next) continue;
    first = (first ? first : next) + firstBin;
    next = next ? next + firstBin : first;
    for (std::size_t bin = 0; bin < count; ++bin)
      rows[bin * width + x] = static_cast<std::uint8_t>(mixed(first[bin], next[bin], parts));
  }
}

}  // namespace korvel::ui
