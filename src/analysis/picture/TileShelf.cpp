// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/picture/TileShelf.h"

#include <iterator>
#include <utility>

namespace korvel {

TileShelf::Tile TileShelf::find(const SoundTile::Place& place) {
  const auto found = m_entries.find(place);
  if (found == m_entries.end()) return nullptr;
  m_latestFirst.splice(m_latestFirst.begin(), m_latestFirst, found->second);
  return found->second->tile;
}

void TileShelf::put(const SoundTile::Place& place, Tile tile) {
  if (const auto known = m_entries.find(place); known != m_entries.end()) drop(known->second);
  m_bytes += tile->bytes();
  m_latestFirst.push_front({place, std::move(tile)});
  m_entries[place] = m_latestFirst.begin();
  while (m_bytes > m_mostBytes && m_latestFirst.size() > 1) drop(std::prev(m_latestFirst.end()));
}

void TileShelf::drop(std::list<Entry>::iterator entry) {
  m_bytes -= entry->tile->bytes();
  m_entries.erase(entry->place);
  m_latestFirst.erase(entry);
}

void TileShelf::clear() {
  m_entries.clear();
  m_latestFirst.clear();
  m_bytes = 0;
}

}  // namespace korvel
