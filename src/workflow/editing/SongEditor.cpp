// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/SongEditor.h"

#include <algorithm>
#include <array>
#include <span>

#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/UndoManager.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/NotWithin.h"
#include "workflow/editing/words/AnchoredWords.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

using platform::phrase;

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
  const AnchoredWords words(*m_song);
  work();
  m_song->forgetCaches();
  words.putBack();
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
  nameAll(std::array{ChordSpan{first, last}}, &name);
}

void SongEditor::clearChordNames(int first, int last) {
  if (first == last && !chordAt(first).harmony()) return;
  nameAll(std::array{ChordSpan{first, last}}, nullptr);
}

void SongEditor::nameAll(std::span<const ChordSpan> passages, const ChordName* name) {
  for (const ChordSpan& passage : passages) {
    chordAt(passage.last);
    chordAt(passage.first);
  }
  const auto isCalledSo = [name](const QBChord& chord) {
    if (!name) return !chord.harmony();
    return chord.harmony() == name->harmony && chord.baseTone() == name->baseTone;
  };
  if (std::ranges::all_of(passages, [&](const ChordSpan& passage) {
        for (int chord = passage.first; chord <= passage.last; ++chord)
          if (!isCalledSo(chordAt(chord))) return false;
        return true;
      }))
    return;
  edit(phrase("UndoAction", "Set Chord Name"), [&] {
    for (const ChordSpan& passage : passages)
      for (int chord = passage.first; chord <= passage.last; ++chord)
        this->name(chordAt(chord), name);
  });
}

}  // namespace korvel
