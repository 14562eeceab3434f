// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/SongJson.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "fingering/Note.h"
#include "model/book/QBHarmony.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"

namespace korvel {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kIndent = 2;
constexpr double kPerSecond = 10000;
constexpr double kPerUnit = 1000;

template <class T>
Json valueIf(bool set, const T& value) {
  return set ? Json(value) : Json(nullptr);
}

Json positionOf(const QBChord* chord) { return chord ? Json(chord->position()) : Json(nullptr); }

Json asJson(const QBTone& tone) {
  return {{"string", tone.string()},
          {"fret", tone.fret()},
          {"note", tone.note()},
          {"amp", tone.amp()},
          {"duration", valueIf(tone.hasDuration(), tone.duration())},
          {"active", tone.isActive()},
          {"group", valueIf(tone.hasGroup(), tone.group())}};
}

Json tonesAsJson(const QBHold* hold) {
  Json tones = Json::array();
  if (!hold) return tones;
  for (const QBTone* tone : hold->tones()) tones.push_back(asJson(*tone));
  return tones;
}

Json asJson(const QBChord& chord) {
  const QBHarmony* harmony = chord.harmony();
  return {{"position", chord.position()},
          {"duration", valueIf(chord.hasDuration(), chord.duration())},
          {"timestamp", valueIf(chord.hasTimestamp(), chord.timestamp())},
          {"baseTone", valueIf(chord.hasBaseTone(), chord.baseTone())},
          {"harmony", harmony ? Json(harmony->type()) : Json(nullptr)},
          {"name", harmony ? Json(chord.fullHarmonyName()) : Json(nullptr)},
          {"groupNumber", valueIf(chord.hasGroupNumber(), chord.groupNumber())},
          {"tones", tonesAsJson(chord.hold())}};
}

Json asJson(const QBMeasure& measure) {
  Json positions = Json::array();
  for (const auto& chord : measure.allChords()) positions.push_back(chord->position());
  return {{"position", measure.position()},
          {"beat", measure.beat()},
          {"beattype", measure.beattype()},
          {"chords", positions}};
}

Json asJson(QBSong& song) {
  Json chords = Json::array();
  for (const auto& chord : song.allChords()) chords.push_back(asJson(*chord));
  Json measures = Json::array();
  for (const auto& measure : song.allMeasures()) measures.push_back(asJson(*measure));
  return {{"album", song.album() ? Json(song.album()->name()) : Json(nullptr)},
          {"title", song.title()},
          {"instrument", valueIf(song.hasInstrument(), song.instrument())},
          {"tuning", song.tuning() ? Json(song.tuning()->descr()) : Json(nullptr)},
          {"tempoRate", song.tempoRate()},
          {"fromChord", positionOf(song.fromChord())},
          {"toChord", positionOf(song.toChord())},
          {"chords", std::move(chords)},
          {"measures", std::move(measures)},
          {"tabulature", valueIf(song.hasTabulature(), song.tabulature())}};
}

double rounded(double value, double steps) { return std::round(value * steps) / steps; }

Json placeOf(int number) { return number < 0 ? Json(nullptr) : Json(number); }

Json asJson(const fingering::Note& note) {
  return {{"onset", rounded(note.onset, kPerSecond)},
          {"offset", rounded(note.end, kPerSecond)},
          {"midi", note.pitch},
          {"string", placeOf(note.string)},
          {"fret", placeOf(note.fret)},
          {"strength", rounded(note.strength, kPerUnit)},
          {"probability", rounded(note.probability, kPerUnit)}};
}

Json asJson(std::span<const fingering::Note> notes) {
  Json list = Json::array();
  for (const fingering::Note& note : notes) list.push_back(asJson(note));
  return list;
}

// Names taken from files may hold bytes that are no UTF-8; they show as replacement characters.
std::string dump(const Json& json) {
  return json.dump(kIndent, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace

std::string songAsJson(QBSong& song) { return dump(asJson(song)); }

std::string songsAsJson(const std::vector<QBSong*>& songs) {
  Json all = Json::array();
  for (QBSong* song : songs) all.push_back(asJson(*song));
  return dump(all);
}

std::string notesAsJson(std::span<const fingering::Note> notes) {
  return Json{{"notes", asJson(notes)}}.dump(1) + '\n';
}

std::string notesAsJson(const std::vector<NotesOfFile>& files) {
  Json all = Json::array();
  for (const NotesOfFile& each : files)
    all.push_back({{"file", each.file}, {"notes", asJson(each.notes)}});
  return all.dump(1, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace korvel
