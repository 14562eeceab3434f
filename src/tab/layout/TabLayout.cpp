// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/TabLayout.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/Neck.h"
#include "platform/text/Utf8.h"
#include "tab/layout/BeatDrawing.h"
#include "tab/layout/CapoNames.h"
#include "tab/text/SongDrawing.h"
#include "tab/text/SystemLabel.h"

namespace korvel {
namespace {

constexpr int kNoPlace = -1;

std::vector<std::string> rowsOf(const std::string& text) {
  std::vector<std::string> rows;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t end = std::min(text.find('\n', from), text.size());
    const std::size_t last = text.find_last_not_of(" \r", end - 1);
    const bool blank = end == from || last == std::string::npos || last < from;
    rows.push_back(blank ? std::string() : text.substr(from, last + 1 - from));
    from = end + 1;
  }
  return rows;
}

bool drawsNothing(QBSong& song) { return song.measures().empty() && song.allChords().empty(); }

/// Names of two letters once stood in one column, a letter a row, and stored tablatures have that.
bool hasWideNames(const QBSong& song) {
  return std::ranges::any_of(systemLabel(&song),
                             [](const std::string& name) { return name.size() > 1; });
}

std::unordered_map<const QBChord*, int> indexesOf(QBSong& song) {
  std::unordered_map<const QBChord*, int> indexes;
  for (const auto& chord : song.allChords())
    indexes.emplace(chord, static_cast<int>(indexes.size()));
  return indexes;
}

}  // namespace

TabLayout::TabLayout(QBSong& song) {
  readText(song.tabulature());
  if (drawsNothing(song)) return;
  QBTabMatrix matrix = drawingOf(song);
  matrix.trimLeadingLines();
  // The capo may have been told since it was stored.
  const bool isOld = static_cast<int>(m_rows.size()) != matrix.height() || matrix.m_capo > 0;
  if (isOld || hasWideNames(song)) readText(matrix.toStringInverted());
  place(song, matrix);
  divide(matrix.m_systems);
}

TabLayout::TabLayout(QBSong& song, int width) {
  if (drawsNothing(song)) return;
  if (song.isOnBeats()) {
    drawOnBeats(song, width);
    return;
  }
  QBTabMatrix matrix = drawingOf(song, width);
  matrix.trimLeadingLines();
  readText(matrix.toStringInverted());
  place(song, matrix);
  divide(matrix.m_systems);
}

TabLayout TabLayout::forExport(QBSong& song) {
  if (song.isOnBeats()) return TabLayout(song, kWidthOfSystem);
  TabLayout layout(song);
  if (drawsNothing(song)) return layout;
  std::vector<int> tops;
  for (const System& system : layout.m_systems) tops.push_back(system.top);
  layout.readText(toStringForExport(song));
  layout.divide(tops);
  return layout;
}

void TabLayout::drawOnBeats(QBSong& song, int width) {
  const SongBars bars(song);
  BeatDrawing drawing(
      bars, {song.title(), song.tempo(), song.isSwung(), systemLabel(&song), capoOfTablature(song)},
      width);
  markEnd(drawing.matrix(), song);
  readText(drawing.matrix().toStringInverted());
  m_placeOfChord.assign(song.allChords().size(), kNoPlace);
  for (const BeatDrawing::Place& place : drawing.places()) {
    m_placeOfChord[static_cast<std::size_t>(place.chord)] = static_cast<int>(m_places.size());
    m_places.push_back({place.chord, place.x, place.y, place.columns, place.isSilent});
  }
  m_signs = drawing.signs();
  divide(drawing.matrix().m_systems);
}

TabLayout::TabLayout(std::vector<std::string> rows, std::vector<System> systems,
                     std::vector<Place> places, TabSigns signs)
    : m_systems(std::move(systems)), m_places(std::move(places)), m_signs(std::move(signs)) {
  setRows(std::move(rows));
  for (std::size_t i = 0; i < m_places.size(); ++i) {
    const auto chord = static_cast<std::size_t>(m_places[i].chord);
    if (chord >= m_placeOfChord.size()) m_placeOfChord.resize(chord + 1, kNoPlace);
    m_placeOfChord[chord] = static_cast<int>(i);
  }
}

void TabLayout::readText(const std::string& text) { setRows(rowsOf(text)); }

void TabLayout::setRows(std::vector<std::string> rows) {
  m_rows = std::move(rows);
  m_columns = 0;
  for (const std::string& row : m_rows)
    m_columns = std::max(m_columns, static_cast<int>(platform::characterCount(row)));
}

