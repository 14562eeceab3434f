// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/shelf/SongXml.h"

#include "export/shelf/QBMusicXMLTag.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"

namespace korvel {

std::unique_ptr<QBMusicXMLTag> toXML(const QBTone& tone) {
  auto tag = std::make_unique<QBMusicXMLTag>("Tone", "");
  tag->addTag("Fret", std::to_string(tone.fret()));
  tag->addTag("String", std::to_string(tone.string()));
  return tag;
}

std::unique_ptr<QBMusicXMLTag> toXML(const QBChord& chord) {
  auto tag = std::make_unique<QBMusicXMLTag>("Chord", std::to_string(chord.position()));
  if (QBHold* held = chord.hold())
    for (const auto& [key, tone] : held->readSortedTones()) tag->addTagObj(toXML(*tone));
  return tag;
}

// Without the chords, as intended: the tag stands for the song in lists.
std::unique_ptr<QBMusicXMLTag> toXML(const QBSong& song) {
  return std::make_unique<QBMusicXMLTag>("Song", song.title());
}

}  // namespace korvel
