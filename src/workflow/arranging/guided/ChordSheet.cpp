// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/guided/ChordSheet.h"

#include <bit>

#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

constexpr int kMinorThird = 3;
constexpr int kMajorThird = 4;
constexpr int kFifth = 7;
constexpr int kNotesOfTriad = 3;

bool has(const ChordName& name, int interval) {
  return name.harmony->includesNote(name.baseTone, pitchClass(name.baseTone + interval));
}

bool hasAll(const ChordName& name, unsigned pitchClasses) {
  for (int note = 0; note < kNotesPerOctave; ++note)
    if ((pitchClasses >> note & 1U) != 0 && !name.harmony->includesNote(name.baseTone, note))
      return false;
  return true;
}

ChordSheet::Step namedAs(const QBChord& chord) {
  if (!chord.harmony() || !chord.hasBaseTone()) return std::nullopt;
  return ChordName{pitchClass(chord.baseTone()), chord.harmony()};
}

std::size_t rootOf(const ChordName& name) { return static_cast<std::size_t>(name.baseTone); }

}  // namespace

ChordSheet::ChordSheet(QBSong& song, bool plain)
    : m_plain(plain),
      m_major(parseChordName(QBTabMgr::of(song), "C")),
      m_minor(parseChordName(QBTabMgr::of(song), "Cm")) {
  countThirds(song);
  for (const auto& chord : song.allChords()) addStep(*chord);
  nameBeginning();
}

void ChordSheet::requireNames(const QBSong& song) const {
  if (m_isEmpty)
    throw EditRefused(
        platform::phrase("Message",
                         "%1: no chord of it has a name, so there is nothing to strum; name "
                         "its chords first"),
        song.title());
}

void ChordSheet::countThirds(QBSong& song) {
  for (const auto& chord : song.allChords()) {
    const Step name = namedAs(*chord);
    if (!name) continue;
    m_isEmpty = false;
    if (has(*name, kMajorThird))
      ++m_thirds.at(rootOf(*name));
    else if (has(*name, kMinorThird))
      --m_thirds.at(rootOf(*name));
  }
}

void ChordSheet::addStep(const QBChord& chord) {
  if (!chord.hold() || chord.hold()->isEmpty()) {
    m_steps.emplace_back();
    return;
  }
  m_current = nextFor(chord);
  if (!m_current) m_unnamed.push_back(m_steps.size());
  m_steps.push_back(m_current);
}

ChordSheet::Step ChordSheet::nextFor(const QBChord& chord) const {
  const unsigned heard = chord.hold()->pitchClasses();
  if (m_current && std::popcount(heard) < kNotesOfTriad && hasAll(*m_current, heard))
    return m_current;
  const Step name = namedAs(chord);
  if (!name) return m_current;
  return m_plain ? plainOf(*name) : *name;
}

/// Diminished and augmented chords have no plainer one that sounds like them.
ChordName ChordSheet::plainOf(const ChordName& name) const {
  if (!has(name, kFifth)) return name;
  const bool isMinor =
      !has(name, kMajorThird) && (has(name, kMinorThird) || m_thirds.at(rootOf(name)) < 0);
  return {name.baseTone, (isMinor ? m_minor : m_major).harmony};
}

void ChordSheet::nameBeginning() {
  for (const std::size_t step : m_unnamed) {
    std::size_t named = step;
    while (named < m_steps.size() && !m_steps[named]) ++named;
    if (named < m_steps.size()) m_steps[step] = m_steps[named];
  }
}

}  // namespace korvel
