// SPDX-License-Identifier: GPL-3.0-or-later
// Lists all readings of pieces, with what speaks for each: see fit_rhythm.py.
//
// Reads pieces from the standard input: the number of notes, and for each its onset and end in
// seconds, pitch, string, strength and probability. Writes for each piece the number of tracks, and
// for each the number of beats and their times; then the number of readings, and for each its
// track, beats of a bar, first bar line, whether it is compound, its score and its features.
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/TrackSearch.h"
#include "rhythm/WishedLimits.h"
#include "rhythm/beats/Onsets.h"
#include "rhythm/harmony/ChordChanges.h"
#include "rhythm/judging/ReadingSearch.h"

namespace {

using namespace korvel;
using namespace korvel::rhythm;

std::vector<fingering::Note> readPiece(std::size_t count) {
  std::vector<fingering::Note> notes(count);
  for (fingering::Note& note : notes) {
    std::cin >> note.onset >> note.end >> note.pitch >> note.string >> note.strength >>
        note.probability;
  }
  return notes;
}

void writeReadings(const ReadingSearch& search) {
  std::vector<std::size_t> places;  // in the output, by track
  std::vector<const BeatTrack*> tracks;
  for (const Candidate& one : search.candidates()) {
    if (one.track >= places.size()) places.resize(one.track + 1);
    if (std::ranges::find(tracks, &search.track(one)) != tracks.end()) continue;
    places[one.track] = tracks.size();
    tracks.push_back(&search.track(one));
  }
  std::printf("%zu\n", tracks.size());
  for (const BeatTrack* track : tracks) {
    std::printf("%zu", track->size());
    for (const double time : *track) std::printf(" %.4f", time);
    std::printf("\n");
  }
  std::printf("%zu\n", search.candidates().size());
  for (const Candidate& one : search.candidates()) {
    std::printf("%zu %zu %zu %d %.4f", places[one.track], one.bars.beats, one.bars.first,
                one.compound, one.score);
    for (const double value : one.features.values()) std::printf(" %.5g", value);
    std::printf("\n");
  }
}

void read(const std::vector<fingering::Note>& notes) {
  const std::vector<Onset> onsets = onsetsOf(notes);
  const WishedLimits all({}, onsets.front().time, notes.back().end);
  TrackSearch tracks(onsets, all);
  tracks.run().finish();
  const ChordChanges changes(onsets, notes);
  ReadingSearch search(onsets, changes, all.limits());
  search.run(tracks.take()).finish();
  writeReadings(search);
}

}  // namespace

int main() {
  std::size_t count = 0;
  while (std::cin >> count) {
    const std::vector<fingering::Note> notes = readPiece(count);
    if (!notes.empty()) read(notes);
  }
}
