// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/TuningEdits.h"

#include <algorithm>
#include <cmath>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBString.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/ConcertPitch.h"
#include "music/Pitch.h"
#include "platform/persistence/UndoManager.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

constexpr int kWay = 5;  // half tones that a string can be tuned off its usual pitch
constexpr PitchRange kLowestString{31, 47};

QBTabMgr& db() { return QBTabMgr::db(); }

platform::UndoManager& undoManager() { return db().context().undoManager(); }

void done(std::string_view line) {
  db().save();
  QBSession::session().addToLog(line);
  QBSession::session().refreshTree();
}

bool isTaken(const std::string& name) {
  return std::ranges::any_of(db().tunings(),
                             [&](const auto& each) { return each->descr() == name; });
}

void requireFree(const std::string& name) {
  if (name.find_first_not_of(" \t\r\n") == std::string::npos)
    throw EditRefused("A tuning needs a name; type one");
  if (isTaken(name))
    throw EditRefused(name + ": there is a tuning of that name already; choose another name");
}

std::string freeName(std::string name) {
  while (isTaken(name)) name += "_2";
  return name;
}

int nextOrder() {
  int last = 0;
  for (const auto& tuning : db().tunings()) last = std::max(last, tuning->order());
  return last + 1;
}

/// As precise as the seeded ones are.
float hertzOf(int pitch) { return static_cast<float>(std::round(hertzOfNote(pitch) * 100) / 100); }

void requirePlayable(const OpenPitches& pitches) {
  for (int string = 0; string < kStrings; ++string) {
    const auto i = static_cast<std::size_t>(string);
    const PitchRange range = pitchRangeOf(string);
    if (pitches[i] < range.lowest || pitches[i] > range.highest)
      throw EditRefused("String " + std::to_string(kStrings - string) +
                        " cannot be tuned that far; choose a nearer note");
    if (i > 0 && pitches[i] <= pitches[i - 1])
      throw EditRefused("String " + std::to_string(kStrings - string) +
                        " must be higher than the string below it; choose another note");
  }
}

void requireUnused(const QBTuning& tuning) {
  if (!tuning.songs().empty() || !tuning.instruments().empty())
    throw EditRefused(tuning.descr() +
                      ": songs or instruments are written in it; make a new tuning and edit that");
}

void createStrings(QBTuning& tuning, QBTuning& like, const OpenPitches& pitches) {
  const OpenPitches before = pitchesOf(like);
  for (int string = 0; string < kStrings; ++string) {
    const auto i = static_cast<std::size_t>(string);
    const bool same = pitches[i] == before[i];
    const auto hertz = same ? static_cast<float>(like.findStringByPosition(string)->frequency())
                            : hertzOf(pitches[i]);
    db().createString(&tuning, pitchClass(pitches[i]), string, hertz);
  }
}

void remove(QBTuning& tuning) {
  for (const auto& string : tuning.strings().snapshot()) db().deleteInstance(string);
  auto others = db().tunings();
  std::erase_if(others, [&](const auto& each) { return each.get() == &tuning; });
  db().setTunings(std::move(others));
  db().deleteInstance(&tuning);
}

}  // namespace

void selectTuning(QBTuning& tuning) {
  const platform::UndoGroup group(undoManager(), "Select Tuning");
  db().selectTuning(&tuning);
  done("Tuning selected.");
}

void renameTuning(QBTuning& tuning, const std::string& name) {
  const platform::UndoGroup group(undoManager(), "Rename Tuning");
  if (name == tuning.descr()) return;
  requireFree(name);
  tuning.setDescr(name);
  done("Tuning renamed.");
}

QBTuning* newTuning(KnownTuning from, const std::optional<std::string>& name) {
  const platform::UndoGroup group(undoManager(), "New Tuning");
  if (name) requireFree(*name);
  const auto make = [&](const char* kind, void (QBTuning::*strings)()) {
    QBTuning* tuning = db().createTuning(name.value_or(freeName(kind)), nextOrder());
    (tuning->*strings)();
    done("Tuning created.");
    return tuning;
  };
  if (from == KnownTuning::dropD) return make("Drop D", &QBTuning::createDropDStrings);
  if (from == KnownTuning::openG) return make("Open G", &QBTuning::createOpenGStrings);
  return make("Standard", &QBTuning::createStandardStrings);
}

QBTuning* newTuning(const std::string& name, const OpenPitches& pitches) {
  const platform::UndoGroup group(undoManager(), "New Tuning");
  requireFree(name);
  requirePlayable(pitches);
  QBTuning* standard = db().createTuning(name, nextOrder());
  standard->createStandardStrings();
  QBTuning* tuning = db().createTuning(name, standard->order());
  createStrings(*tuning, *standard, pitches);
  remove(*standard);
  done("Tuning created.");
  return tuning;
}

OpenPitches pitchesOf(QBTuning& tuning) {
  OpenPitches pitches{};
  for (int string = 0; string < kStrings; ++string)
    pitches[static_cast<std::size_t>(string)] =
        noteOfHertz(tuning.findStringByPosition(string)->frequency());
  return pitches;
}

PitchRange pitchRangeOf(int string) {
  if (string == 0) return kLowestString;
  const int usual = kStandardPitches.at(static_cast<std::size_t>(string));
  return {usual - kWay, usual + kWay};
}

// The order and the names of a tuning's strings are computed once, so another tuning is made
// instead of changing this one.
QBTuning* editTuning(QBTuning& tuning, const OpenPitches& pitches) {
  const platform::UndoGroup group(undoManager(), "Change Tuning");
  if (pitches == pitchesOf(tuning)) return &tuning;
  requirePlayable(pitches);
  requireUnused(tuning);
  const bool selected = db().selectedTuning() == &tuning;
  const std::string name = tuning.descr();
  QBTuning* edited = db().createTuning(name, tuning.order());
  createStrings(*edited, tuning, pitches);
  remove(tuning);
  if (selected) db().selectTuning(edited);
  done("Tuning changed.");
  return edited;
}

}  // namespace korvel
