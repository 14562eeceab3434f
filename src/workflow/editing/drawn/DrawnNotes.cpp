// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/drawn/DrawnNotes.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "model/songs/QBSong.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

using platform::phrase;

int rounded(double steps, int unit) { return static_cast<int>(std::lround(steps / unit)) * unit; }

int unitOf(const DrawnChords& chords, DrawnNotes::Grid grid) {
  return grid == DrawnNotes::Grid::free ? 1 : chords.gridUnit();
}

}  // namespace

DrawnNotes::DrawnNotes(QBTabMgr& db, QBSong& song) : m_db(db), m_song(&song) {}

DrawnNotes::~DrawnNotes() = default;

void DrawnNotes::edit(const platform::Phrase& title,
                      const std::function<void(DrawnChords&)>& work) {
  if (SongInWork::is(*m_song))
    throw EditRefused(phrase("Message", "%1: is still being heard; edit it when that has ended"),
                      m_song->title());
  Edit edit(*m_song, title);
  const auto chords = DrawnChords::of(m_db, *m_song);
  work(*chords);
  chords->finish();
  m_song->forgetCaches();
  edit.redraw();
  edit.save();
}

void DrawnNotes::add(int pitch, double begin, double steps, Grid grid) {
  edit(phrase("UndoAction", "Add Tone"), [&](DrawnChords& chords) {
    const int unit = unitOf(chords, grid);
    DrawnNote note;
    note.pitch = pitch;
    note.begin = chords.nearestBegin(begin, unit);
    note.steps = std::max(rounded(steps, unit), unit);
    chords.put(note);
  });
}

/// All go before the first one comes, so that none is in the way of another.
void DrawnNotes::move(std::span<const ToneIndex> tones, double steps, int halfTones, Grid grid) {
  const int by = rounded(steps, unitOf(*DrawnChords::of(m_db, *m_song), grid));
  if (tones.empty() || (by == 0 && halfTones == 0)) return;
  const auto title =
      tones.size() == 1 ? phrase("UndoAction", "Move Tone") : phrase("UndoAction", "Move Tones");
  edit(title, [&](DrawnChords& chords) {
    std::vector<DrawnNote> moved;
    for (const ToneIndex& tone : tones) moved.push_back(chords.take(tone));
    chords.join();
    std::ranges::stable_sort(moved, {}, &DrawnNote::begin);
    for (DrawnNote& note : moved) {
      note.begin += by;
      note.pitch += halfTones;
      chords.put(note);
    }
  });
}

void DrawnNotes::lengthen(std::span<const ToneIndex> tones, double steps, Grid grid) {
  const int unit = unitOf(*DrawnChords::of(m_db, *m_song), grid);
  const int by = rounded(steps, unit);
  if (tones.empty() || by == 0) return;
  edit(phrase("UndoAction", "Change Duration"), [&](DrawnChords& chords) {
    for (const ToneIndex& tone : tones) chords.lengthen(tone, by, unit);
  });
}

void DrawnNotes::remove(std::span<const ToneIndex> tones) {
  if (tones.empty()) return;
  const auto title = tones.size() == 1 ? phrase("UndoAction", "Remove Tone")
                                       : phrase("UndoAction", "Remove Tones");
  edit(title, [&](DrawnChords& chords) {
    for (const ToneIndex& tone : tones) chords.take(tone);
  });
}

}  // namespace korvel
