// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/DerivedSong.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongLyrics.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "tab/page/PageOfSong.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/bars/KeptBeats.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

[[noreturn]] void refuseEmpty(const QBSong& song, const SongCommand& command) {
  throw EditRefused(
      platform::phrase("Message", "%1: \"%2\" would leave nothing to play, so it made no song"),
      song.title(), command.title);
}

QBSong* madeForPlayers(QBSong& song, const SongCommand& command, const std::string& title) {
  const std::size_t songs = song.requireAlbum().songs().size();
  try {
    return command.make.forPlayers(song, title);
  } catch (const std::out_of_range&) {
    // Of a song without chords no tablature can be drawn.
    const auto all = song.requireAlbum().songs().snapshot();
    if (all.size() > songs && all.back()->chords().empty()) refuseEmpty(song, command);
    throw;
  }
}

/// On beats there is no song without bars.
QBSong* madeByLetter(QBSong& song, const SongCommand& command, const std::string& title) {
  QBSong* made = command.make.literal(song, title);
  if (song.isOnBeats()) keepTimes(song, *made);
  return made;
}

/// Of a chord or a tone; answers whether it changed.
template <class Timed>
bool keepDuration(const Timed& source, Timed& made) {
  if (!source.hasDuration() || source.duration() == made.duration()) return false;
  made.setDuration(source.duration());
  return true;
}

bool keepDurations(const QBChord& source, QBChord& made) {
  bool changed = keepDuration(source, made);
  for (const auto& tone : tonesOf(source))
    for (const auto& copy : tonesOf(made))
      if (copy->equals(*tone)) changed |= keepDuration(*tone, *copy);
  return changed;
}

void keepBars(QBSong& source, QBSong& made) {
  std::map<const QBChord*, QBChord*> copies;
  for (std::size_t i = 0; i < source.allChords().size(); ++i)
    copies[source.allChords()[i]] = made.allChords()[i];
  for (const auto& bar : source.allMeasures()) {
    QBMeasure* copy = QBTabMgr::of(made).createMeasure(&made, bar->beat(), bar->beattype());
    copy->setPosition(bar->position());
    for (const auto& chord : bar->allChords())
      if (const auto found = copies.find(chord.get()); found != copies.end())
        copy->addChord(found->second);
  }
}

/// The durations and the bars.
void keepLengths(QBSong& source, QBSong& made) {
  if (!made.measures().empty()) return;
  if (source.isOnBeats()) {
    keepBeats(source, made);
    if (!made.chords().empty()) buildTab(made);
    return;
  }
  const auto& chords = source.allChords();
  const auto& copies = made.allChords();
  if (chords.size() != copies.size()) return;
  bool changed = !source.measures().empty();
  for (std::size_t i = 0; i < chords.size(); ++i) changed |= keepDurations(*chords[i], *copies[i]);
  keepBars(source, made);
  if (!changed || copies.empty()) return;
  buildTab(made);
}

}  // namespace

QBSong* derived(QBSong& song, const SongCommand& command, Manner manner) {
  const std::string title = command.tag.empty() ? "" : nameOf(song).tagged(command.tag);
  if (manner == Manner::literal) return madeByLetter(song, command, title);
  QBSong* made = madeForPlayers(song, command, title);
  if (!sounds(*made)) refuseEmpty(song, command);
  keepTimes(song, *made);
  return made;
}

QBSong* derivedByLetter(QBSong& song, std::string_view command) {
  return derived(song, *findSongCommand(command), Manner::literal);
}

void requireSound(const QBSong& song, const SongCommand& command) {
  if (!sounds(song)) refuseEmpty(song, command);
}

void keepTimes(QBSong& source, QBSong& made) {
  keepLengths(source, made);
  keepWords(source, made);
}

void keepWords(QBSong& source, QBSong& made) {
  if (source.isOnBeats()) return made.takeWordsOf(source);
  if (source.chords().size() != made.chords().size()) return;
  made.takeWordsOf(source);
  std::vector<SungWords> words = lyricsOf(source);
  if (words.empty()) return;
  const std::vector<int> before = ticksOfChords(source);
  const std::vector<int> now = ticksOfChords(made);
  if (before == now || before.size() != now.size()) return;
  for (SungWords& each : words) {
    const auto after = std::ranges::upper_bound(before, each.tick);
    const auto chord = after == before.begin() ? 0 : after - before.begin() - 1;
    each.tick = now[static_cast<std::size_t>(chord)];
  }
  setLyrics(made, std::move(words));
}

}  // namespace korvel
