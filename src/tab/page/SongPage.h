// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "tab/page/PageSource.h"

namespace korvel {

class QBSong;

/// How chords are called on a page.
enum class ChordNumbers {
  none,       ///< By their names.
  roman,      ///< "I vi IV V7", by the steps of the key, that of minor in minor.
  nashville,  ///< "1 6- 4 5", by the steps of the major key with the same notes.
};

/// What somebody wants a page to look like.
struct PageOptions {
  static constexpr int kHighestCapo = 11;

  /// Names and grips are those of what a hand plays behind a capo there, which sounds as before;
  /// without a value the one that the song was played with.
  std::optional<int> capo{};
  int halfTones = 0;  ///< All is to sound so much higher, or lower when negative.
  ChordNumbers numbers = ChordNumbers::none;
  bool leftHanded = false;
};

/// A chord of a bar.
struct PageChord {
  double beat = 0;       ///< Where in the bar it begins, from 0 on.
  double beats = 0;      ///< How long it lasts in the bar.
  std::string name;      ///< What a hand plays, or its number; "" for no chord.
  std::string sounding;  ///< What sounds, which is another name with a capo.
  /// Its own name is hardly more probable than others; it is marked wherever it is shown.
  bool isDoubtful = false;
  bool goesOn = false;  ///< It is the one that the bar before ends with.
  int index = 0;        ///< Of the first chord of the song that has the name, in `allChords`.
};

/// Words in a bar.
struct PageWords {
  double beat = 0;  ///< Where in the bar they begin, from 0 on.
  std::string text;
};

struct PageBar {
  int number = 0;  ///< As the tablature counts it, 0 a pick-up; of the first time it is played.
  int beat = 4;    ///< Of the time signature.
  int beattype = 4;
  double beats = 4;        ///< Its length; in compound time beats are dotted quarters.
  bool showsTime = false;  ///< Its time signature is not that of the bar before.
  std::vector<PageChord> chords;
  std::vector<std::vector<PageWords>> words;  ///< For each time that it is played.
  std::vector<int> ticks;  ///< Where it begins each time, as words are placed by.
  int length = 0;          ///< In ticks.

  /// In how many parts each beat is counted: bars such as 7/8 have no whole ones, and eighths are
  /// counted.
  int countsOfBeat() const;
  /// "Am . F ." with a point for each count on which the chord goes on; "-" for no chord, a
  /// question mark behind a doubtful name, "~" between chords that begin on one count.
  std::string chordText() const;
  /// All words of one time.
  std::string wordText(std::size_t time) const;
};

/// Bars that come again with the same chords.
struct PageSection {
  std::string letter;  ///< "A" for the first one and all others with its chords; "" for a pick-up.
  int times = 1;       ///< How often it is played here, one time after the other.
  bool isAgain = false;  ///< It was shown before; without words its letter is enough.
  std::vector<PageBar> bars;

  bool hasWords() const;
  /// Whether its bars are to be shown here.
  bool showsBars() const { return !isAgain || hasWords(); }
};

/// How a chord of the page is held.
struct PageGrip {
  std::string name;      ///< As the chords of the page are called: a name, or a number.
  std::string shape;     ///< The name of what a hand plays.
  std::string sounding;  ///< What sounds, which is another name with a capo.
  /// Counted from the capo, by string, the lowest-sounding first, or the other way round for a
  /// left hand.
  ChordShape frets{};
  ChordShape fingers{};  ///< 1 the index; 0 for none, and where nobody knows.
  int baseFret = 1;      ///< The fret that a diagram begins with: 1 from the nut.
  /// From string to string at baseFret, as indexes of `frets`, when the index lies across.
  std::optional<std::array<int, 2>> barre{};
  bool isAsPlayed = false;           ///< The song is played so.
  int index = 0;                     ///< Of the first chord that has the name, in `allChords`.
  std::vector<ChordShape> others{};  ///< Other ways to hold it, the best first.
};

/// What people sing from: the chords of a song in bars, four a line, with grips and words. A value:
/// later changes of the song do not reach it.
struct SongPage {
  static constexpr std::size_t kBarsOfLine = 4;

  std::string title;
  std::string artist;
  std::string key;            ///< Of the shapes, such as "Am"; "" when it is not known.
  std::string soundingKey;    ///< What it sounds in.
  bool isGuessedKey = false;  ///< By its chords, as the song says none.
  int capo = 0;
  int halfTones = 0;      ///< How much higher than the song it is.
  double tempo = 0;       ///< Beats a minute; 0 when nobody knows.
  std::string metre;      ///< Such as "4/4"; "" without bars.
  bool isInBars = false;  ///< Otherwise each "bar" is one change of chord.
  bool leftHanded = false;
  std::vector<PageSection> sections;  ///< As they are played.
  std::vector<PageGrip> grips;        ///< By where their chords come first.

  bool isEmpty() const { return sections.empty(); }
  bool hasWords() const;
  /// Whether names are marked, as others are as probable.
  bool hasDoubts() const;
};

/// The page of a song, whichever it is: one on beats, one of slices with bars, or without.
SongPage pageOf(QBSong& song, const PageOptions& options = {});
SongPage pageOf(const PageSource& source, const PageOptions& options = {});

}  // namespace korvel
