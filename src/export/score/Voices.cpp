// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/Voices.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace korvel {
namespace {

/// The tones in order, each until its string is struck again.
std::vector<VoicedTone> voicedTones(const BeatMusic& music) {
  const int last = music.bars.back().start + music.bars.back().length;
  std::vector<VoicedTone> tones;
  std::map<int, std::size_t> ofString;
  for (const BeatChord& chord : music.chords)
    for (const BeatTone& each : chord.tones) {
      const int length = std::min(std::max(each.length, chord.length), last - chord.start);
      const auto before = ofString.find(each.tone.string);
      if (before != ofString.end())
        tones[before->second].end = std::min(tones[before->second].end, chord.start);
      ofString[each.tone.string] = tones.size();
      tones.push_back({each.tone, chord.start, chord.start + length});
    }
  std::erase_if(tones, [](const VoicedTone& tone) { return tone.end <= tone.start; });
  return tones;
}

bool isBelow(const VoicedTone& a, const VoicedTone& b) {
  return std::tie(a.tone.pitch, a.tone.string) < std::tie(b.tone.pitch, b.tone.string);
}

/// What a tone is to those that it cannot share a voice with.
struct Place {
  bool isBelowSome = false;
  bool isAboveSome = false;
};

std::vector<Place> placesOf(const std::vector<VoicedTone>& tones) {
  std::vector<Place> places(tones.size());
  for (std::size_t i = 0; i < tones.size(); ++i)
    for (std::size_t j = i + 1; j < tones.size() && tones[j].start < tones[i].end; ++j) {
      if (tones[i].start == tones[j].start && tones[i].end == tones[j].end) continue;
      const bool below = isBelow(tones[i], tones[j]);
      places[below ? i : j].isBelowSome = true;
      places[below ? j : i].isAboveSome = true;
    }
  return places;
}

}  // namespace

Voices voicesOf(const BeatMusic& music) {
  Voices voices;
  if (music.bars.empty()) return voices;
  const std::vector<VoicedTone> tones = voicedTones(music);
  const std::vector<Place> places = placesOf(tones);
  for (std::size_t i = 0; i < tones.size(); ++i)
    voices[places[i].isBelowSome && !places[i].isAboveSome ? 1 : 0].push_back(tones[i]);
  return voices;
}

}  // namespace korvel
