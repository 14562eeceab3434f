// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/SongJson.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "export/ChordsJson.h"
#include "export/score/SongScore.h"
#include "export/score/Spelling.h"
#include "fingering/Note.h"
#include "model/book/QBHarmony.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongTime.h"
#include "music/Pitch.h"
#include "rhythm/Reading.h"

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
  Json json = {{"string", tone.string()},
               {"fret", tone.fret()},
               {"note", tone.note()},
               {"amp", tone.amp()},
               {"duration", valueIf(tone.hasDuration(), tone.duration())},
               {"active", tone.isActive()},
               {"group", valueIf(tone.hasGroup(), tone.group())}};
  if (tone.hasTicks()) json["ticks"] = tone.ticks();
  return json;
}

/// "Bb"; without a key as the program calls it.
std::string nameOf(int pitchClass, const ScoreKey* key) {
  const SpelledNote note = spelled(pitchClass + kNotesPerOctave, nullptr, key);
  const char* const signs[] = {"b", "", "#"};
  return note.step + std::string(signs[note.alter + 1]);
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

/// "Bb:major".
std::string nameOf(const ScoreKey& key) {
  return nameOf(key.tonic, &key) + (key.minor ? ":minor" : ":major");
}

void addBeatsOf(Json& json, QBSong& song) {
  json["tempo"] = song.tempo();
  json["swing"] = song.isSwung();
  json["key"] = song.hasKey() ? Json(nameOf(keyOf(song))) : Json(nullptr);
}

Json chordsAsJson(QBSong& song) {
  Json chords = Json::array();
  const SongTime time(song);
  for (std::size_t i = 0; const auto& chord : song.allChords()) {
    chords.push_back(asJson(*chord));
    if (song.isOnBeats()) {
      chords.back()["tick"] = time.tickOf(i);
      chords.back()["ticks"] = chord->ticks();
    }
    ++i;
  }
  return chords;
}

Json asJson(QBSong& song) {
  Json measures = Json::array();
  for (const auto& measure : song.allMeasures()) measures.push_back(asJson(*measure));
  Json json = {{"album", song.album() ? Json(song.album()->name()) : Json(nullptr)},
               {"title", song.title()},
               {"instrument", valueIf(song.hasInstrument(), song.instrument())},
               {"tuning", song.tuning() ? Json(song.tuning()->descr()) : Json(nullptr)},
               {"tempoRate", song.tempoRate()},
               {"fromChord", positionOf(song.fromChord())},
               {"toChord", positionOf(song.toChord())}};
  if (song.isOnBeats()) addBeatsOf(json, song);
  json["chords"] = chordsAsJson(song);
  json["measures"] = std::move(measures);
  json["tabulature"] = valueIf(song.hasTabulature(), song.tabulature());
  return json;
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

Json asJson(std::span<const fingering::Note> notes, const rhythm::Reading& reading) {
  Json list = Json::array();
  for (std::size_t i = 0; i < notes.size(); ++i) {
    list.push_back(asJson(notes[i]));
    if (i >= reading.notes.size()) continue;
    list.back()["tick"] = reading.notes[i].tick;
    list.back()["ticks"] = reading.notes[i].ticks;
  }
  return list;
}

Json timesAsJson(const rhythm::Reading& reading, std::size_t from, std::size_t step) {
  Json times = Json::array();
  for (std::size_t i = from; i < reading.beats.size(); i += step)
    times.push_back(rounded(reading.beats[i], kPerSecond));
  return times;
}

std::string nameOf(const rhythm::ChordSpan& chord, const ScoreKey* key) {
  if (chord.root < 0) return "N";
  const char* const qualities[] = {"maj", "min", "7", "min7", "maj7"};
  return nameOf(chord.root, key) + ':' + qualities[static_cast<std::size_t>(chord.quality)];
}

Json chordsAsJson(const rhythm::Reading& reading, const ScoreKey* key) {
  Json chords = Json::array();
  for (const rhythm::ChordSpan& chord : reading.chords)
    chords.push_back(
        Json::array({rounded(reading.secondsOf(chord.from), kPerSecond),
                     rounded(reading.secondsOf(chord.to), kPerSecond), nameOf(chord, key)}));
  return chords;
}

Json probabilitiesAsJson(const rhythm::Reading& reading) {
  Json probabilities = Json::array();
  for (const rhythm::ChordSpan& chord : reading.chords)
    probabilities.push_back(valueIf(chord.root >= 0, rounded(chord.probability, kPerUnit)));
  return probabilities;
}

Json othersAsJson(const rhythm::Rhythm& rhythm) {
  const char* const feels[] = {"straight", "swing", "triplets"};
  Json others = Json::array();
  for (const rhythm::Alternative& other : rhythm.others)
    others.push_back(
        {{"tempo", rounded(other.tempo, kPerUnit)},
         {"beatsPerBar", other.metre.beats},
         {"compound", other.metre.compound},
         {"feel", feels[static_cast<std::size_t>(other.feel)]},
         {"readingProbability", rounded(rhythm.probabilityOf(other.behind), kPerUnit)}});
  return others;
}

void addRhythm(Json& json, const rhythm::Rhythm& rhythm) {
  const rhythm::Reading& reading = rhythm.reading;
  const bool known = reading.key.has_value();
  const ScoreKey key = known ? ScoreKey{reading.key->tonic, reading.key->minor} : ScoreKey();
  json["beats"] = timesAsJson(reading, 0, 1);
  json["downbeats"] =
      timesAsJson(reading, reading.firstBar, static_cast<std::size_t>(reading.metre.beats));
  json["tempo"] = rounded(reading.tempo(), kPerUnit);
  json["beatsPerBar"] = reading.metre.beats;
  json["compound"] = reading.metre.compound;
  json["swing"] = reading.feel == rhythm::Feel::swing;
  json["key"] = known ? Json(nameOf(key)) : Json(nullptr);
  json["chords"] = chordsAsJson(reading, known ? &key : nullptr);
  json["chordProbabilities"] = probabilitiesAsJson(reading);
  const bool wasRead = !reading.beats.empty();
  json["readingProbability"] = valueIf(wasRead, rounded(rhythm.probabilityOf(0), kPerUnit));
  json["free"] = rhythm.isFree;
  json["others"] = othersAsJson(rhythm);
}

// Names taken from files may hold bytes that are no UTF-8; they show as replacement characters.
std::string dump(const Json& json) {
  return json.dump(kIndent, ' ', false, Json::error_handler_t::replace) + '\n';
}

Json asJson(const ChordOfRecording& chord) {
  return Json::array({rounded(chord.from, kPerSecond), rounded(chord.to, kPerSecond), chord.label,
                      rounded(chord.probability, kPerUnit), chord.name});
}

Json asJson(const VoiceOfRecording& voice) {
  Json json{{"voice", voice.name}, {"clear", voice.isClear}, {"notes", Json::array()}};
  for (const VoiceOfRecording::Note& note : voice.notes)
    json["notes"].push_back(
        Json::array({rounded(note.from, kPerSecond), rounded(note.to, kPerSecond), note.pitch,
                     rounded(note.probability, kPerUnit)}));
  return json;
}

}  // namespace

std::string songAsJson(QBSong& song) { return dump(asJson(song)); }

std::string songsAsJson(const std::vector<QBSong*>& songs) {
  Json all = Json::array();
  for (QBSong* song : songs) all.push_back(asJson(*song));
  return dump(all);
}

std::string notesAsJson(std::span<const fingering::Note> notes, const rhythm::Rhythm& rhythm) {
  Json json{{"notes", asJson(notes, rhythm.reading)}};
  addRhythm(json, rhythm);
  return json.dump(1) + '\n';
}

std::string notesAsJson(const std::vector<NotesOfFile>& files) {
  Json all = Json::array();
  for (const NotesOfFile& each : files) {
    all.push_back({{"file", each.file}, {"notes", asJson(each.notes, each.rhythm.reading)}});
    addRhythm(all.back(), each.rhythm);
  }
  return all.dump(1, ' ', false, Json::error_handler_t::replace) + '\n';
}

std::string chordsAsJson(const rhythm::Rhythm& rhythm, const std::vector<ChordOfRecording>& chords,
                         bool isBand, const std::vector<VoiceOfRecording>& voices) {
  Json json{{"what", isBand ? "band" : "guitar"}};
  addRhythm(json, rhythm);
  json["chords"] = Json::array();
  for (const ChordOfRecording& chord : chords) json["chords"].push_back(asJson(chord));
  for (const VoiceOfRecording& voice : voices) json["voices"].push_back(asJson(voice));
  return json.dump(1) + '\n';
}

}  // namespace korvel
