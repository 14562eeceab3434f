// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/CombinedSongs.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "arrange/chords/QBChordExtractor.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/SongLyrics.h"
#include "model/songs/SongTime.h"
#include "model/songs/ToneOrder.h"
#include "tab/page/PageOfSong.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/bars/FilledBars.h"
#include "workflow/arranging/bars/KeptBeats.h"

namespace korvel {
namespace {

std::map<int, QBChord*> chordsByTick(QBSong& song, const SongTime& time) {
  std::map<int, QBChord*> chords;
  for (std::size_t i = 0; i < song.allChords().size(); ++i)
    chords.emplace(time.tickOf(i), song.allChords()[i]);
  return chords;
}

/// A chord like one of another recording: it has none of its times.
QBChord* struckLike(QBSong& song, const QBChord& chord) {
  QBChord* made = song.createChord();
  made->setTicks(chord.ticks());
  made->setHarmony(chord.harmony());
  if (chord.hasBaseTone()) made->setBaseTone(chord.baseTone());
  return made;
}

/// What is struck at the same place of their bars is struck together.
void mergeBeats(QBSong& source, QBSong& merged, QBSong& other) {
  const SongTime time(source, SongTime::Tempo::strict);
  const SongTime timeOfOther(other, SongTime::Tempo::strict);
  std::map<int, QBChord*> chords = chordsByTick(merged, time);
  for (const auto& [tick, chord] : chordsByTick(other, timeOfOther)) {
    if (tonesOf(*chord).empty()) continue;
    QBChord*& into = chords[tick];
    if (!into) into = struckLike(merged, *chord);
    into->mergeWith(*chord);
  }
  std::vector<PlacedChord> placed;
  for (const auto& [tick, chord] : chords) placed.push_back({platform::Ref<QBChord>(chord), tick});
  std::vector<BarSpan> bars = barsOf(source);
  extendBars(bars, timeOfOther.begin(), timeOfOther.end());
  fillBars(merged, placed, bars);
  endTonesAtNextStrike(merged);
}

/// Those that the part has something of; it may begin in the middle of one, as a pick-up.
std::vector<BarSpan> barsOfPart(QBSong& song, int begin, int end) {
  std::vector<BarSpan> bars = barsOf(song);
  std::erase_if(bars, [=](const BarSpan& bar) { return bar.end <= begin || bar.begin >= end; });
  if (bars.size() > 1) bars.front().begin = std::max(bars.front().begin, begin);
  return bars;
}

void extractBeats(QBSong& song, int from, int to, QBSong& part) {
  const SongTime time(song, SongTime::Tempo::strict);
  std::vector<PlacedChord> placed;
  int end = time.begin();
  for (std::size_t i = 0; i < song.allChords().size(); ++i) {
    QBChord& chord = *song.allChords()[i];
    if (chord.position() < from || chord.position() > to) continue;
    placed.push_back({platform::Ref<QBChord>(chord.clone(&part)), time.tickOf(i)});
    end = time.tickOf(i + 1);
  }
  if (placed.empty()) return;
  fillBars(part, placed, barsOfPart(song, placed.front().tick, end));
  endTonesAtNextStrike(part);
}

/// Those that are sung to the part. Ticks and chords of both are counted as their pages do.
void takeWordsOfPart(QBSong& song, int from, int to, QBSong& part) {
  if (!song.artist().empty()) part.setArtist(song.artist());
  if (song.lyrics().empty() || part.chords().empty()) return;
  part.forgetCaches();
  const std::vector<int> ticks = ticksOfChords(song);
  const auto& chords = song.allChords();
  std::optional<int> begin;
  int end = 0;
  for (std::size_t i = 0; i < chords.size(); ++i) {
    if (chords[i]->position() < from || chords[i]->position() > to) continue;
    if (!begin) begin = ticks[i];
    end = ticks[i + 1];
  }
  if (!begin) return;
  const int moved = ticksOfChords(part).front() - *begin;
  std::vector<SungWords> words;
  for (const SungWords& each : lyricsOf(song))
    if (each.tick >= *begin && each.tick < end) words.push_back({each.tick + moved, each.text});
  setLyrics(part, std::move(words));
}

QBSong* partOf(QBSong& song, int from, int to) {
  QBSong* part = emptyBeside(song, nameOf(song).extractPartChords(from, to));
  if (!song.isOnBeats()) return filled(part, song, QBChordExtractor(from, to, part));
  extractBeats(song, from, to, *part);
  buildTab(*part);
  return part;
}

}  // namespace

QBSong* mergeWithSong(QBSong& song, QBSong& other) {
  QBSong& longer = song.allChords().size() >= other.allChords().size() ? song : other;
  QBSong* merged = longer.clone();
  merged->setTitle(merged->title() + "(mrg)");
  if (song.isOnBeats() && other.isOnBeats()) {
    mergeBeats(longer, *merged, &longer == &song ? other : song);
    buildTab(*merged);
    return merged;
  }
  // The tones always come from the argument: merged with a longer song, that song's clone takes its
  // own tones, as intended.
  const auto& into = merged->allChords();
  const auto& from = other.allChords();
  for (std::size_t i = 0; i < from.size(); ++i) into[i]->mergeWith(*from[i]);
  if (longer.isOnBeats()) keepBeats(longer, *merged);
  buildTab(*merged);
  return merged;
}

QBSong* extractPartOfSong(QBSong& song, int from, int to) {
  QBSong* part = partOf(song, from, to);
  takeWordsOfPart(song, from, to, *part);
  return part;
}

}  // namespace korvel
