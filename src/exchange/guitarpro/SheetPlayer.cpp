// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/SheetPlayer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/text/UserError.h"

namespace korvel::exchange::guitarpro {
namespace {

/// Beats and notes of all that is played, in all tracks.
constexpr std::size_t kMostEvents = 2'000'000;
/// Places that are no further apart than this are one, whatever was rounded.
constexpr double kNearness = 1;
constexpr int kHighestPitch = 127;

double grainsOf(const SheetVoice& voice) {
  double grains = 0;
  for (const SheetBeat& beat : voice) grains += beat.grains;
  return grains;
}

/// Endings are marked at their first bar only: one goes on to where its repeat closes.
void spreadEndings(std::vector<MasterBar>& bars) {
  for (std::size_t i = 0; i < bars.size(); ++i) {
    if (bars[i].signs.endings == 0) continue;
    std::size_t end = i;
    while (end < bars.size() && bars[end].signs.timesPlayed == 0 &&
           (end == i || (bars[end].signs.endings == 0 && !bars[end].signs.opensRepeat)))
      ++end;
    if (end == bars.size() || bars[end].signs.opensRepeat) continue;
    if (end != i && bars[end].signs.endings != 0) continue;
    for (std::size_t k = i + 1; k <= end; ++k) bars[k].signs.endings = bars[i].signs.endings;
  }
}

/// Plays the bars of one track.
class TrackPlayer {
 public:
  explicit TrackPlayer(SheetTrack& track) : m_track(track), m_played(std::move(track.head)) {
    for (auto& voice : m_last) voice.fill(kNone);
    m_isCounted.resize(track.bars.size());
  }

  /// Returns how many events that were.
  std::size_t play(std::size_t bar, std::int64_t at) {
    std::size_t events = 0;
    const SheetBar& voices = m_track.bars[bar];
    for (std::size_t voice = 0; voice < voices.size(); ++voice) {
      auto place = static_cast<double>(at);
      for (const SheetBeat& beat : voices[voice]) {
        play(beat, voice, {std::llround(place), std::llround(place + beat.grains)}, bar);
        place += beat.grains;
        events += 1 + beat.notes.size();
      }
    }
    m_isCounted[bar] = true;
    return events;
  }

  Track take() {
    std::ranges::stable_sort(m_played.notes, [](const Note& one, const Note& other) {
      return std::pair(one.at, one.pitch) < std::pair(other.at, other.pitch);
    });
    std::ranges::stable_sort(m_played.names, {}, &ChordName::at);
    const auto isRepeated = [](const ChordName& one, const ChordName& next) {
      return one.text == next.text;
    };
    auto& names = m_played.names;
    names.erase(std::unique(names.begin(), names.end(), isRepeated), names.end());
    return std::move(m_played);
  }

 private:
  static constexpr std::size_t kNone = ~std::size_t{0};
  struct Span {
    std::int64_t from;
    std::int64_t to;
  };

  void play(const SheetBeat& beat, std::size_t voice, const Span& span, std::size_t bar) {
    if (beat.chord) m_played.names.push_back({span.from, *beat.chord});
    if (span.to <= span.from) return;
    for (const SheetNote& note : beat.notes) {
      std::size_t& last = m_last[voice][static_cast<std::size_t>(note.string)];
      if (!note.isTied) {
        strike(note, note.fret, span, last);
      } else if (last == kNone) {
        if (!m_isCounted[bar]) ++m_played.left[kTiesToNothing];
      } else {
        goOn(note, span, last);
      }
    }
  }

  /// Behind a jump or a rest there is nothing to go on from: the note is struck again.
  void goOn(const SheetNote& note, const Span& span, std::size_t& last) {
    Note& before = m_played.notes[last];
    const std::int64_t gap = span.from - (before.at + before.length);
    if (std::abs(static_cast<double>(gap)) <= kNearness)
      before.length = span.to - before.at;
    else
      strike(note, before.fret, span, last);
  }

  void strike(const SheetNote& note, int fret, const Span& span, std::size_t& last) {
    const auto string = static_cast<std::size_t>(note.string);
    const int open = string < m_played.open.size() ? m_played.open[string] + m_played.capo : 0;
    last = m_played.notes.size();
    m_played.notes.push_back({.at = span.from,
                              .length = span.to - span.from,
                              .pitch = std::clamp(open + fret, 0, kHighestPitch),
                              .string = note.string,
                              .fret = fret,
                              .velocity = std::clamp(note.velocity, 1, 127)});
  }

