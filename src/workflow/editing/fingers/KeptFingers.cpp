// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/fingers/KeptFingers.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/fingers/PlayedNotes.h"
#include "workflow/editing/rhythm/EditedChords.h"

namespace korvel {
namespace {

/// Samples within which a tone was struck at the same time: 30 ms.
constexpr std::int64_t kStruckTogether = 1323;

using Notes = std::span<const fingering::Note>;

}  // namespace

KeptFingers::KeptFingers(QBSong& song) {
  const PlayedNotes notes(song);
  const auto& chords = song.allChords();
  for (std::size_t i = 0; i < chords.size(); ++i) {
    const auto seconds = recordedSecondsOf(*chords[i]);
    if (!seconds) continue;
    for (const fingering::Note& note : song.isOnBeats() ? notes.ofChord(i) : Notes())
      m_tones.push_back({chords[i]->timestamp(), note.pitch, note.string});
    if (chords[i]->hasHandFret()) m_marks.push_back({*seconds, chords[i]->handFret()});
  }
  std::ranges::stable_sort(m_tones, {}, &Tone::time);
}

void KeptFingers::putInto(QBSong& song) const {
  song.forgetCaches();
  if (song.isOnBeats()) moveTones(song);
  setMarks(song);
  song.forgetCaches();
}

/// -1 where there was no such tone.
int KeptFingers::stringOf(std::int64_t time, int pitch) const {
  int string = -1;
  std::int64_t nearest = kStruckTogether + 1;
  for (auto tone = std::ranges::lower_bound(m_tones, time - kStruckTogether, {}, &Tone::time);
       tone != m_tones.end() && tone->time <= time + kStruckTogether; ++tone) {
    if (tone->pitch != pitch || std::abs(tone->time - time) >= nearest) continue;
    nearest = std::abs(tone->time - time);
    string = tone->string;
  }
  return string;
}

void KeptFingers::moveTones(QBSong& song) const {
  const PlayedNotes notes(song);
  const auto& chords = song.allChords();
  bool any = false;
  for (std::size_t i = 0; i < chords.size(); ++i) {
    if (chords[i]->isEdited()) continue;
    const auto sounding = notes.ofChord(i);
    std::vector<fingering::Note> placed(sounding.begin(), sounding.end());
    for (fingering::Note& note : placed) {
      const int string = stringOf(chords[i]->timestamp(), note.pitch);
      if (string < 0) continue;
      note.string = string;
      note.fret = note.pitch - notes.open()[static_cast<std::size_t>(string)];
    }
    if (notes.move(i, placed)) any = true;
  }
  if (!any || !BeatBars::areIn(song)) return;
  BeatBars(QBTabMgr::of(song), song).finish();
}

void KeptFingers::setMarks(QBSong& song) const {
  const auto& chords = song.allChords();
  for (const Mark& mark : m_marks) {
    const auto distance = [&](const auto& chord) {
      return std::abs(recordedSecondsOf(*chord).value_or(0) - mark.seconds);
    };
    const auto nearest = std::ranges::min_element(chords, {}, distance);
    if (nearest != chords.end()) (*nearest)->setHandFret(mark.handFret);
  }
}

}  // namespace korvel
