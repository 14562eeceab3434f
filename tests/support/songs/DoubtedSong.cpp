// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/songs/DoubtedSong.h"

#include "analysis/beats/ChordsOnBeats.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "rhythm/RhythmReader.h"
#include "rhythm/stored/HeardBytes.h"
#include "tab/text/SongDrawing.h"

namespace korvel::test {
namespace {

using fingering::Note;

constexpr double kBeat = 0.6;

Note struck(double onset, int string, int fret, float probability = 1) {
  Note note{onset, onset + (probability < 1 ? 0.25 : 0.5)};
  note.pitch = kStandardPitches[static_cast<std::size_t>(string)] + fret;
  note.string = string;
  note.fret = fret;
  note.strength = probability < 1 ? 0.2F : 3;
  note.probability = probability;
  note.amplitude = 0.1F;
  return note;
}

rhythm::HeardNotes heardNotes() {
  rhythm::HeardNotes heard;
  for (int beat = 0; beat < 32; ++beat) {
    const double onset = 1 + kBeat * beat;
    for (int string = 2; string < 5; ++string)
      heard.taken.push_back(struck(onset, string, beat / 4 % 2 == 0 ? 0 : 2));
    if (beat % 2 == 0) heard.taken.push_back(struck(onset + kBeat / 2, 0, 3));
    if (beat == 9) heard.taken.push_back(struck(onset + kBeat / 2, 4, 1, 0.6F));
  }
  heard.doubtful.push_back(struck(1 + kBeat * 15, 1, 2, 0.49F));
  heard.doubtful.back().string = heard.doubtful.back().fret = -1;
  return heard;
}

}  // namespace

QBSong& doubtedSong(QBAlbum& album) {
  const rhythm::HeardNotes notes = heardNotes();
  HeardSound heard;
  heard.notes = notes.taken;
  heard.rhythm = rhythm::rhythmOf(notes.taken);
  SongRecording* recording = QBTabMgr::db().createRecording("/Song.wav");
  recording->setNotes(rhythm::bytesOf(notes));
  recording->setRhythm(rhythm::bytesOf(heard.rhythm, {}));
  recording->setSeconds(22);
  QBSong& song = *album.createSong("Song");
  song.setRecording(recording);
  ChordsOnBeats chords(heard);
  for (std::size_t i = 0; i < chords.size(); ++i) chords.make(&song);
  buildTab(song);
  QBTabMgr::db().save();
  return song;
}

}  // namespace korvel::test
