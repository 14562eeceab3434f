// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/guided/StrummedSong.h"

#include <algorithm>
#include <string>

#include "model/book/QBHarmony.h"
#include "model/book/QBLeftHandPattern.h"
#include "model/book/QBRightHandPattern.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/Pitch.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/DerivedSong.h"
#include "workflow/arranging/guided/ChordSheet.h"
#include "workflow/arranging/guided/EasyGrips.h"
#include "workflow/arranging/guided/OpenKey.h"
#include "workflow/editing/CopiedChord.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using platform::phrase;

constexpr std::string_view kTagOfGrips = "(Optm)";

ChordName moved(const ChordName& name, int halfTones) {
  return {pitchClass(name.baseTone + halfTones), name.harmony};
}

/// As loud and long as the loudest tone that it takes the place of.
void strum(QBChord& chord, const ChordName& name, const ChordShape& grip) {
  const Tones tones = loudestFirst(chord);
  const auto loudest =
      std::ranges::find_if(tones, [](const auto& tone) { return tone->isActive(); });
  const CopiedChord::Tone model(**loudest);
  const int ticks = (*loudest)->hasTicks() ? (*loudest)->ticks() : 0;
  QBHold& hold = *chord.hold();
  for (const auto& tone : tones) hold.deleteTone(tone);
  for (int string = 0; string < kStrings; ++string)
    if (const int fret = grip[static_cast<std::size_t>(string)]; fret != kNotPlayed)
      model.addTo(hold, string, fret);
  if (ticks > 0)
    for (QBTone* tone : hold.tones()) tone->setTicks(ticks);
  chord.setHarmony(name.harmony);
  chord.setBaseTone(name.baseTone);
  chord.setPattern(nullptr);
  chord.setLeftpattern(nullptr);
  chord.forgetCaches();
}

/// The grips of a song's chords: of a chord that no hand reaches, that of the plain one.
class Strummer {
 public:
  Strummer(QBSong& song, const Strumming& how)
      : m_song(song),
        m_halfTones(how.halfTones),
        m_asNamed(song, how.plain),
        m_plain(song, true),
        m_grips(openStringsOf(&song), how.highestFret) {
    m_asNamed.requireNames(song);
  }

  void strumAll(QBSong& copy) {
    const auto chords = copy.allChords();  // once: with each that is strummed the song forgets them
    for (std::size_t i = 0; i < m_asNamed.steps().size(); ++i)
      if (m_asNamed.steps()[i]) strumAt(i, *chords[i]);
  }

 private:
  void strumAt(std::size_t step, QBChord& chord) {
    for (const ChordSheet* sheet : {&m_asNamed, &m_plain}) {
      const ChordName name = moved(*sheet->steps()[step], m_halfTones);
      if (const auto& grip = m_grips.gripOf(name)) return strum(chord, name, *grip);
    }
    throw EditRefused(
        phrase("Message", "%1: no hand reaches its chord %2 in its tuning; try another key"),
        m_song.title(), chord.fullHarmonyName());
  }

  QBSong& m_song;
  int m_halfTones;
  ChordSheet m_asNamed;
  ChordSheet m_plain;
  EasyGrips m_grips;
};

}  // namespace

QBSong* strummed(QBSong& song, const Strumming& how) {
  Strummer strummer(song, how);
  const std::string tags = std::string(kTagOfGrips).append(transpositionTag(how.halfTones));
  const std::string title = nameOf(song).tagged(tags);
  QBSong* copy = song.clone();
  strummer.strumAll(*copy);
  moveKey(*copy, how.halfTones);
  finished(copy, title);
  keepTimes(song, *copy);
  return copy;
}

}  // namespace korvel
