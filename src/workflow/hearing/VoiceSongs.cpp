// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/VoiceSongs.h"

#include <string>

#include "analysis/beats/ChordsOnBeats.h"
#include "analysis/beats/HeardSound.h"
#include "arrange/chords/QBToneGroupBuilder.h"
#include "model/instruments/QBTuning.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"
#include "tab/text/SongDrawing.h"
#include "workflow/library/QBNameMgr.h"

namespace korvel {
namespace {

using platform::phrase;
using platform::UserText;

UserText lineOf(const HeardVoice& heard) {
  const bool isMelody = heard.voice == chords::Voice::melody;
  if (!heard.isClear)
    return isMelody ? phrase("Log", "the melody is not clear enough to be heard")
                    : phrase("Log", "the bass is not clear enough to be heard");
  const int octaves = heard.raised / kNotesPerOctave;
  if (octaves > 1)
    return {isMelody ? phrase("Log", "the melody was heard, and is written %1 octaves higher")
                     : phrase("Log", "the bass was heard, and is written %1 octaves higher"),
            octaves};
  if (octaves == 1)
    return isMelody ? phrase("Log", "the melody was heard, and is written an octave higher")
                    : phrase("Log", "the bass was heard, and is written an octave higher");
  return isMelody ? phrase("Log", "the melody was heard") : phrase("Log", "the bass was heard");
}

QBSong* emptySongOf(const HeardVoice& heard, const QBSong& band) {
  const std::string title = band.title() + " (" + std::string(nameOf(heard.voice)) + ")";
  QBTabMgr& db = QBTabMgr::of(band);
  QBSong* made = db.createSong(title, band.tuning(), db.selectedInstrument(), nullptr);
  made->setRecording(band.recording());
  return made;
}

}  // namespace

platform::Slices VoiceSongs::making(const QBSong& song, const HeardSound& heard, Tell tell) {
  for (const HeardVoice& voice : heard.voices) {
    tell(lineOf(voice));
    if (!voice.isClear) continue;
    const platform::Ref<QBSong> made(emptySongOf(voice, song));
    m_songs.push_back(made);
    ChordsOnBeats chords(heard, voice);
    for (std::size_t i = 0; i < chords.size(); ++i) {
      QBToneGroupBuilder(chords.make(made)).build();
      co_yield 0;
    }
    made->forgetCaches();
    platform::Slices drawing = buildingTab(*made);
    while (drawing.next()) co_yield 0;
  }
}

void VoiceSongs::putInto(QBAlbum& album) {
  for (const auto& song : m_songs) {
    const std::string free = QBNameMgr(&album, song->title()).newName();
    const bool isTaken = free != song->title();
    if (isTaken) song->setTitle(free);
    song->setAlbum(&album);
    if (isTaken) buildTab(*song);
  }
}

}  // namespace korvel
