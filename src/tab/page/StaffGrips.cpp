// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/StaffGrips.h"

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "model/book/QBHarmony.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/Pitch.h"
#include "tab/layout/CapoNames.h"
#include "tab/page/PageGrips.h"
#include "tab/page/PageOfSong.h"

namespace korvel {
namespace {

using Name = std::pair<int, std::string>;
using Shape = std::optional<ChordShape>;

Name nameOf(const PageSource::Chord& chord) { return {chord.root, chord.type}; }

Shape easiestShape(QBSong& song, int index) {
  const QBChord& chord = *song.allChords().at(static_cast<std::size_t>(index));
  if (!chord.harmony() || !chord.hasBaseTone()) return std::nullopt;
  const ChordName name{pitchClass(chord.baseTone()), chord.harmony()};
  const auto shapes = shapesOf(name, openStringsOf(&song), 1);
  return shapes.empty() ? std::nullopt : Shape(shapes.front());
}

Shape easiestBehind(const OpenPitches& open, int capo, const PageSource::Chord& chord) {
  const auto shapes = PageGrips(open, capo).waysToHold(chord);
  return shapes.empty() ? std::nullopt : Shape(shapes.front());
}

ChordShape fromCapo(ChordShape shape, int capo) {
  for (int& fret : shape)
    if (fret != kNotPlayed) fret -= capo;
  return shape;
}

}  // namespace

std::vector<StaffGrip> staffGripsOf(QBSong& song) {
  const PageSource source = pageSourceOf(song);
  const int capo = capoOfTablature(song);
  std::map<Name, Shape> easiest;
  std::vector<StaffGrip> grips;
  for (const PageSource::Chord& chord : source.chords) {
    if (chord.root < 0) continue;
    Shape shape = chord.shape;
    if (shape) {
      *shape = fromCapo(*shape, capo);
    } else {
      const auto [known, isNew] = easiest.try_emplace(nameOf(chord));
      if (isNew)
        known->second =
            capo > 0 ? easiestBehind(source.open, capo, chord) : easiestShape(song, chord.index);
      shape = known->second;
    }
    if (shape) grips.push_back({chord.index, *shape});
  }
  return grips;
}

}  // namespace korvel
