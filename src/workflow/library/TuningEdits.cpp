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
#include "workflow/library/NameRules.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using platform::phrase;

constexpr int kWay = 5;  // half tones that a string can be tuned off its usual pitch
constexpr PitchRange kLowestString{31, 47};

bool isTaken(const QBTabMgr& db, const std::string& name) {
  return std::ranges::any_of(db.tunings(), [&](const auto& each) { return each->descr() == name; });
}

void requireFree(const QBTabMgr& db, const std::string& name) {
  requireName(name, phrase("Message", "A tuning needs a name; type one"));
  if (isTaken(db, name))
    throw EditRefused(
        phrase("Message", "%1: there is a tuning of that name already; choose another name"), name);
}

std::string freeName(const QBTabMgr& db, std::string name) {
  while (isTaken(db, name)) name += "_2";
  return name;
}

/// The last of all.
QBTuning* createTuning(QBTabMgr& db, const std::string& name) {
  int last = 0;
  for (const auto& tuning : db.tunings()) last = std::max(last, tuning->order());
  return db.createTuning(name, last + 1);
}

/// As precise as the seeded ones are.
float hertzOf(int pitch) { return static_cast<float>(std::round(hertzOfNote(pitch) * 100) / 100); }

void requirePlayable(const OpenPitches& pitches) {
  for (int string = 0; string < kStrings; ++string) {
    const auto i = static_cast<std::size_t>(string);
    const PitchRange range = pitchRangeOf(string);
    if (pitches[i] < range.lowest || pitches[i] > range.highest)
      throw EditRefused(
          phrase("Message", "String %1 cannot be tuned that far; choose a nearer note"),
          kStrings - string);
    if (i > 0 && pitches[i] <= pitches[i - 1])
      throw EditRefused(
          phrase("Message",
                 "String %1 must be higher than the string below it; choose another note"),
          kStrings - string);
  }
}

/// refusal: what is said otherwise.
void requireUnused(const QBTuning& tuning, const platform::Phrase& refusal) {
  if (!tuning.songs().empty() || !tuning.instruments().empty())
    throw EditRefused(refusal, tuning.descr());
}

void createStrings(QBTabMgr& db, QBTuning& tuning, QBTuning& like, const OpenPitches& pitches) {
  const OpenPitches before = like.openStrings().pitches();
  for (int string = 0; string < kStrings; ++string) {
    const auto i = static_cast<std::size_t>(string);
    const bool same = pitches[i] == before[i];
    const auto hertz = same ? static_cast<float>(like.findStringByPosition(string)->frequency())
                            : hertzOf(pitches[i]);
    db.createString(&tuning, pitchClass(pitches[i]), string, hertz);
  }
}

void remove(QBTabMgr& db, QBTuning& tuning) {
  for (const auto& string : tuning.strings().snapshot()) db.deleteInstance(string);
  auto others = db.tunings();
  std::erase_if(others, [&](const auto& each) { return each.get() == &tuning; });
  db.setTunings(std::move(others));
  db.deleteInstance(&tuning);
}

}  // namespace

void selectTuning(QBTuning& tuning) {
  Edit edit(phrase("UndoAction", "Select Tuning"));
  edit.db().selectTuning(&tuning);
  edit.done(phrase("Log", "Tuning selected."));
}

void renameTuning(QBTuning& tuning, const std::string& name) {
  Edit edit(phrase("UndoAction", "Rename Tuning"));
  if (name == tuning.descr()) return;
  requireFree(edit.db(), name);
  tuning.setDescr(name);
  edit.done(phrase("Log", "Tuning renamed."));
}

QBTuning* newTuning(KnownTuning from, const std::optional<std::string>& name) {
  Edit edit(phrase("UndoAction", "New Tuning"));
  if (name) requireFree(edit.db(), *name);
  const auto make = [&](const char* kind, void (QBTuning::*strings)()) {
    QBTuning* tuning = createTuning(edit.db(), name ? *name : freeName(edit.db(), kind));
    (tuning->*strings)();
    edit.done(phrase("Log", "Tuning created."));
    return tuning;
  };
  if (from == KnownTuning::dropD) return make("Drop D", &QBTuning::createDropDStrings);
  if (from == KnownTuning::openG) return make("Open G", &QBTuning::createOpenGStrings);
  return make("Standard", &QBTuning::createStandardStrings);
}

QBTuning* newTuning(const std::string& name, const OpenPitches& pitches) {
  Edit edit(phrase("UndoAction", "New Tuning"));
  requireFree(edit.db(), name);
  requirePlayable(pitches);
  QBTuning* standard = createTuning(edit.db(), name);
  standard->createStandardStrings();
  QBTuning* tuning = edit.db().createTuning(name, standard->order());
  createStrings(edit.db(), *tuning, *standard, pitches);
  remove(edit.db(), *standard);
  edit.done(phrase("Log", "Tuning created."));
  return tuning;
}

PitchRange pitchRangeOf(int string) {
  if (string == 0) return kLowestString;
  const int usual = kStandardPitches.at(static_cast<std::size_t>(string));
  return {usual - kWay, usual + kWay};
}

// The order and the names of a tuning's strings are computed once, so another tuning is made
// instead of changing this one.
QBTuning* editTuning(QBTuning& tuning, const OpenPitches& pitches) {
  Edit edit(phrase("UndoAction", "Change Tuning"));
  if (pitches == tuning.openStrings().pitches()) return &tuning;
  requirePlayable(pitches);
  requireUnused(
      tuning,
      phrase("Message",
             "%1: songs or instruments are written in it; make a new tuning and edit that"));
  QBTabMgr& db = edit.db();
  const bool selected = db.selectedTuning() == &tuning;
  const std::string name = tuning.descr();
  QBTuning* edited = db.createTuning(name, tuning.order());
  createStrings(db, *edited, tuning, pitches);
  remove(db, tuning);
  if (selected) db.selectTuning(edited);
  edit.done(phrase("Log", "Tuning changed."));
  return edited;
}

void deleteTuning(QBTuning& tuning) {
  Edit edit(phrase("UndoAction", "Delete Tuning"));
  QBTabMgr& db = edit.db();
  requireUnused(
      tuning, phrase("Message", "%1: songs or instruments are written in it; delete those first"));
  if (db.tunings().size() < 2)
    throw EditRefused(phrase("Message", "%1: is the only tuning; add another one first"),
                      tuning.descr());
  const bool selected = db.selectedTuning() == &tuning;
  remove(db, tuning);
  if (selected) db.selectTuning(db.tunings().front());
  edit.done(phrase("Log", "Tuning was successfully deleted."));
}

}  // namespace korvel
