// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/sheets/ChordSong.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>
#include <vector>

#include "analysis/bands/BandGrips.h"
#include "arrange/chords/QBToneGroupBuilder.h"
#include "model/book/QBHarmony.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongLyrics.h"
#include "model/store/QBTabMgr.h"
#include "music/Ticks.h"
#include "platform/files/Files.h"
#include "platform/text/UserError.h"
#include "platform/text/Utf8.h"
#include "tab/chordpro/ChordProReader.h"
#include "tab/text/SongDrawing.h"
#include "workflow/hearing/NewSong.h"
#include "workflow/session/Edit.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

constexpr std::array<std::string_view, 5> kEndings{"cho", "chopro", "chordpro", "crd", "pro"};

using platform::phrase;

constexpr double kTempoOfUntold = 100;
/// As loud as a note that is played well.
constexpr double kAmpOfStrum = 1e6;

std::vector<ChordShape> gripsOf(const PageSource& chords, const OpenPitches& open) {
  std::vector<rhythm::ChordSpan> spans;
  for (const PageSource::Chord& chord : chords.chords) {
    rhythm::ChordSpan span;
    span.root = chord.root;
    span.pitchClasses = chord.pitchClasses;
    span.bass = chord.bass;
    spans.push_back(span);
  }
  fingering::FingeringOptions options;
  options.capo = chords.capo;
  std::vector<ChordShape> grips = BandGrips(open, options).of(spans);
  for (std::size_t i = 0; i < grips.size(); ++i)
    if (chords.chords[i].shape) grips[i] = *chords.chords[i].shape;
  return grips;
}

class Filling {
 public:
  Filling(QBSong& song, const PageSource& chords)
      : m_db(QBTabMgr::of(song)),
        m_song(song),
        m_chords(chords),
        m_grips(gripsOf(chords, openStringsOf(&song).pitches())) {}

  void fill() {
    std::size_t at = 0;
    int position = 0;
    for (const PageSource::Bar& bar : m_chords.bars) {
      QBMeasure* measure = m_db.createMeasure(&m_song, bar.beat, bar.beattype);
      measure->setPosition(++position);
      const int end = bar.tick + bar.ticks;
      for (int tick = bar.tick; tick < end;) {
        while (at + 1 < m_chords.chords.size() && m_chords.chords[at + 1].tick <= tick) ++at;
        const bool isLast = at + 1 == m_chords.chords.size();
        const int to = isLast ? end : std::min(end, m_chords.chords[at + 1].tick);
        strike(at, tick - bar.tick, to - bar.tick, *measure);
        tick = to;
      }
    }
    m_song.forgetCaches();
  }

 private:
  void strike(std::size_t at, int from, int to, QBMeasure& bar) {
    const bool compound = isCompound(bar.beat(), bar.beattype());
    QBChord& chord = *m_song.createChord();
    chord.setTicks(to - from);
    chord.setDuration(sixteenthsBetween(from, to, compound));
    for (int string = 0; string < kStrings; ++string) {
      const int fret = m_grips[at][static_cast<std::size_t>(string)];
      if (fret == kNotPlayed) continue;
      QBTone* tone = chord.hold()->applyTone(string, fret, kAmpOfStrum);
      tone->setTicks(to - from);
      tone->setDuration(sixteenthsAlone(from, to, compound));
    }
    bar.addChord(&chord);
    name(m_chords.chords[at], chord);
    QBToneGroupBuilder(&chord).build();
  }

  void name(const PageSource::Chord& named, QBChord& chord) {
    if (named.root < 0) return;
    for (const auto& harmony : m_db.harmonies())
      if (harmony->type() == named.type) chord.setHarmony(harmony);
    if (chord.harmony()) chord.setBaseTone(named.root);
  }

  QBTabMgr& m_db;
  QBSong& m_song;
  const PageSource& m_chords;
  const std::vector<ChordShape> m_grips;
};

bool hasChords(const PageSource& song) {
  return std::ranges::any_of(song.chords, [](const auto& chord) { return chord.root >= 0; });
}

std::string titleOf(const PageSource& song, const std::string& fileName) {
  const std::string title = platform::printable(song.title);
  return title.empty() ? std::filesystem::path(fileName).stem().string() : title;
}

void logUnknown(QBSession& session, const std::vector<std::string>& unknown) {
  std::string names;
  for (const std::string& name : unknown)
    names += (names.empty() ? "" : ", ") + platform::printable(name);
  if (!names.empty())
    session.addToLog(platform::UserText(
        phrase("Log", "Not in the chord book, and made plainer or left out: %1."), names));
}

}  // namespace

void fillWithChords(QBSong& song, const PageSource& chords) {
  song.setTempo(chords.tempo > 0 ? chords.tempo : kTempoOfUntold);
  if (chords.key) song.setKey(*chords.key);
  if (chords.capo > 0) song.setCapo(chords.capo);
  if (!chords.artist.empty()) song.setArtist(platform::printable(chords.artist));
  Filling(song, chords).fill();
  std::vector<SungWords> words;
  for (const PageSource::Words& each : chords.words) words.push_back({each.tick, each.text});
  setLyrics(song, std::move(words));
}

std::span<const std::string_view> endingsOfChordPro() { return kEndings; }

bool isChordProFile(const std::string& file) {
  std::string ending = std::filesystem::path(file).extension().string();
  std::ranges::transform(ending, ending.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  if (ending.empty()) return false;
  ending.erase(0, 1);  // its point
  if (std::ranges::find(kEndings, ending) == kEndings.end()) return false;
  return isChordPro(platform::bytesOrNone(file));
}

QBSong& songOfChordPro(QBTabMgr& db, std::string_view text, const std::string& fileName,
                       const ChordSongChoices& choices) {
  const ReadChordPro read = readChordPro(db, text);
  if (!hasChords(read.song))
    throw platform::UserError(
        phrase("Message", "%1: there are no chords in brackets or grids in it"), fileName);
  Edit edit(phrase("UndoAction", "Import Chords"));
  std::optional<std::string> album = choices.album;
  const std::string artist = platform::printable(read.song.artist);
  if (!album && !artist.empty()) album = artist;
  NewSong made(db, album, titleOf(read.song, fileName), choices.title);
  QBSong& song = *made.song();
  fillWithChords(song, read.song);
  buildTab(song);
  made.keep();
  edit.done(phrase("Log", "Song successfully imported."));
  logUnknown(edit.session(), read.unknown);
  return song;
}

}  // namespace korvel
