// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/doubts/DoubtsOfSong.h"

#include <cstdio>
#include <string>
#include <vector>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/choices/SongChoice.h"
#include "export/NotesJson.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/SongTime.h"
#include "music/Neck.h"
#include "music/NoteName.h"
#include "music/Ticks.h"
#include "workflow/editing/doubts/DoubtList.h"

namespace korvel::cli {
namespace {

struct DoubtsOptions {
  std::string song;
  bool all = false;
  bool json = false;
};

/// Where chords stand in the bars of a song on beats.
class BarPlaces {
 public:
  explicit BarPlaces(QBSong& song) : m_song(song), m_time(song) {}

  void tell(int chord, JudgedNote& note) const {
    if (!m_song.isOnBeats() || chord < 0) return;
    const auto& chords = m_song.allChords();
    const auto index = static_cast<std::size_t>(chord);
    const QBMeasure* bar = chords[index]->measure();
    if (!bar) return;
    const bool hasPickUp = m_time.begin() < 0;
    note.bar = bar->position() - (hasPickUp ? 1 : 0);
    std::size_t first = index;
    while (first > 0 && chords[first - 1]->measure() == bar) --first;
    const int begin =
        hasPickUp && first == 0 ? -ticksOfBar(bar->beat(), bar->beattype()) : m_time.tickOf(first);
    note.beat = 1 + static_cast<double>(m_time.tickOf(index) - begin) / kTicksOfBeat;
  }

 private:
  QBSong& m_song;
  const SongTime m_time;
};

std::vector<JudgedNote> judgedNotes(QBSong& song) {
  const SongNotes notes(song);
  const DoubtList doubts(song, notes);
  const BarPlaces places(song);
  std::vector<JudgedNote> judged(notes.size());
  for (std::size_t i = 0; i < notes.size(); ++i) {
    judged[i] = {i + 1, notes[i].note, notes[i].chord + 1, 0,
                 0,     notes[i].isIn, notes[i].isLocked,  {}};
    places.tell(notes[i].chord, judged[i]);
  }
  for (const DoubtfulPlace& place : doubts.places())
    for (const Doubt& doubt : place.doubts) judged[doubt.note].doubt = doubt.reason.english();
  return judged;
}

/// Text that is cut to no width.
std::string padded(const std::string& text, std::size_t width) {
  return text.size() < width ? text + std::string(width - text.size(), ' ') : text;
}

std::string numberText(const char* format, double value) {
  char text[32];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

std::string placeText(const JudgedNote& judged) {
  if (judged.beat <= 0) return "-";
  return std::to_string(judged.bar) + ':' + numberText("%.4g", judged.beat);
}

/// "5/3": string 5, counted from the highest, at fret 3.
std::string neckText(const fingering::Note& note) {
  if (note.string < 0) return "-";
  return std::to_string(kStrings - note.string) + '/' + std::to_string(note.fret);
}

std::string stateText(const JudgedNote& judged) {
  const std::string state = judged.isIn ? "in the song" : "candidate";
  return judged.isLocked ? state + ", locked" : state;
}

std::string lineOf(const std::string& number, const std::string& place, const std::string& time,
                   const std::string& neck, const std::string& name, const std::string& probability,
                   const std::string& text) {
  return padded(number, 7) + padded(place, 9) + padded(time, 9) + padded(neck, 6) +
         padded(name, 5) + padded(probability, 6) + text + '\n';
}

std::string lineOf(const JudgedNote& judged, bool all) {
  const fingering::Note& note = judged.note;
  std::string text = all ? stateText(judged) : judged.doubt;
  if (all && !judged.doubt.empty()) text += "; " + judged.doubt;
  return lineOf(std::to_string(judged.number), placeText(judged), numberText("%.3f", note.onset),
                neckText(note), noteName(note.pitch),
                numberText("%.2f", static_cast<double>(note.probability)), text);
}

std::string tableOf(const std::vector<JudgedNote>& notes, bool all) {
  std::string lines =
      lineOf("number", "bar:beat", "time", "neck", "note", "prob.", all ? "" : "doubt");
  for (const JudgedNote& note : notes)
    if (all || !note.doubt.empty()) lines += lineOf(note, all);
  return lines;
}

void printDoubts(const DoubtsOptions& options) {
  QBSong& song = chooseSong(options.song);
  if (const auto why = SongNotes::refusal(song)) throw CliError(why->english());
  const std::vector<JudgedNote> notes = judgedNotes(song);
  if (options.json)
    Console::attached().print(notesAsJson(notes));
  else
    Console::attached().print(tableOf(notes, options.all));
}

}  // namespace

void addDoubtsOfSong(Command& tool) {
  Command& command = tool.command("doubts", "List where a song may have been heard wrong");
  auto& options = command.own<DoubtsOptions>();
  needStoredSong(command, options.song);
  command.flag("--all", options.all, "List all that was heard, candidates that were not taken too");
  command.flag("--json", options.json, "As JSON: all that was heard, and what is locked");
  command.does([&options] { printDoubts(options); });
}

}  // namespace korvel::cli
