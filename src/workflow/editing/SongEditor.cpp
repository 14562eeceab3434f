// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/SongEditor.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <span>
#include <stdexcept>
#include <vector>

#include "arrange/harmony/HarmonyOfChord.h"
#include "model/book/QBHarmony.h"
#include "model/book/QBLeftHandPattern.h"
#include "model/book/QBRightHandPattern.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "music/ChordStep.h"
#include "music/Neck.h"
#include "platform/persistence/UndoManager.h"
#include "platform/text/UserError.h"
#include "tab/text/TabReader.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/MeasureLayout.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

using platform::phrase;

using Chords = std::vector<platform::Ref<QBChord>>;

/// Of a tone that has no other one to take it from: a note that is played well.
constexpr double kAmp = 1e6;

/// A fret was typed, which the next digit may continue.
constexpr platform::ActionKind kFretEdit{};

class NotWithin : public std::out_of_range, public platform::Worded {
 public:
  explicit NotWithin(const platform::UserText& text)
      : std::out_of_range(text.english()), Worded(text) {}
};

/// what: with places for the value and for both ends of the range.
void requireWithin(const platform::Phrase& what, int value, int lowest, int highest) {
  if (value < lowest || value > highest)
    throw NotWithin(platform::UserText(what, value, lowest, highest));
}

void requireString(int string) {
  requireWithin(phrase("Message", "string %1 is not within %2 to %3"), string, 0, kStrings - 1);
}

bool soundsAlone(const Tones& tones, int fret) {
  return tones.size() == 1 && tones.front()->fret() == fret && tones.front()->isActive();
}

std::span<const platform::Ref<QBChord>> from(const Chords& chords, int index) {
  return std::span(chords).subspan(static_cast<std::size_t>(index));
}

/// Of a chord that is inserted before the one of that index.
int positionFor(const Chords& chords, int index) {
  if (chords.empty()) return 1;
  if (index < std::ssize(chords)) return chords[static_cast<std::size_t>(index)]->position();
  return chords.back()->position() + 1;
}

/// Where an end of a loop goes when chords [first, last] are deleted: to the neighbour on
/// the loop's inner side, if there is one.
QBChord* neighbour(const Chords& chords, QBChord* end, int first, int last, bool upwards) {
  const auto found = std::ranges::find(chords, end, &platform::Ref<QBChord>::get);
  const auto index = static_cast<int>(found - chords.begin());
  if (found == chords.end() || index < first || index > last) return end;
  const int next = upwards ? last + 1 : first - 1;
  const bool exists = next >= 0 && next < static_cast<int>(chords.size());
  return exists ? chords[static_cast<std::size_t>(next)].get() : nullptr;
}

}  // namespace

SongEditor::SongEditor(QBTabMgr& db, QBSong& song) : m_db(db), m_song(&song) {}

SongEditor::~SongEditor() = default;

void SongEditor::edit(const platform::Phrase& title, const std::function<void()>& work,
                      const platform::ActionKind* kind) {
  if (SongInWork::is(*m_song))
    throw EditRefused(phrase("Message", "%1: is still being heard; edit it when that has ended"),
                      m_song->title());
  Edit edit(*m_song, title);
  if (kind) edit.setKind(*kind);
  work();
  m_song->forgetCaches();
  if (m_song->chords().empty()) m_song->clearTabulature();
  edit.redraw();
  edit.save();
}

QBChord& SongEditor::chordAt(int index) {
  m_song->forgetCaches();  // chords may have come since the order was computed
  const auto& chords = m_song->allChords();
  requireWithin(phrase("Message", "chord %1 is not within %2 to %3"), index, 0,
                static_cast<int>(chords.size()) - 1);
  QBChord& chord = *chords[static_cast<std::size_t>(index)];
  if (QBHold* hold = chord.hold()) hold->forgetCaches();
  return chord;
}

/// What is on beats without bars, in an odd store, is edited as if it were not.
bool SongEditor::isOnBeats() const { return BeatBars::areIn(*m_song); }

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

/// A silent chord may sound now, which brings it into a measure; patterns were chosen for the tones
/// that the chord had.
void SongEditor::tonesChanged(int index) {
  QBChord& chord = chordAt(index);
  if (chord.pattern() && !chord.pattern()->matches(chord)) chord.setPattern(nullptr);
  chord.setLeftpattern(nullptr);
  if (isOnBeats()) {
    chord.setEdited(true);
    chord.forgetCaches();
    BeatBars bars(m_db, *m_song);
    bars.endRinging(static_cast<std::size_t>(index));
    bars.finish();
    return;
  }
  name(chord, nullptr);
  readHarmony(chord);
  chord.forgetCaches();
  layIntoMeasures(m_db, *m_song, index);
}

