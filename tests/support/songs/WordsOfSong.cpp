// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/songs/WordsOfSong.h"

#include <algorithm>

#include "music/Ticks.h"

namespace korvel::test {

WordsOfSong::WordsOfSong(unsigned seed)
    : m_random(seed), m_capo(seed % 4 == 3 ? static_cast<int>(1 + seed / 4 % 7) : 0) {
  m_words = "tempo=" + std::to_string(40 + below(180)) + " key=" + std::to_string(below(12));
  if (below(8) == 0) m_words += " swing=0.67";
  takeMetre();
  if (below(2)) addPickUp();
  for (int bars = 1 + below(16); bars > 0; --bars) {
    if (below(6) == 0) takeMetre();
    fill(ticksOfBar(m_metre[0], m_metre[1]));
  }
}

OpenPitches WordsOfSong::tuning() {
  OpenPitches open{40, 45, 50, 55, 59, 64};
  for (int& pitch : open) pitch += below(3) ? 0 : below(5) - 3;
  return open;
}

void WordsOfSong::takeMetre() {
  constexpr std::array<int, 2> kMetres[] = {{4, 4}, {4, 4}, {3, 4}, {6, 8},  {2, 4},
                                            {5, 4}, {7, 8}, {9, 8}, {12, 8}, {2, 2}};
  m_metre = oneOf<std::array<int, 2>>(kMetres);
  say(std::to_string(m_metre[0]) + '/' + std::to_string(m_metre[1]));
}

void WordsOfSong::addPickUp() {
  const int sixteenth = ticksOfSixteenth(isCompound(m_metre[0], m_metre[1]));
  const int sixteenths = ticksOfBar(m_metre[0], m_metre[1]) / sixteenth;
  fill(sixteenth * (1 + below(sixteenths - 1)));
}

void WordsOfSong::fill(int ticks) {
  constexpr int kStraight[] = {3, 6, 6, 9, 12, 12, 18, 24};
  constexpr int kTriplets[] = {2, 4, 8};
  while (ticks > 0) {
    const int kind = below(8);
    const int wanted = kind == 0   ? 1 + below(24)
                       : kind == 1 ? oneOf<int>(kTriplets)
                                   : oneOf<int>(kStraight);
    const int length = std::min(wanted, ticks);
    const int times = kind == 1 && ticks >= 3 * length ? 3 : 1;
    for (int i = 0; i < times; ++i) addStep(length);
    ticks -= times * length;
  }
  say("|");
}

void WordsOfSong::addStep(int ticks) {
  const std::string length = 't' + std::to_string(ticks);
  const int kind = below(10);
  if (kind == 0) return say('r' + length);
  if (kind == 1 && m_isStruck) return say('~' + length);
  const std::string grip = newGrip();
  say(newName() + grip);
  m_isStruck = true;
  if (kind == 2) return say(length + "=t" + std::to_string(1 + below(40)));
  if (kind > 4) return say(length);
  const std::size_t string = grip.find_first_not_of('x');
  say(length + '_' + std::to_string(string) + 't' + std::to_string(1 + below(60)));
}

std::string WordsOfSong::newGrip() {
  std::string frets(6, 'x');
  for (int tones = 1 + below(3) * below(3); tones > 0; --tones)
    frets[static_cast<std::size_t>(below(6))] = "0123456789abcdefghijkl"[m_capo + below(15)];
  return frets;
}

std::string WordsOfSong::newName() {
  constexpr const char* kRoots[] = {"A", "Bb", "C", "C#", "D", "Eb", "F#", "G"};
  constexpr const char* kTypes[] = {"", "m", "7", "maj7", "m7b5", "sus4", "dim", "add9"};
  const int kind = below(8);
  if (kind == 0) return ":";
  return kind > 2 ? "" : std::string(oneOf<const char*>(kRoots)) + oneOf<const char*>(kTypes) + ':';
}

}  // namespace korvel::test
