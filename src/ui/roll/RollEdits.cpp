// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/RollEdits.h"

#include <span>
#include <vector>

#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Translated.h"
#include "ui/roll/RollView.h"
#include "workflow/editing/doubts/SongCorrections.h"
#include "workflow/editing/drawn/DrawnNotes.h"

namespace korvel::ui {
namespace {

DrawnNotes::Grid gridOf(bool isFree) {
  return isFree ? DrawnNotes::Grid::free : DrawnNotes::Grid::sixteenths;
}

}  // namespace

RollEdits::RollEdits(RollView& roll, QObject* parent) : QObject(parent) {
  using Places = std::vector<ToneIndex>;
  connect(&roll, &RollView::dropWanted, this, &RollEdits::drop);
  connect(&roll, &RollView::takeWanted, this, [this](int note) {
    correct([note](SongCorrections& song) { song.accept(static_cast<std::size_t>(note)); });
  });
  connect(&roll, &RollView::confirmWanted, this, [this](int note) {
    correct([note](SongCorrections& song) { song.confirm(static_cast<std::size_t>(note)); });
  });
  connect(&roll, &RollView::toneDrawn, this,
          [this](int pitch, double begin, double steps, bool isFree) {
            draw([&](DrawnNotes& notes) { notes.add(pitch, begin, steps, gridOf(isFree)); });
          });
  connect(&roll, &RollView::tonesMoved, this,
          [this](const Places& tones, double steps, int halfTones, bool isFree) {
            draw([&](DrawnNotes& notes) { notes.move(tones, steps, halfTones, gridOf(isFree)); });
          });
  connect(&roll, &RollView::tonesLengthened, this,
          [this](const Places& tones, double steps, bool isFree) {
            draw([&](DrawnNotes& notes) { notes.lengthen(tones, steps, gridOf(isFree)); });
          });
}

RollEdits::~RollEdits() = default;

void RollEdits::setSong(QBSong* song) { m_song = song; }

/// A tone that was heard stays a candidate.
void RollEdits::drop(const ToneIndex& place, int note) {
  if (note == RollNotes::kNone)
    draw([&](DrawnNotes& notes) { notes.remove(std::span(&place, 1)); });
  else
    correct([note](SongCorrections& song) { song.drop(static_cast<std::size_t>(note)); });
}

void RollEdits::draw(const std::function<void(DrawnNotes&)>& edit) {
  perform([&] {
    DrawnNotes notes(QBTabMgr::db(), *m_song);
    edit(notes);
  });
}

void RollEdits::correct(const std::function<void(SongCorrections&)>& edit) {
  perform([&] {
    SongCorrections corrections(*m_song);
    edit(corrections);
  });
}

void RollEdits::perform(const std::function<void()>& edit) {
  if (!m_song) return;
  if (m_locked) return emit refused(tr("Stop playing first, then edit"));
  try {
    edit();
    emit edited();
  } catch (const std::exception& problem) {
    emit refused(translated(problem));
  }
}

}  // namespace korvel::ui
