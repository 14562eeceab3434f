// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// What sounds together in a tablature that somebody wrote.
struct TypedChord {
  struct Tone {
    int string;  ///< 0 the lowest-sounding one.
    int fret;    ///< 0 to 24.
  };

  int column;               ///< Where its first number begins; systems follow one another.
  std::vector<Tone> tones;  ///< One for each string that is struck.
};

/// Reads a tablature as people write it as text: systems of six lines with bars, with or without
/// the names of the strings, the highest one at the top unless an "e" is at the bottom, and
/// anything between the systems. Numbers in one column, or of which one reaches into the other's
/// column, sound together; two digits are a fret up to 24, or else two of them. What a bend reaches
/// is not struck, and a muted string not heard; other signs are passed over.
class TabReader {
 public:
  explicit TabReader(std::string_view text);

  /// In the order in which they are played; none for a text that is no such tablature, as when
  /// lines of a string are missing.
  const std::vector<TypedChord>& chords() const { return m_chords; }

 private:
  struct Line {
    char label = ' ';  ///< The last letter before the first bar.
    std::string body;
  };
  struct Number {
    std::size_t first, last;  ///< Columns.
    TypedChord::Tone tone;
  };
  using Lines = std::vector<Line>;

  static std::optional<Line> lineOf(const std::string& text);
  bool readSystems(const Lines& lines);
  void readSystem(const Line* lines);
  static void readNumbers(const std::string& body, int string, std::vector<Number>& numbers);
  void addChords(std::vector<Number> numbers);

  int m_column = 0;  ///< Where the next system begins.
  std::vector<TypedChord> m_chords;
};

}  // namespace korvel
