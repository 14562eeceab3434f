// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/picture/SoundPicture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/sound/SampleRate.h"

namespace korvel {
namespace {

/// Of 100 loud columns so many reach less.
constexpr std::int64_t kPercentBelow = 95;

std::int64_t tileOf(int level, std::int64_t column) {
  const auto size = static_cast<std::int64_t>(
      level == SoundTile::kSampleLevel ? SoundTile::kSamples : SoundTile::kColumns);
  return column >= 0 ? column / size : -1;
}

// What a store says of a recording may be anything.

std::int64_t columnsOf(double seconds) {
  constexpr double kLongest = 1e6;
  const double samples = seconds > 0 ? std::min(seconds, kLongest) * platform::kSampleRate : 0;
  return static_cast<std::int64_t>(std::ceil(samples / SoundTile::kSamplesOfColumn));
}

double offsetOf(double cents) {
  constexpr double kMost = 1200;
  return std::abs(cents) <= kMost ? cents : 0;
}

}  // namespace

SoundPicture::SoundPicture(File file, std::function<void()> changed, std::size_t mostBytes)
    : m_file(std::move(file)),
      m_changed(std::move(changed)),
      m_frames(columnsOf(m_file.seconds)),
      m_reader(m_file.path),
      m_maker(offsetOf(m_file.tuningOffset)),
      m_samples(SoundTile::kSamples + 2 * TileMaker::kMargin),
      m_shelf(mostBytes) {
  while (columns(m_topLevel) > static_cast<std::int64_t>(SoundTile::kColumns)) ++m_topLevel;
}

SoundPicture::~SoundPicture() = default;

std::int64_t SoundPicture::columns(int level) const {
  if (level == SoundTile::kSampleLevel)
    return m_frames * static_cast<std::int64_t>(SoundTile::kSamplesOfColumn);
  const std::int64_t size = std::int64_t{1} << level;
  return (m_frames + size - 1) / size;
}

void SoundPicture::want(const std::vector<Stretch>& stretches) {
  std::vector<Place> wanted;
  const std::lock_guard lock(m_lock);
  for (const Stretch& stretch : stretches) {
    const std::int64_t last = std::min(stretch.end, columns(stretch.level)) - 1;
    for (std::int64_t tile = std::max<std::int64_t>(tileOf(stretch.level, stretch.first), 0);
         tile <= tileOf(stretch.level, last); ++tile)
      if (!m_shelf.find({stretch.level, tile})) wanted.push_back({stretch.level, tile});
  }
  if (m_trouble != Trouble::none) return;
  m_wanted = std::move(wanted);
  if (m_wanted.empty() || m_working) return;
  m_working = true;
  m_workers.begin([this](const std::stop_token& stop) { work(stop); });
}

SoundPicture::Columns SoundPicture::look(const Stretch& stretch) {
  Columns found;
  const std::lock_guard lock(m_lock);
  Tile tile;
  int level = stretch.level;
  std::int64_t index = -1;
  const auto columnAt = [&](std::int64_t column) {
    return level >= stretch.level ? column >> (level - stretch.level)
                                  : column << (stretch.level - level);
  };
  for (std::int64_t column = stretch.first; column < stretch.end; ++column) {
    if (!tile || tileOf(level, columnAt(column)) != index) {
      tile = column >= 0 && column < columns(stretch.level) ? nearest(stretch.level, column, level)
                                                            : nullptr;
      index = tileOf(level, columnAt(column));
      if (tile) found.tiles.push_back(tile);
    }
    const auto at = static_cast<std::size_t>(columnAt(column)) % SoundTile::kColumns;
    // Tiles of single samples have none of these.
    const bool hasShades = tile && at * SoundTile::kBins < tile->shades.size();
    found.shades.push_back(hasShades ? &tile->shades[at * SoundTile::kBins] : nullptr);
    found.peaks.push_back(tile && at < tile->peaks.size() ? &tile->peaks[at] : nullptr);
  }
  return found;
}

SoundPicture::Tile SoundPicture::nearest(int level, std::int64_t column, int& foundLevel) {
  for (foundLevel = level; foundLevel <= m_topLevel; ++foundLevel)
    if (Tile tile = m_shelf.find({foundLevel, tileOf(foundLevel, column >> (foundLevel - level))}))
      return tile;
  for (foundLevel = level - 1; foundLevel >= 0; --foundLevel)
    if (Tile tile = m_shelf.find({foundLevel, tileOf(foundLevel, column << (level - foundLevel))}))
      return tile;
  foundLevel = level;
  return nullptr;
}

std::vector<std::int16_t> SoundPicture::samples(std::int64_t first, std::int64_t end) {
  std::vector<std::int16_t> found(static_cast<std::size_t>(std::max<std::int64_t>(end - first, 0)));
  const std::lock_guard lock(m_lock);
  std::int64_t at = std::max<std::int64_t>(first, 0);
  end = std::min(end, columns(SoundTile::kSampleLevel));
  while (at < end) {
    const std::int64_t index = tileOf(SoundTile::kSampleLevel, at);
    const Tile tile = m_shelf.find({SoundTile::kSampleLevel, index});
    if (!tile) return {};
    const auto from = static_cast<std::size_t>(at) % SoundTile::kSamples;
    const auto count = std::min(SoundTile::kSamples - from, static_cast<std::size_t>(end - at));
    std::copy_n(tile->samples.begin() + static_cast<std::ptrdiff_t>(from), count,
                found.begin() + (at - first));
    at += static_cast<std::int64_t>(count);
  }
  return found;
}

SoundPicture::Trouble SoundPicture::trouble() const {
  const std::lock_guard lock(m_lock);
  return m_trouble;
}

int SoundPicture::loudShade() const {
  const std::lock_guard lock(m_lock);
  std::int64_t all = 0;
  for (const std::int64_t count : m_loudest) all += count;
  std::int64_t below = 0;
  int shade = 0;
  while (shade < 255 && below * 100 <= all * kPercentBelow)
    below += m_loudest[static_cast<std::size_t>(shade++)];
  return all > 0 ? shade : 255;
}

int SoundPicture::loudestSample() const {
  const std::lock_guard lock(m_lock);
  return m_loudestSample;
}

std::size_t SoundPicture::bytes() const {
  const std::lock_guard lock(m_lock);
  return m_shelf.bytes();
}

}  // namespace korvel
