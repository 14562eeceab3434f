// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <list>
#include <map>
#include <memory>

#include "analysis/picture/SoundTile.h"

namespace korvel {

/// Keeps tiles up to a number of bytes, at the cost of those that nobody has asked for longest.
class TileShelf {
 public:
  using Tile = std::shared_ptr<const SoundTile>;

  explicit TileShelf(std::size_t mostBytes) : m_mostBytes(mostBytes) {}

  /// None for one that is not there.
  Tile find(const SoundTile::Place& place);
  /// In the place of one that may be there.
  void put(const SoundTile::Place& place, Tile tile);
  void clear();

  std::size_t bytes() const { return m_bytes; }

 private:
  struct Entry {
    SoundTile::Place place;
    Tile tile;
  };

  void drop(std::list<Entry>::iterator entry);

  std::size_t m_mostBytes;
  std::size_t m_bytes = 0;
  std::list<Entry> m_latestFirst;
  std::map<SoundTile::Place, std::list<Entry>::iterator> m_entries;
};

}  // namespace korvel
