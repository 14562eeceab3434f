// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/guided/EasyVersion.h"

#include <string>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/DerivedSong.h"
#include "workflow/arranging/SongFingering.h"
#include "workflow/arranging/guided/StrummedSong.h"

namespace korvel {
namespace {

std::string_view tagOf(std::string_view command) { return findSongCommand(command)->tag; }

/// Of a part of the tones, at the first frets.
QBSong* easyLine(QBSong& song, std::string_view command, int halfTones, int highestFret) {
  QBSong* line = derived(song, *findSongCommand(command), Manner::forPlayers);
  const std::string tags = std::string(tagOf(command))
                               .append(transpositionTag(halfTones))
                               .append(tagOf("findBestFingering"));
  QBSong* made = loweredForHand(*line, halfTones, highestFret, nameOf(song).tagged(tags));
  song.requireAlbum().deleteSong(line);
  keepTimes(song, *made);
  return made;
}

QBSong* easySong(QBSong& song, QBSong& whole, const EasyChoices& choices) {
  const int halfTones = halfTonesTo(choices.key, whole);
  if (choices.tones == EasyTones::chords)
    return strummed(song,
                    {.plain = true, .halfTones = halfTones, .highestFret = choices.highestFret});
  return easyLine(song, choices.tones == EasyTones::melody ? "extractMelody" : "extractMelBrass",
                  halfTones, choices.highestFret);
}

}  // namespace

SongGuide easyVersion(const EasyChoices& choices) {
  return {platform::phrase("UndoAction", "Easy Version"),
          platform::phrase("Log", "Easy version made."),
          [choices](QBSong& song, QBSong& whole) { return easySong(song, whole, choices); }};
}

int capoOf(const EasyChoices& choices, QBSong& song) {
  return choices.key == EasyKey::capo ? -halfTonesTo(choices.key, song) : 0;
}

}  // namespace korvel
