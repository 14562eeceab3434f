// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <random>
#include <span>
#include <string>

#include "music/Neck.h"

namespace korvel::test {

/// Any song in the words of `beatSong`, another one for each seed: metres, pick-ups, triplets,
/// ties, rests, names, tones that ring on and lengths that no music has.
class WordsOfSong {
 public:
  explicit WordsOfSong(unsigned seed);

  const std::string& words() const { return m_words; }
  /// Of every fourth song, which has no tone below it.
  int capo() const { return m_capo; }
  /// Open strings as they may be: each within a fourth of the standard one, from low to high.
  OpenPitches tuning();

 private:
  int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
  template <class T>
  T oneOf(std::span<const T> all) {
    return all[static_cast<std::size_t>(below(static_cast<int>(all.size())))];
  }
  void say(const std::string& word) { m_words += ' ' + word; }
  void takeMetre();
  void addPickUp();
  void fill(int ticks);
  void addStep(int ticks);
  std::string newGrip();
  std::string newName();

  std::mt19937 m_random;
  int m_capo;
  std::string m_words;
  std::array<int, 2> m_metre{4, 4};
  bool m_isStruck = false;
};

}  // namespace korvel::test
