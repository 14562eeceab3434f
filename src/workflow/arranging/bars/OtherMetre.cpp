// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/bars/OtherMetre.h"

#include <algorithm>
#include <vector>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongTime.h"
#include "model/songs/ToneOrder.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/bars/FilledBars.h"

namespace korvel {
namespace {

/// Parts of a sixteenth that the ticks of simple and of compound time are whole numbers of.
constexpr int kPartsOfSixteenth = 6;

int partsOfTick(bool compound) { return kPartsOfSixteenth / ticksOfSixteenth(compound); }

int nearestTick(int parts, bool compound) {
  const int unit = 2 * partsOfTick(compound);
  const int shifted = 2 * parts + unit / 2;
  return shifted >= 0 ? shifted / unit : -((unit - 1 - shifted) / unit);
}

bool isSameName(const QBChord& a, const QBChord& b) {
  return a.harmony() == b.harmony() && a.hasBaseTone() == b.hasBaseTone() &&
         (!a.hasBaseTone() || a.baseTone() == b.baseTone());
}

class MetreWriter {
 public:
  MetreWriter(QBSong& song, QBSong& made, bool compound)
      : m_song(song), m_made(made), m_compound(compound) {}

  void write() {
    const auto& chords = m_song.allChords();
    const int begin = SongTime(m_song, SongTime::Tempo::strict).begin();
    if (!chords.empty()) m_parts = begin * partsOfTick(isCompoundAt(*chords.front()));
    m_soundsUntil = m_parts;
    for (std::size_t i = 0; i < chords.size(); ++i) {
      if (i == 0 || !goesOn(*chords[i - 1], *chords[i])) add(*chords[i]);
      m_parts += std::max(chords[i]->ticks(), 0) * partsOfTick(isCompoundAt(*chords[i]));
    }
  }

  const std::vector<PlacedChord>& placed() const { return m_placed; }
  /// Where the last chord ends.
  int end() const { return nextTick(); }

 private:
  /// Whether a chord is only there because of the bar line that it stands behind.
  bool goesOn(const QBChord& before, const QBChord& chord) const {
    if (chord.measure() == before.measure() || !tonesOf(chord).empty()) return false;
    return isSameName(before, chord) && (m_isRest || m_soundsUntil > m_parts);
  }

  void add(QBChord& chord) {
    const int parts = partsOfTick(isCompoundAt(chord));
    const int tick = nextTick();
    QBChord* copy = chord.clone(&m_made);
    m_isRest = m_soundsUntil <= m_parts && tonesOf(chord).empty();
    for (const auto& tone : tonesOf(*copy)) {
      const int end =
          m_parts + std::max(tone->hasTicks() ? tone->ticks() : chord.ticks(), 0) * parts;
      m_soundsUntil = std::max(m_soundsUntil, end);
      const int ticks = std::max(nearestTick(end, m_compound) - tick, 1);
      tone->setTicks(ticks);
      tone->setDuration(sixteenthsAlone(tick, tick + ticks, m_compound));
    }
    m_placed.push_back({copy, tick});
  }

  /// No two chords begin at one tick.
  int nextTick() const {
    const int tick = nearestTick(m_parts, m_compound);
    return m_placed.empty() ? tick : std::max(tick, m_placed.back().tick + 1);
  }

  QBSong& m_song;
  QBSong& m_made;
  const bool m_compound;
  int m_parts = 0;        ///< Where the next chord begins, from the first bar line on.
  int m_soundsUntil = 0;  ///< Where the last tone ends so far.
  bool m_isRest = false;  ///< Whether the last chord is one.
  std::vector<PlacedChord> m_placed;
};

/// A beat is six sixteenths in compound time, otherwise four.
double tempoIn(bool compound, double tempo) { return compound ? tempo * 2 / 3 : tempo * 3 / 2; }

}  // namespace

QBSong* laidAnew(QBSong& song, int beat, int beattype, const std::string& title) {
  QBSong* made = emptyBeside(song, title);
  const auto& chords = song.allChords();
  const bool compound = isCompound(beat, beattype);
  MetreWriter writer(song, *made, compound);
  writer.write();
  if (chords.empty()) return made;
  const int begin = writer.placed().front().tick;
  fillBars(*made, writer.placed(), barsOfMetre(beat, beattype, begin, writer.end()));
  endTonesAtNextStrike(*made);
  if (isCompoundAt(*chords.front()) != compound) {
    made->setTempo(tempoIn(compound, song.tempo()));
    made->clearSwing();
  }
  return made;
}

}  // namespace korvel
