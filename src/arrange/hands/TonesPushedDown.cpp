// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/TonesPushedDown.h"

#include <algorithm>
#include <array>
#include <utility>

#include "arrange/hands/TonePlaces.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/Neck.h"
#include "music/OpenStrings.h"

namespace korvel {
namespace {

/// Gives out the strings of one chord, each once.
class FreeStrings {
 public:
  explicit FreeStrings(const QBChord& chord) : m_open(openStringsOf(chord)) {}

  std::optional<TonePlace> placeFor(const QBTone& tone) {
    const int note = largeToneOf(tone);
    if (const auto lower = nextLower(tone.string(), note); lower && take(*lower)) return lower;
    if (const TonePlace own{tone.string(), tone.fret()}; take(own)) return own;
    for (int string = 0; string < kStrings; ++string)
      if (const auto other = placeOn(string, note); other && take(*other)) return other;
    return std::nullopt;
  }

 private:
  std::optional<TonePlace> placeOn(int string, int note) const {
    const int fret = m_open.fret(string, note);
    if (fret < 0 || fret >= kFretsToMoveTo) return std::nullopt;
    return TonePlace{string, fret};
  }
  std::optional<TonePlace> nextLower(int string, int note) const {
    while (--string >= 0)
      if (const auto place = placeOn(string, note)) return place;
    return std::nullopt;
  }
  bool take(const TonePlace& place) {
    if (place.string < 0 || place.string >= kStrings) return false;
    return !std::exchange(m_taken[static_cast<std::size_t>(place.string)], true);
  }

  const OpenStrings m_open;
  std::array<bool, kStrings> m_taken{};
};

}  // namespace

void TonesPushedDown::execute(QBChord*, QBChord* current, QBChord*) {
  const Tones tones = tonesOf(*current);
  TonePlaces places(tones.size());
  FreeStrings strings(*current);
  for (const auto& tone : byStringAndFret(*current)) {
    const auto at = std::ranges::find(tones, tone) - tones.begin();
    places[static_cast<std::size_t>(at)] = strings.placeFor(*tone);
  }
  moveTones(*current, places);
}

}  // namespace korvel
