// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/WrittenScore.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <utility>

#include "exchange/BarLength.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {

namespace {

constexpr std::size_t kMostPlayedNotes = 1'000'000;

bool areClose(std::int64_t a, std::int64_t b) { return std::abs(a - b) <= kRounding; }

/// The written bars one after the other as they are played.
class BarLine {
 public:
  BarLine(std::span<const CommonBar> bars, std::span<const std::size_t> order)
      : m_bars(bars), m_order(order) {
    for (std::size_t i = 0; i < order.size(); ++i) add(i);
  }

  /// Where each played bar begins.
  const std::vector<std::int64_t>& starts() const { return m_starts; }
  std::vector<Bar> take() { return std::move(m_played); }

 private:
  const CommonBar& written(std::size_t i) const { return m_bars[m_order[i]]; }
  static std::int64_t whole(const CommonBar& bar) { return lengthOf(bar.beats, bar.beatType); }
  static bool isShort(const CommonBar& bar) {
    return bar.length > 0 && bar.length < whole(bar) - kRounding;
  }

  void add(std::size_t i) {
    const CommonBar& bar = written(i);
    m_starts.push_back(m_at);
    if (m_isHalf) {
      completeLast();
      return;
    }
    m_isHalf = i + 1 < m_order.size() && completes(bar, written(i + 1));
    Bar played{m_at, whole(bar), bar.beats, bar.beatType};
    if (bar.length > played.length + kRounding) {
      fitBar(played, bar.length);
    } else if (isShort(bar)) {
      if (m_isHalf || isPickUp(i))
        played.length = bar.length;
      else if (bar.isImplicit)
        fitBar(played, bar.length);
    }
    m_played.push_back(played);
    m_at += played.length;
  }

  bool isPickUp(std::size_t i) const {
    return i == 0 && (written(i).isImplicit || m_order.size() > 1);
  }

  static bool completes(const CommonBar& first, const CommonBar& second) {
    return isShort(first) && isShort(second) && whole(first) == whole(second) &&
           areClose(first.length + second.length, whole(first));
  }

  void completeLast() {
    Bar& last = m_played.back();
    last.length = lengthOf(last.beats, last.beatType);
    m_at = last.at + last.length;
    m_isHalf = false;
  }

  std::span<const CommonBar> m_bars;
  std::span<const std::size_t> m_order;
  std::vector<Bar> m_played{};
  std::vector<std::int64_t> m_starts{};
  std::int64_t m_at = 0;
  bool m_isHalf = false;  ///< Whether the last one waits for the rest of its bar.
};

/// Time signatures hold until the next one.
void spreadTimeSignatures(std::vector<CommonBar>& bars) {
  int beats = 4;
  int beatType = 4;
  for (CommonBar& bar : bars) {
    if (bar.beats > 0)
      std::tie(beats, beatType) = std::pair(bar.beats, bar.beatType);
    else
      std::tie(bar.beats, bar.beatType) = std::pair(beats, beatType);
  }
}

/// A bar that is repeated has the tempo that is written there, whatever was played before it.
std::vector<Tempo> playedTempos(std::span<const CommonBar> bars, std::span<const std::size_t> order,
                                std::span<const std::int64_t> starts) {
  std::vector<double> atStart;
  double tempo = Tempo{}.quartersAMinute;
  for (const CommonBar& bar : bars) {
    atStart.push_back(tempo);
    if (!bar.tempos.empty()) tempo = bar.tempos.back().quartersAMinute;
  }
  std::vector<Tempo> played;
  const auto change = [&](std::int64_t at, double quartersAMinute) {
    if (!played.empty() && played.back().at == at) played.pop_back();
    if (played.empty() || played.back().quartersAMinute != quartersAMinute)
      played.push_back({at, quartersAMinute});
  };
  for (std::size_t i = 0; i < order.size(); ++i) {
    change(starts[i], atStart[order[i]]);
    for (const Tempo& each : bars[order[i]].tempos)
      change(starts[i] + each.at, each.quartersAMinute);
  }
  if (played.empty()) played.emplace_back();
  return played;
}

/// What a part plays, with ties joined.
class PlayedTrack {
 public:
  PlayedTrack(WrittenPart& part, std::size_t& left) : m_track(std::move(part.track)), m_left(left) {
    for (WrittenMeasure& measure : part.measures) {
      std::ranges::stable_sort(measure.notes, {},
                               [](const WrittenNote& each) { return each.note.at; });
      std::ranges::stable_sort(measure.names, {}, &ChordName::at);
    }
  }

  void add(const WrittenMeasure& measure, std::int64_t start) {
    for (const WrittenNote& each : measure.notes) add(each, start);
    for (const ChordName& each : measure.names) {
      const bool isSaid = !m_track.names.empty() && m_track.names.back().text == each.text;
      if (!isSaid) m_track.names.push_back({start + each.at, each.text});
    }
  }

  Track take() {
    std::ranges::stable_sort(m_track.notes, {},
                             [](const Note& note) { return std::pair(note.at, note.pitch); });
    return std::move(m_track);
  }

 private:
  /// Notes by pitch and where they end.
  using Tied = std::multimap<std::pair<int, std::int64_t>, std::size_t>;

  void add(const WrittenNote& written, std::int64_t start) {
    Note note = written.note;
    note.at += start;
    const auto open = written.tiedBefore ? sounding(note) : m_tied.end();
    if (open != m_tied.end()) {
      Note& first = m_track.notes[open->second];
      const std::size_t index = open->second;
      first.length = note.at + note.length - first.at;
      m_tied.erase(open);
      if (written.tiedOn) tie(index);
      return;
    }
    if (m_left == 0)
      throw platform::UserError(
          platform::phrase("Exchange", "it makes more than %1 notes; nothing was read"),
          kMostPlayedNotes);
    --m_left;
    m_track.notes.push_back(note);
    if (written.tiedOn) tie(m_track.notes.size() - 1);
  }

  void tie(std::size_t index) {
    const Note& note = m_track.notes[index];
    m_tied.insert({{note.pitch, note.at + note.length}, index});
  }

  /// What a tied note goes on from. Some programs write its parts on different strings.
  Tied::iterator sounding(const Note& note) {
    constexpr int kMostUnisons = 12;
    const auto first = m_tied.lower_bound({note.pitch, note.at - kRounding});
    const auto last = m_tied.upper_bound({note.pitch, note.at + kRounding});
    int left = kMostUnisons;
    for (auto each = first; each != last && left > 0; ++each, --left)
      if (m_track.notes[each->second].string == note.string) return each;
    return first == last ? m_tied.end() : first;
  }

  Track m_track;
  std::size_t& m_left;  ///< Notes that may still be played.
  Tied m_tied{};
};

}  // namespace

Piece playedPiece(WrittenScore score) {
  spreadTimeSignatures(score.bars);
  std::vector<BarSigns> signs;
  for (const CommonBar& bar : score.bars) signs.push_back(bar.signs);
  const std::vector<std::size_t> order = playedOrder(signs);
  BarLine line(score.bars, order);
  Piece piece = std::move(score.head);
  piece.tempos = playedTempos(score.bars, order, line.starts());
  std::size_t left = kMostPlayedNotes;
  for (WrittenPart& part : score.parts) {
    PlayedTrack track(part, left);
    for (std::size_t i = 0; i < order.size(); ++i)
      if (order[i] < part.measures.size()) track.add(part.measures[order[i]], line.starts()[i]);
    piece.tracks.push_back(track.take());
  }
  piece.bars = line.take();
  return piece;
}

}  // namespace korvel::exchange