void TabLayout::place(QBSong& song, const QBTabMatrix& matrix) {
  const auto indexes = indexesOf(song);
  m_placeOfChord.assign(indexes.size(), kNoPlace);
  for (const DrawnChord& drawn : matrix.m_drawn) {
    const auto index = indexes.find(drawn.chord);
    if (index == indexes.end()) continue;
    m_placeOfChord[static_cast<std::size_t>(index->second)] = static_cast<int>(m_places.size());
    m_places.push_back({index->second, drawn.x, drawn.y, drawn.columns});
  }
}

void TabLayout::divide(const std::vector<int>& tops) {
  const auto isBlank = [this](int row) { return m_rows[static_cast<std::size_t>(row)].empty(); };
  m_systems.clear();
  for (std::size_t i = 0; i < tops.size(); ++i) {
    const int first = tops[i] - 1;
    int end = i + 1 < tops.size() ? tops[i + 1] - 1 : static_cast<int>(m_rows.size());
    while (end > tops[i] + kStrings && isBlank(end - 1)) --end;
    m_systems.push_back({first, tops[i], end});
  }
}

void TabLayout::makeRoom(int rows) {
  const auto moved = [&](int row) {
    const auto systems = std::ranges::upper_bound(m_systems, row, {}, &System::first);
    return row + rows * static_cast<int>(systems - m_systems.begin());
  };
  for (Place& place : m_places) place.y = moved(place.y);
  if (m_signs.tempo) m_signs.tempo->row = moved(m_signs.tempo->row);
  for (auto system = m_systems.rbegin(); system != m_systems.rend(); ++system)
    m_rows.insert(m_rows.begin() + system->first, static_cast<std::size_t>(rows), std::string());
  for (int above = rows; System & system : m_systems) {
    system = {system.first + above, system.top + above, system.end + above};
    above += rows;
  }
  m_room = rows;
}

bool TabLayout::isRoom(int row) const {
  const auto next = std::ranges::upper_bound(m_systems, row, {}, &System::first);
  return next != m_systems.end() && row >= next->first - m_room;
}

const TabLayout::System* TabLayout::systemAt(int row) const {
  const auto after = std::ranges::upper_bound(m_systems, row, {}, &System::first);
  return after == m_systems.begin() ? nullptr : &*std::prev(after);
}

std::vector<TabLayout::Place>::const_iterator TabLayout::begin(const System& system) const {
  return std::ranges::lower_bound(m_places, system.top, {}, &Place::y);
}

std::vector<TabLayout::Place>::const_iterator TabLayout::end(const System& system) const {
  return std::ranges::upper_bound(m_places, system.top, {}, &Place::y);
}

const TabLayout::Place* TabLayout::placeOf(int chord) const {
  if (chord < 0 || chord >= chords()) return nullptr;
  const int place = m_placeOfChord[static_cast<std::size_t>(chord)];
  return place == kNoPlace ? nullptr : &m_places[static_cast<std::size_t>(place)];
}

std::optional<TabLayout::Place> TabLayout::nearPlace(int chord) const {
  if (chord < 0 || chord >= chords() || m_places.empty()) return std::nullopt;
  if (const Place* drawn = placeOf(chord)) return *drawn;
  if (const auto previous = previousDrawn(chord)) {
    const Place& before = *placeOf(*previous);
    return Place{chord, before.x + before.columns, before.y, 1};
  }
  const Place& first = m_places.front();
  return Place{chord, first.x - 1, first.y, 1};
}

std::optional<int> TabLayout::chordAt(int x, int y) const {
  const System* system = systemAt(y);
  if (!system || y >= system->end) return std::nullopt;
  const auto after =
      std::upper_bound(begin(*system), end(*system), x,
                       [](int column, const Place& place) { return column < place.x; });
  if (after == begin(*system)) return std::nullopt;
  const Place& place = *std::prev(after);
  return x < place.x + place.columns ? std::optional(place.chord) : std::nullopt;
}

bool TabLayout::hasTones(int chord) const {
  const Place* place = placeOf(chord);
  return place && !place->isSilent;
}

std::optional<int> TabLayout::nextDrawn(int chord) const {
  for (int next = std::max(chord, -1) + 1; next < chords(); ++next)
    if (hasTones(next)) return next;
  return std::nullopt;
}

std::optional<int> TabLayout::previousDrawn(int chord) const {
  for (int previous = std::min(chord, chords()) - 1; previous >= 0; --previous)
    if (hasTones(previous)) return previous;
  return std::nullopt;
}

std::optional<int> stringAt(const TabLayout::System& system, int row) {
  const int string = system.top + kStrings - 1 - row;
  return string >= 0 && string < kStrings ? std::optional(string) : std::nullopt;
}

int rowOfString(int top, int string) { return top + kStrings - 1 - string; }

}  // namespace korvel
