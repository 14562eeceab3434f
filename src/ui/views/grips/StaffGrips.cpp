// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/grips/StaffGrips.h"

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "model/book/QBHarmony.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/Pitch.h"
#include "tab/page/PageOfSong.h"

namespace korvel::ui {
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

}  // namespace

std::vector<StaffGrip> staffGripsOf(QBSong& song) {
  const PageSource source = pageSourceOf(song);
  std::map<Name, Shape> easiest;
  std::vector<StaffGrip> grips;
  for (const PageSource::Chord& chord : source.chords) {
    if (chord.root < 0) continue;
    Shape shape = chord.shape;
    if (!shape) {
      const auto [known, isNew] = easiest.try_emplace(nameOf(chord));
      if (isNew) known->second = easiestShape(song, chord.index);
      shape = known->second;
    }
    if (shape) grips.push_back({chord.index, *shape});
  }
  return grips;
}

}  // namespace korvel::ui
