// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "arrange/harmony/HarmonyOfChord.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "platform/persistence/UndoManager.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/ChangedTones.h"
#include "workflow/editing/MeasureLayout.h"
#include "workflow/editing/NotWithin.h"
#include "workflow/editing/SongEditor.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using platform::phrase;

/// A fret was typed, which the next digit may continue.
constexpr platform::ActionKind kFretEdit{};

void requireString(int string) {
  requireWithin(phrase("Message", "string %1 is not within %2 to %3"), string, 0, kStrings - 1);
}

bool soundsAlone(const Tones& tones, int fret) {
  return tones.size() == 1 && tones.front()->fret() == fret && tones.front()->isActive();
}

}  // namespace

// ---- tones

void SongEditor::setFret(int chord, int string, int fret, bool continues) {
  requireString(string);
  requireWithin(phrase("Message", "fret %1 is not within %2 to %3"), fret, 0, kHighestFret);
  if (continues && m_db.context().undoManager().undoActionKind() == &kFretEdit) m_db.undo();
  QBChord& edited = chordAt(chord);
  const QBHold* hold = edited.hold();
  const Tones known = hold ? hold->allTonesOfString(string) : Tones();
  if (soundsAlone(known, fret)) return;
  const platform::Phrase title =
      known.empty() ? phrase("UndoAction", "Add Tone") : phrase("UndoAction", "Change Fret");
  const auto work = [&] {
    if (known.empty()) {
      addVoice(chord, string, fret);
    } else {
      edited.hold()->setFretOfString(string, fret)->setActive(true);
      for (std::size_t other = 1; other < known.size(); ++other)
        edited.hold()->deleteTone(known[other]);
    }
    tonesChanged(chord);
  };
  edit(title, work, &kFretEdit);
}

QBHold& SongEditor::holdOf(QBChord& chord) {
  if (!chord.hold()) chord.setHold(m_db.createHold());
  return *chord.hold();
}

void SongEditor::addVoice(int index, int string, int fret) {
  const QBTone* model = loudestNear(index);
  QBTone* tone = holdOf(chordAt(index)).addTone(string, fret, model ? model->amp() : kAmp);
  if (!model) return;
  tone->setDuration(model->duration());
  if (model->hasTicks() && model->hold() == tone->hold()) tone->setTicks(model->ticks());
  if (model->hasGroup()) tone->setGroup(model->group());
}

/// Of the chord or, if it has no tones, the nearest one before it.
QBTone* SongEditor::loudestNear(int index) {
  const auto& chords = m_song->allChords();
  for (int at = index; at >= 0; --at) {
    const Tones tones = loudestFirst(*chords[static_cast<std::size_t>(at)]);
    if (!tones.empty()) return tones.front();
  }
  return nullptr;
}

void SongEditor::removeTone(int chord, int string) {
  requireString(string);
  QBChord& edited = chordAt(chord);
  if (!edited.hold() || !edited.hold()->findToneByString(string)) return;
  edit(phrase("UndoAction", "Remove Tone"), [&] {
    while (edited.hold()->findToneByString(string)) edited.hold()->deleteToneOfString(string);
    tonesChanged(chord);
  });
}

void SongEditor::setShape(int first, int last, const ChordName& name, const ChordShape& shape) {
  chordAt(last);
  chordAt(first);
  edit(phrase("UndoAction", "Set Chord"), [&] {
    for (int chord = first; chord <= last; ++chord) {
      takeShape(chord, shape);
      tonesChanged(chord);
      this->name(chordAt(chord), &name);
    }
  });
}

void SongEditor::takeShape(int index, const ChordShape& shape) {
  const QBTone* model = loudestNear(index);
  CopiedChord::Tone tone =
      model ? CopiedChord::Tone(*model) : CopiedChord::Tone{0, 0, kAmp, 0, true};
  tone.active = true;
  QBHold& hold = holdOf(chordAt(index));
  if (!model || model->hold() != &hold) tone.ticks = 0;
  for (const auto& old : hold.tones().snapshot()) hold.deleteTone(old);
  for (int string = 0; string < kStrings; ++string)
    if (const int fret = shape[static_cast<std::size_t>(string)]; fret != kNotPlayed)
      tone.addTo(hold, string, fret);
}

void SongEditor::moveTone(int chord, int string, int toString) {
  requireString(string);
  requireString(toString);
  QBChord& edited = chordAt(chord);
  const QBTone* tone = edited.hold() ? edited.hold()->findToneByString(string) : nullptr;
  if (!tone) return;
  if (edited.hold()->findToneByString(toString))
    throw EditRefused(phrase("Message", "that string sounds already; move its tone first"));
  const auto open = openStringsOf(m_song.get()).pitches();
  const int fret = tone->fret() + open.at(static_cast<std::size_t>(string)) -
                   open.at(static_cast<std::size_t>(toString));
  if (fret < 0 || fret > kHighestFret)
    throw EditRefused(phrase("Message", "that string has no fret for this tone; try another one"));
  edit(phrase("UndoAction", "Move Tone"), [&] {
    const CopiedChord::Tone kept(*tone);
    while (edited.hold()->findToneByString(string)) edited.hold()->deleteToneOfString(string);
    kept.addTo(*edited.hold(), toString, fret);
    tonesChanged(chord);
  });
}

void SongEditor::setActive(int chord, int string, bool active) {
  requireString(string);
  QBChord& edited = chordAt(chord);
  const Tones tones = edited.hold() ? edited.hold()->allTonesOfString(string) : Tones();
  const auto isSo = [active](const auto& tone) { return tone->isActive() == active; };
  if (std::ranges::all_of(tones, isSo)) return;
  const platform::Phrase title =
      active ? phrase("UndoAction", "Activate Tone") : phrase("UndoAction", "Deactivate Tone");
  edit(title, [&] {
    for (const auto& tone : tones) tone->setActive(active);
    tonesChanged(chord);
  });
}

/// A silent chord may sound now, which brings it into a measure.
void SongEditor::tonesChanged(int index) {
  QBChord& chord = chordAt(index);
  dropPatterns(chord);
  if (isOnBeats()) {
    chord.setEdited(true);
    chord.forgetCaches();
    return BeatBars(m_db, *m_song).finish();
  }
  name(chord, nullptr);
  readHarmony(chord);
  chord.forgetCaches();
  layIntoMeasures(m_db, *m_song, index);
}

}  // namespace korvel
