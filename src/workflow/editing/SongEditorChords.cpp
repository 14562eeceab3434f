// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <optional>
#include <span>
#include <vector>

#include "arrange/harmony/HarmonyOfChord.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/ChordStep.h"
#include "tab/text/TabReader.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/MeasureLayout.h"
#include "workflow/editing/NotWithin.h"
#include "workflow/editing/SongEditor.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using platform::phrase;

using Chords = std::vector<platform::Ref<QBChord>>;

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
