// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/xml/QBMusicXMLTag.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"

namespace korvel {

std::unique_ptr<QBMusicXMLTag> QBTone::toXML() const {
  auto tag = std::make_unique<QBMusicXMLTag>("Tone", "");
  tag->addTag("Fret", std::to_string(fret()));
  tag->addTag("String", std::to_string(string()));
  return tag;
}

std::unique_ptr<QBMusicXMLTag> QBChord::toXML() const {
  auto tag = std::make_unique<QBMusicXMLTag>("Chord", std::to_string(position()));
  if (QBHold* held = hold())
    for (const auto& [key, tone] : held->readSortedTones()) tag->addTagObj(tone->toXML());
  return tag;
}

// Without the chords, as intended: the tag stands for the song in lists.
std::unique_ptr<QBMusicXMLTag> QBSong::toXML() const {
  return std::make_unique<QBMusicXMLTag>("Song", title());
}

}  // namespace korvel