// ---- names

void SongEditor::name(QBChord& chord, const ChordName* name) {
  chord.setHarmony(name ? name->harmony.get() : nullptr);
  if (name)
    chord.setBaseTone(name->baseTone);
  else
    chord.clearBaseTone();
  if (chord.hasTicks()) chord.setEdited(true);
  chord.forgetCaches();
}

void SongEditor::setChordName(int chord, const ChordName& name) {
  QBChord& edited = chordAt(chord);
  if (edited.harmony() == name.harmony && edited.baseTone() == name.baseTone) return;
  edit(phrase("UndoAction", "Set Chord Name"), [&] { this->name(edited, &name); });
}

void SongEditor::setChordNames(int first, int last, const ChordName& name) {
  if (first == last) return setChordName(first, name);
  nameAll(first, last, &name);
}

void SongEditor::clearChordNames(int first, int last) {
  if (first == last && !chordAt(first).harmony()) return;
  nameAll(first, last, nullptr);
}

void SongEditor::nameAll(int first, int last, const ChordName* name) {
  chordAt(last);
  chordAt(first);
  edit(phrase("UndoAction", "Set Chord Name"), [&] {
    for (int chord = first; chord <= last; ++chord) this->name(chordAt(chord), name);
  });
}

// ---- chords

void SongEditor::setDuration(int chord, int sixteenths) {
  requireWithin(phrase("Message", "duration %1 is not within %2 to %3"), sixteenths, 1,
                kLongestChord);
  QBChord& edited = chordAt(chord);
  const auto index = static_cast<std::size_t>(chord);
  const bool onBeats = isOnBeats();
  BeatBars bars(m_db, *m_song);
  const int ticks = onBeats ? sixteenths * bars.ticksOfSixteenthAt(index) : 0;
  if (onBeats ? bars.writtenTicks(index) == ticks : edited.duration() == sixteenths) return;
  edit(phrase("UndoAction", "Change Duration"), [&] {
    if (onBeats) {
      edited.setEdited(true);
      bars.setTicks(index, ticks);
      bars.finish();
    } else {
      edited.setDuration(sixteenths);
      layIntoMeasures(m_db, *m_song, chord);
    }
  });
}

int SongEditor::moveChord(int chord, int steps) {
  chordAt(chord);
  if (!isOnBeats())
    throw EditRefused(phrase(
        "Message", "this song is not in bars with exact places; lay it into bars to move chords"));
  BeatBars bars(m_db, *m_song);
  const auto index = static_cast<std::size_t>(chord);
  std::optional<std::size_t> moved;
  edit(phrase("UndoAction", "Move Chord"), [&] {
    moved = bars.move(index, steps * bars.stepOf(index));
    if (!moved)
      throw EditRefused(phrase("Message", "there is no room in the bar to move this chord there"));
    bars.finish();
  });
  return static_cast<int>(*moved);
}

int SongEditor::insertChordBefore(int chord) {
  if (!m_song->chords().empty()) chordAt(chord);
  return isOnBeats() ? insertOnBeats(chord, false) : insertAt(chord);
}

int SongEditor::insertChordAfter(int chord) {
  if (!m_song->chords().empty()) chordAt(chord);
  if (isOnBeats()) return insertOnBeats(chord, true);
  return insertAt(m_song->chords().empty() ? chord : chord + 1);
}

int SongEditor::insertOnBeats(int chord, bool after) {
  BeatBars bars(m_db, *m_song);
  const auto index = static_cast<std::size_t>(chord);
  if (m_song->chords().empty()) {
    edit(phrase("UndoAction", "Insert Chord"), [&] {
      bars.write(0, {CopiedChord({}, kSixteenthsOfQuarter)});
      bars.finish();
    });
    return 0;
  }
  edit(phrase("UndoAction", "Insert Chord"), [&] {
    const bool hasOneBefore = index > 0 && bars.areInOneBar(index - 1, index);
    const bool divided = after
                             ? bars.divide(index)
                             : (hasOneBefore && bars.divide(index - 1)) || bars.divideBefore(index);
    if (!divided)
      throw EditRefused(
          phrase("Message", "this chord is too short to be divided; make it longer first"));
    bars.finish();
  });
  return after ? chord + 1 : chord;
}

