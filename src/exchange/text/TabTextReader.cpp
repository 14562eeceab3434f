// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/TabTextReader.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <utility>

#include "exchange/text/BarTimes.h"
#include "exchange/text/RhythmRows.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {

namespace {

using platform::phrase;
using platform::UserError;

constexpr std::size_t kMostBytesOfTab = 4U << 20U;
constexpr std::size_t kWidestSystem = 40;
constexpr std::size_t kIndentOfTitle = 8;
constexpr std::size_t kColumnsOfTitle = 100;
constexpr std::ptrdiff_t kNearColumn = 2;
constexpr std::u32string_view kHeading = U"    Recorded by Korvel";
constexpr std::u32string_view kOwnCapo = U"        Capo ";
constexpr std::u32string_view kFromNut = U", frets from the nut";

TabSystems requireSystems(const std::vector<Row>& rows) {
  TabSystems found = systemsOf(rows);
  if (!found.systems.empty()) return found;
  if (found.others.empty())
    throw UserError(
        phrase("Exchange", "there is no tablature of six strings in it; nothing was read"));
  const auto most =
      std::ranges::max_element(found.others, {}, [](const auto& each) { return each.second; });
  throw UserError(
      phrase("Exchange", "its tablature has %1 strings; only that of guitars with six is read"),
      most->first);
}

/// Makes a piece of the systems of a text.
class PieceReader {
 public:
  explicit PieceReader(const std::vector<Row>& rows)
      : m_rows(rows), m_found(requireSystems(rows)) {}

  Piece read() {
    for (const auto& [strings, count] : m_found.others)
      m_piece.left["systems of " + std::to_string(strings) + " strings"] += count;
    findRows();
    readWords();
    readBars();
    write();
    return std::move(m_piece);
  }

 private:
  const std::vector<TabSystem>& systems() const { return m_found.systems; }

  void findRows() {
    for (std::size_t i = 0; i < systems().size(); ++i) {
      const std::size_t from = i > 0 ? systems()[i - 1].end : 0;
      const std::size_t to = i + 1 < systems().size() ? systems()[i + 1].first : m_rows.size();
      m_beside.emplace_back(m_rows, systems()[i], from, to);
    }
    m_isAbove = m_beside.front().isToldAbove();
  }

  void readWords() {
    std::set<std::size_t> said;
    for (const RhythmRows& beside : m_beside)
      said.insert(beside.rows().begin(), beside.rows().end());
    std::size_t row = 0;
    for (const TabSystem& system : systems()) {
      for (; row < system.first; ++row)
        if (!said.contains(row)) m_words.read(m_rows[row]);
      row = system.end;
    }
    for (; row < m_rows.size(); ++row)
      if (!said.contains(row)) m_words.read(m_rows[row]);
    readHeading();
  }

  /// A title that fills its line goes on in the next one.
  void readHeading() {
    const auto heading = std::ranges::find(m_rows, kHeading);
    m_isOwn = heading != m_rows.end();
    if (!m_isOwn) return;
    // What the title says is no tuning, and the names of strings say all of it.
    m_words = {.tempo = m_words.tempo, .isSwung = m_words.isSwung};
    Row title;
    auto row = heading + 1;
    for (; row != m_rows.end(); ++row) {
      const Row line = row->size() > kIndentOfTitle ? row->substr(kIndentOfTitle) : Row();
      title += line;
      if (line.size() < kColumnsOfTitle) break;
    }
    m_words.title = utf8(title);
    if (row != m_rows.end() && ++row != m_rows.end()) readOwnCapo(*row);
  }

  /// Frets are those of the neck in the program's own text, with a capo, too.
  void readOwnCapo(const Row& row) {
    if (!row.starts_with(kOwnCapo) || !row.ends_with(kFromNut)) return;
    TabWords said;
    said.read(row);
    m_words.capo = said.capo;
  }

  void readBars() {
    const auto countBarred = std::ranges::count_if(systems(), isBarred);
    m_isBarred = 2 * countBarred > std::ssize(systems());
    bool isWide = true;
    for (std::size_t i = 0; i < systems().size(); ++i) {
      auto bars = barsOf(systems()[i], isUpsideDown(systems()[i]), m_beside[i].cuts(m_isAbove),
                         m_piece.left);
      m_beside[i].tell(bars, {m_isAbove, m_words.metre, m_isOwn});
      isWide = isWide && bars.size() == 1 && bars.front().width > kWidestSystem &&
               bars.front().rhythm.empty() && bars.front().marks.empty();
      m_isBarred = m_isBarred || bars.size() > 1;
      std::ranges::move(bars, std::back_inserter(m_bars));
    }
    // A line at the end of a system that wide is that of no bar.
    if (isWide) m_isBarred = false;
    if (m_bars.empty())
      throw UserError(
          phrase("Exchange", "there is no tablature of six strings in it; nothing was read"));
    m_times =
        m_isBarred ? timesOf(m_bars, m_words.metre, m_isOwn) : timesWithoutBars(m_bars, m_isOwn);
  }