  SheetTrack& m_track;
  Track m_played;
  /// The note that was struck last, by voice and string.
  std::array<std::array<std::size_t, kMostStrings>, kMostVoices> m_last{};
  std::vector<bool> m_isCounted;  ///< Bars whose ties are counted already.
};

class SheetPlayer {
 public:
  explicit SheetPlayer(TabSheet& sheet) : m_sheet(sheet), m_piece(std::move(sheet.head)) {}

  Piece play() {
    spreadEndings(m_sheet.bars);
    std::vector<BarSigns> signs;
    for (std::size_t i = 0; i < m_sheet.bars.size(); ++i) layOut(i, signs);
    std::vector<TrackPlayer> players;
    for (SheetTrack& track : m_sheet.tracks) players.emplace_back(track);
    for (const std::size_t bar : playedOrder(signs)) play(bar, players);
    if (m_piece.tempos.empty()) m_piece.tempos.push_back({0, m_sheet.quartersAMinute});
    for (TrackPlayer& player : players) m_piece.tracks.push_back(player.take());
    return std::move(m_piece);
  }

 private:
  /// What a bar has before it is played: its length, and the tempo that it begins in.
  void layOut(std::size_t index, std::vector<BarSigns>& signs) {
    MasterBar& bar = m_sheet.bars[index];
    signs.push_back(bar.signs);
    std::ranges::stable_sort(bar.tempos, {}, &SheetTempo::grains);
    m_begins.push_back(m_tempo.value_or(m_sheet.quartersAMinute));
    if (!bar.tempos.empty()) m_tempo = bar.tempos.back().quartersAMinute;
    m_lengths.push_back(lengthOf(index));
    for (SheetTrack& track : m_sheet.tracks)
      for (SheetVoice& voice : track.bars[index]) cut(voice, m_lengths.back(), track.head.left);
  }

  double lengthOf(std::size_t index) const {
    const MasterBar& bar = m_sheet.bars[index];
    if (!bar.isPickUp) return bar.grains();
    double longest = 0;
    for (const SheetTrack& track : m_sheet.tracks)
      for (const SheetVoice& voice : track.bars[index])
        longest = std::max(longest, grainsOf(voice));
    return longest < kNearness ? bar.grains() : std::min(longest, bar.grains());
  }

  static void cut(SheetVoice& voice, double length, LeftCounts& left) {
    double place = 0;
    auto beat = voice.begin();
    for (; beat != voice.end() && place < length - kNearness; ++beat) {
      beat->grains = std::min(beat->grains, length - place);
      place += beat->grains;
    }
    for (auto beyond = beat; beyond != voice.end(); ++beyond)
      if (!beyond->notes.empty()) left[kNotesBeyondBars] += static_cast<int>(beyond->notes.size());
    voice.erase(beat, voice.end());
  }

  void play(std::size_t index, std::vector<TrackPlayer>& players) {
    const MasterBar& bar = m_sheet.bars[index];
    const std::int64_t length = std::llround(m_lengths[index]);
    m_piece.bars.push_back({m_at, length, bar.beats, bar.beatType});
    setTempo(m_at, m_begins[index]);
    for (const SheetTempo& tempo : bar.tempos)
      if (tempo.grains < m_lengths[index])
        setTempo(m_at + std::llround(tempo.grains), tempo.quartersAMinute);
    for (TrackPlayer& player : players) m_events += player.play(index, m_at);
    if (m_events > kMostEvents)
      throw platform::UserError(
          platform::phrase("Exchange", "it has more notes than any music; nothing was read"));
    m_at += length;
  }

  void setTempo(std::int64_t at, double tempo) {
    auto& tempos = m_piece.tempos;
    if (!tempos.empty() && tempos.back().quartersAMinute == tempo) return;
    if (!tempos.empty() && tempos.back().at == at) tempos.pop_back();
    if (tempos.empty() || tempos.back().quartersAMinute != tempo) tempos.push_back({at, tempo});
  }

  TabSheet& m_sheet;
  Piece m_piece;
  std::vector<double> m_lengths{};
  std::vector<double> m_begins{};  ///< The tempo that each bar begins in, as it is written.
  std::optional<double> m_tempo{};
  std::int64_t m_at = 0;
  std::size_t m_events = 0;
};

}  // namespace

Piece playedOut(TabSheet sheet) { return SheetPlayer(sheet).play(); }

}  // namespace korvel::exchange::guitarpro
