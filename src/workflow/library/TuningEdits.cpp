// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/TuningEdits.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBString.h"
#include "model/instruments/QBTuning.h"
#include "model/recorded/ConcertA.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/ConcertPitch.h"
#include "music/NoteName.h"
#include "music/Pitch.h"
#include "workflow/library/NameRules.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using platform::phrase;

constexpr int kWay = 5;  // half tones that a string can be tuned off its usual pitch
constexpr PitchRange kLowestString{31, 47};

struct Preset {
  KnownTuning tuning;
  const char* name;
  /// Of those with frequencies of their own; null for those that have pitches.
  void (QBTuning::*strings)();
  OpenPitches pitches;
};

constexpr std::array kPresets{
    Preset{KnownTuning::standard, "Standard", &QBTuning::createStandardStrings, {}},
    Preset{KnownTuning::dropD, "Drop D", &QBTuning::createDropDStrings, {}},
    Preset{KnownTuning::openG, "Open G", nullptr, {38, 43, 50, 55, 59, 62}},
    Preset{KnownTuning::openD, "Open D", nullptr, {38, 45, 50, 54, 57, 62}},
    Preset{KnownTuning::dadgad, "DADGAD", nullptr, {38, 45, 50, 55, 57, 62}},
    Preset{KnownTuning::eFlat, "Eb", nullptr, {39, 44, 49, 54, 58, 63}},
    Preset{KnownTuning::dStandard, "D standard", nullptr, {38, 43, 48, 53, 57, 62}},
    Preset{KnownTuning::openE, "Open E", nullptr, {40, 47, 52, 56, 59, 64}},
    Preset{KnownTuning::dropC, "Drop C", nullptr, {36, 43, 48, 53, 57, 62}},
};

const Preset& presetOf(KnownTuning tuning) {
  return *std::ranges::find(kPresets, tuning, &Preset::tuning);
}

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

/// The last of all. Strings as in standard tuning have its frequencies.
QBTuning* createWith(QBTabMgr& db, const std::string& name, const OpenPitches& pitches) {
  QBTuning* standard = createTuning(db, name);
  standard->createStandardStrings();
  QBTuning* tuning = db.createTuning(name, standard->order());
  createStrings(db, *tuning, *standard, pitches);
  remove(db, *standard);
  return tuning;
}

std::string notesOf(const OpenPitches& pitches) {
  std::string notes;
  for (const int pitch : pitches) notes += (notes.empty() ? "" : " ") + noteName(pitch);
  return notes;
}

}  // namespace

const char* nameOf(KnownTuning tuning) { return presetOf(tuning).name; }

std::optional<KnownTuning> knownTuningOf(const OpenPitches& pitches) {
  if (pitches == kStandardPitches) return KnownTuning::standard;
  if (pitches == kDropDPitches) return KnownTuning::dropD;
  const auto* found = std::ranges::find(kPresets, pitches, &Preset::pitches);
  return found == kPresets.end() ? std::nullopt : std::optional(found->tuning);
}

std::span<const KnownTuning> knownTunings() {
  static constexpr auto kTunings = [] {
    std::array<KnownTuning, kPresets.size()> tunings{};
    std::ranges::transform(kPresets, tunings.begin(), &Preset::tuning);
    return tunings;
  }();
  return kTunings;
}

std::vector<OpenPitches> pitchesOfKnownTunings() {
  std::vector<OpenPitches> all{kStandardPitches, kDropDPitches};
  for (const Preset& preset : kPresets)
    if (!preset.strings) all.push_back(preset.pitches);
  return all;
}

std::string nameOfTuning(const OpenPitches& pitches) {
  const auto known = knownTuningOf(pitches);
  return known ? nameOf(*known) : notesOf(pitches);
}

std::string nameOfTuning(const FoundTuning& found) {
  const std::string name = nameOfTuning(found.open);
  return found.farA ? name + ", " + concertAText(*found.farA) : name;
}

std::string notesOf(QBTuning& tuning) { return notesOf(tuning.openStrings().pitches()); }

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
  const Preset& preset = presetOf(from);
  const std::string free = name ? *name : freeName(edit.db(), preset.name);
  QBTuning* tuning = nullptr;
  if (preset.strings) {
    tuning = createTuning(edit.db(), free);
    (tuning->*preset.strings)();
  } else {
    tuning = createWith(edit.db(), free, preset.pitches);
  }
  edit.done(phrase("Log", "Tuning created."));
  return tuning;
}

QBTuning* newTuning(const std::string& name, const OpenPitches& pitches) {
  Edit edit(phrase("UndoAction", "New Tuning"));
  requireFree(edit.db(), name);
  requirePlayable(pitches);
  QBTuning* tuning = createWith(edit.db(), name, pitches);
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