  void write() {
    m_piece.title = m_words.title;
    m_piece.artist = m_words.artist;
    if (m_words.tempo) m_piece.tempos.push_back({0, *m_words.tempo});
    if (m_words.isSwung) m_piece.swing = 2.0 / 3;
    Track& track = m_piece.tracks.emplace_back();
    const OpenPitches open = openStrings();
    track.open.assign(open.begin(), open.end());
    track.capo = m_words.capo.value_or(0);
    track.mayHaveCapo = !m_isOwn && !m_words.capo;
    track.namesAreShapes = !m_isOwn;
    std::vector<BarSigns> signs;
    for (const TabBar& bar : m_bars) signs.push_back(m_isBarred ? bar.signs : BarSigns());
    for (const std::size_t bar : playedOrder(signs)) writeBar(bar, track);
    std::ranges::stable_sort(track.notes, {},
                             [](const Note& note) { return std::pair(note.at, note.pitch); });
  }

  /// The names of strings count unless they are those of every guitar and words say otherwise.
  OpenPitches openStrings() const {
    const auto named = openOf(systems().front());
    if (m_words.open && (!named || *named == kStandardPitches)) return *m_words.open;
    return named.value_or(kStandardPitches);
  }

  void writeBar(std::size_t index, Track& track) {
    const TabBar& bar = m_bars[index];
    const TimedBar& timed = m_times[index];
    if (m_isBarred)
      m_piece.bars.push_back({m_at, timed.length, timed.metre.beats, timed.metre.beatType});
    for (std::size_t i = track.notes.size(); timed.goesOn > 0 && i-- > 0;) {
      if (track.notes[i].at != track.notes.back().at) break;
      if (track.notes[i].at + track.notes[i].length == m_at) track.notes[i].length += timed.goesOn;
    }
    for (std::size_t i = 0; i < bar.struck.size(); ++i)
      for (const Struck::Tone& tone : bar.struck[i].tones)
        if (tone.fret >= 0) writeNote(tone, timed.struck[i], track);
    for (const TabBar::Name& name : bar.names)
      track.names.push_back({m_at + placeOf(name, bar, timed), name.text});
    m_at += timed.length;
  }

  void writeNote(const Struck::Tone& tone, const TimedBar::Span& span, Track& track) const {
    if (span.end <= span.at) return;
    const int open = track.open[static_cast<std::size_t>(tone.string)];
    const int fret = m_isOwn ? tone.fret - track.capo : tone.fret;
    track.notes.push_back({m_at + span.at, span.end - span.at, open + track.capo + fret,
                           tone.string, std::max(fret, -1)});
  }

  /// Names stand over what they belong to, or about there.
  static std::int64_t placeOf(const TabBar::Name& name, const TabBar& bar, const TimedBar& timed) {
    const auto distance = [&](const auto& place) { return std::abs(place.column - name.column); };
    // Of two that are as near the one to the right is meant.
    const TimedBar::Place* nearest = nullptr;
    for (const TimedBar::Place& place : timed.places)
      if (!nearest || distance(place) <= distance(*nearest)) nearest = &place;
    if (nearest && distance(*nearest) <= kNearColumn) return nearest->at;
    const auto width = static_cast<std::int64_t>(std::max<std::size_t>(bar.width, 1));
    const std::int64_t beats = std::max<std::int64_t>(timed.length / kGrainsOfQuarter, 1);
    const std::int64_t beat = (2 * name.column * beats + width) / (2 * width);
    return std::clamp<std::int64_t>(beat, 0, beats - 1) * kGrainsOfQuarter;
  }

  const std::vector<Row>& m_rows;
  TabSystems m_found;
  std::vector<RhythmRows> m_beside;  ///< Of each system.
  bool m_isAbove = false;
  TabWords m_words;
  bool m_isOwn = false;  ///< The program wrote it.
  bool m_isBarred = true;
  std::vector<TabBar> m_bars;
  std::vector<TimedBar> m_times;
  std::int64_t m_at = 0;
  Piece m_piece;
};

}  // namespace

bool looksLikeTab(std::string_view text) {
  const TabSystems found = systemsOf(rowsOf(text.substr(0, kMostBytesOfTab)));
  return !found.systems.empty() || !found.others.empty();
}

Piece readTabText(std::string_view text) {
  if (text.size() > kMostBytesOfTab)
    throw UserError(phrase("Exchange", "it is larger than any tablature; nothing was read"));
  const std::vector<Row> rows = rowsOf(text);
  return PieceReader(rows).read();
}

}  // namespace korvel::exchange