int SongEditor::insertAt(int index) {
  edit(phrase("UndoAction", "Insert Chord"), [&] {
    newChordAt(index);
    layIntoMeasures(m_db, *m_song, index);
  });
  return index;
}

QBChord& SongEditor::newChordAt(int index) {
  const Chords before = m_song->allChords();
  QBChord* chord = m_song->createChord();
  chord->setPosition(positionFor(before, index));
  for (const auto& behind : from(before, index)) behind->setPosition(behind->position() + 1);
  if (!before.empty())
    chord->setMeasure(before[static_cast<std::size_t>(std::max(index - 1, 0))]->measure());
  m_song->forgetCaches();
  return *chord;
}

int SongEditor::pasteAfter(int chord, const std::vector<CopiedChord>& chords) {
  const int first = m_song->chords().empty() ? 0 : chord + 1;
  if (first > 0) chordAt(chord);
  edit(phrase("UndoAction", "Paste Chords"), [&] {
    if (isOnBeats()) return pasteOnBeats(first, chords);
    int index = first;
    for (const CopiedChord& each : chords) {
      QBChord& pasted = newChordAt(index++);
      pasted.setDuration(each.duration);
      for (const CopiedChord::Tone& tone : each.tones)
        tone.addTo(holdOf(pasted), tone.string, tone.fret);
      readHarmony(pasted);
      pasted.forgetCaches();
    }
    m_song->forgetCaches();
    layIntoMeasures(m_db, *m_song, first);
  });
  return first;
}

void SongEditor::pasteOnBeats(int first, const std::vector<CopiedChord>& chords) {
  BeatBars bars(m_db, *m_song);
  const std::vector<QBChord*> written = bars.write(static_cast<std::size_t>(first), chords);
  for (std::size_t i = 0; i < written.size(); ++i) {
    for (const CopiedChord::Tone& tone : chords[i].tones)
      tone.addTo(holdOf(*written[i]), tone.string, tone.fret);
    readHarmony(*written[i]);
    written[i]->setEdited(true);
    written[i]->forgetCaches();
  }
  bars.finish();
}

int SongEditor::pasteAfter(int chord, const std::vector<TypedChord>& chords) {
  const bool isFirst = m_song->chords().empty();
  const int duration = isFirst ? 1 : chordAt(chord).duration();
  const QBTone* model = isFirst ? nullptr : loudestNear(chord);
  CopiedChord::Tone like =
      model ? CopiedChord::Tone(*model) : CopiedChord::Tone{0, 0, kAmp, duration, true};
  like.active = true;
  std::vector<CopiedChord> copied;
  for (const TypedChord& each : chords) {
    copied.emplace_back(std::vector<CopiedChord::Tone>(), std::max(duration, 1));
    for (const TypedChord::Tone& tone : each.tones) {
      like.string = tone.string;
      like.fret = tone.fret;
      copied.back().tones.push_back(like);
    }
  }
  return pasteAfter(chord, copied);
}

void SongEditor::deleteChords(int first, int last) {
  chordAt(last);
  chordAt(first);
  if (last < first) throw NotWithin(phrase("Message", "the last chord is before the first one"));
  const platform::Phrase title =
      first == last ? phrase("UndoAction", "Delete Chord") : phrase("UndoAction", "Delete Chords");
  edit(title, [&] {
    if (isOnBeats()) {
      BeatBars bars(m_db, *m_song);
      bars.remove(static_cast<std::size_t>(first), static_cast<std::size_t>(last));
      return bars.finish();
    }
    const Chords before = m_song->allChords();
    moveLoopOff(before, first, last);
    const int count = last - first + 1;
    for (const auto& behind : from(before, last + 1))
      behind->setPosition(behind->position() - count);
    for (int at = first; at <= last; ++at)
      m_song->deleteChord(before[static_cast<std::size_t>(at)]);
    m_song->forgetCaches();
    layIntoMeasures(m_db, *m_song, first);
  });
}

void SongEditor::moveLoopOff(const Chords& chords, int first, int last) {
  QBChord* begin = m_song->fromChord();
  QBChord* end = m_song->toChord();
  if (!begin && !end) return;
  const bool whole = begin && end;
  begin = begin ? neighbour(chords, begin, first, last, true) : nullptr;
  end = end ? neighbour(chords, end, first, last, false) : nullptr;
  const bool empty = whole && (!begin || !end || begin->position() >= end->position());
  m_song->setFromChord(empty ? nullptr : begin);
  m_song->setToChord(empty ? nullptr : end);
}

}  // namespace korvel
