// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tab/page/PageSource.h"

namespace korvel {

class QBTabMgr;

/// Also any part of one that is not ASCII.
inline bool isLetterOfWord(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '\'' || (c & '\x80') != 0;
}

/// Whether there are guitars with all its frets.
bool isOnNeck(const ChordShape& shape);

/// The names of chords as files write them.
class ReadNames {
 public:
  explicit ReadNames(const QBTabMgr& db) : m_db(db) {}

  /// The chord without its place: one without a root for "N.C."; none for what is no chord. A type
  /// that the chord book has not counts as the longest beginning of it that it has.
  std::optional<PageSource::Chord> chordOf(std::string_view name);
  /// That chord is held so, counted from the nut or the capo. A shape that no neck has is passed
  /// over, so that another one is found.
  void define(std::string_view name, const ChordShape& shape);

  const std::vector<std::string>& unknown() const { return m_unknown; }

 private:
  std::optional<PageSource::Chord> read(std::string_view name);
  std::optional<PageSource::Chord> nearest(std::string_view name);

  const QBTabMgr& m_db;
  std::map<std::string, std::optional<PageSource::Chord>, std::less<>> m_known;
  std::map<std::string, ChordShape, std::less<>> m_shapes;
  std::vector<std::string> m_unknown;
};

/// The pitch class of a note's name alone, such as "F#" or "F♯"; H is B. None for any other text.
std::optional<int> noteOfName(std::string_view name);

}  // namespace korvel
