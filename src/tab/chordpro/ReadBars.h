// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tab/page/PageSource.h"

namespace korvel {

/// The bars of a ChordPro file while it is read. What comes is added at the end, where one bar may
/// be open for more chords. Ticks of chords and words count from the beginning of their bar here.
class ReadBars {
 public:
  using Chord = PageSource::Chord;

  /// The time signature of the bars that come. Ends the open bar.
  void setMetre(int beat, int beattype);
  /// Of a bar of that time signature.
  int ticksOfWhole() const;

  /// A chord with a bar to itself.
  void addWhole(Chord chord);
  /// A chord of that length in the open bar, or in a new one where none is open or that one is
  /// full.
  void addBeside(Chord chord, int ticks);
  /// A bar of that length with chords by their ticks. Where none begins with it the chord before it
  /// goes on.
  void addBar(std::vector<Chord> chords, int ticks);
  /// Sung from the last chord on; those before the first chord come with that one.
  void addWords(std::string_view words);
  /// Nothing more comes into the open bar.
  void end();
  /// Once more the bars from one index to before another one, until there are too many.
  void repeat(std::size_t from, std::size_t behind);
  /// Once more so many of the last bars, without their words. Nothing where there are fewer.
  void repeatLast(std::size_t count);

  /// Of bars that have ended.
  std::size_t size() const { return m_bars.size(); }
  /// How many more a song may have.
  std::size_t room() const;
  /// Longer files are no songs: what comes is to be left out.
  bool isTooLong() const;
  /// All that have ended, one behind the other: bars, chords and words of the song. What is missing
  /// of the first one lies before the first bar line. There is one at least.
  void layInto(PageSource& song) const;

 private:
  struct Bar {
    int beat;
    int beattype;
    int ticks = 0;
    std::vector<Chord> chords{};
    std::vector<PageSource::Words> words{};
  };

  Bar& open();
  void keep(Bar bar);
  void addEarlyWords();

  std::vector<Bar> m_bars;
  std::size_t m_letters = 0;  ///< Of all that they hold.
  std::optional<Bar> m_open;
  std::string m_early;  ///< Words before the first chord.
  int m_beat = 4;
  int m_beattype = 4;
};

}  // namespace korvel
