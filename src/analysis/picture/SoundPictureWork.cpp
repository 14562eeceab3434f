// SPDX-License-Identifier: GPL-3.0-or-later
// What the thread of the tiles does.
#include <algorithm>
#include <exception>
#include <utility>

#include "analysis/picture/SoundPicture.h"

namespace korvel {

void SoundPicture::work(const std::stop_token& stop) {
  try {
    if (!checkFile()) return;
    while (!stop.stop_requested())
      if (!workOn(stop) && !checkContentOn() && rest()) return;
  } catch (const std::exception&) {
    give(Trouble::unreadable);
  }
}

/// Makes the first tile that is wanted; false when none is.
bool SoundPicture::workOn(const std::stop_token& stop) {
  Place place{};
  {
    const std::lock_guard lock(m_lock);
    if (m_wanted.empty()) return false;
    place = m_wanted.front();
  }
  make(place, place, stop);
  const std::lock_guard lock(m_lock);
  std::erase(m_wanted, place);
  return true;
}

/// False when more has become wanted since.
bool SoundPicture::rest() {
  const std::lock_guard lock(m_lock);
  m_working = !m_wanted.empty();
  return !m_working;
}

bool SoundPicture::checkFile() {
  std::error_code unknown;
  const auto size = std::filesystem::file_size(m_file.path, unknown);
  if (m_readsCopy) return true;
  if (unknown)
    leaveFile(Trouble::missing);
  else if (m_file.size >= 0 && std::cmp_not_equal(size, m_file.size))
    leaveFile(Trouble::changed);
  return trouble() == Trouble::none;
}

/// The content of a long file takes a while, so that what is wanted comes first. False when there
/// is nothing left to check.
bool SoundPicture::checkContentOn() {
  if (m_file.hash.empty() || m_contentChecked || m_readsCopy) return false;
  if (!m_content) m_content.emplace(m_file.path);
  if (m_content->step()) return true;
  m_contentChecked = true;
  if (m_content->digits() != m_file.hash) leaveFile(Trouble::changed);
  return false;
}

/// For the copy, if there is one.
void SoundPicture::leaveFile(Trouble trouble) {
  std::error_code unknown;
  if (m_file.copy.empty() || !std::filesystem::is_regular_file(m_file.copy, unknown))
    return give(trouble);
  m_readsCopy = true;
  m_reader = StretchReader(m_file.copy);
  {
    const std::lock_guard lock(m_lock);
    m_shelf.clear();
  }
  m_changed();
}

bool SoundPicture::isWanted(const Place& place) const {
  const std::lock_guard lock(m_lock);
  return std::ranges::find(m_wanted, place) != m_wanted.end();
}

SoundPicture::Tile SoundPicture::make(const Place& place, const Place& root,
                                      const std::stop_token& stop) {
  {
    const std::lock_guard lock(m_lock);
    if (Tile known = m_shelf.find(place)) return known;
  }
  Tile tile = place.level <= 0 ? makeOfSound(place, root, stop) : makeOfTwo(place, root, stop);
  if (tile) put(place, tile);
  return tile;
}

SoundPicture::Tile SoundPicture::makeOfSound(const Place& place, const Place& root,
                                             const std::stop_token& stop) {
  const auto stopped = [&] { return stop.stop_requested() || !isWanted(root); };
  const auto first = place.index * static_cast<std::int64_t>(SoundTile::kSamples) -
                     static_cast<std::int64_t>(TileMaker::kMargin);
  if (!m_reader.read(first, m_samples, stopped)) return nullptr;
  const std::span<const float> own =
      std::span(m_samples).subspan(TileMaker::kMargin, SoundTile::kSamples);
  return std::make_shared<const SoundTile>(place.level == 0 ? m_maker.ofSamples(m_samples)
                                                            : TileMaker::samplesOf(own));
}

SoundPicture::Tile SoundPicture::makeOfTwo(const Place& place, const Place& root,
                                           const std::stop_token& stop) {
  const int below = place.level - 1;
  const Tile first = make({below, 2 * place.index}, root, stop);
  if (!first) return nullptr;
  const auto begin = (2 * place.index + 1) * static_cast<std::int64_t>(SoundTile::kColumns);
  if (begin >= columns(below))
    return std::make_shared<const SoundTile>(TileMaker::halved(*first, nullptr));
  const Tile second = make({below, 2 * place.index + 1}, root, stop);
  if (!second) return nullptr;
  return std::make_shared<const SoundTile>(TileMaker::halved(*first, second.get()));
}

void SoundPicture::put(const Place& place, const Tile& tile) {
  {
    const std::lock_guard lock(m_lock);
    m_shelf.put(place, tile);
    if (place.level == 0) {
      for (std::size_t column = 0; column < SoundTile::kColumns; ++column)
        ++m_loudest[*std::max_element(&tile->shades[column * SoundTile::kBins],
                                      &tile->shades[column * SoundTile::kBins] + SoundTile::kBins)];
      for (const SoundTile::Peak& peak : tile->peaks)
        m_loudestSample = std::max({m_loudestSample, -peak.low, int{peak.high}});
    }
  }
  m_changed();
}

void SoundPicture::give(Trouble trouble) {
  {
    const std::lock_guard lock(m_lock);
    m_trouble = trouble;
    m_wanted.clear();
    m_shelf.clear();
  }
  m_changed();
}

}  // namespace korvel
