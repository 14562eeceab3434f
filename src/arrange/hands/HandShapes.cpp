// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/HandShapes.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "model/book/QBHarmony.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr int kHighestPosition = 12;
constexpr int kReach = 4;  // frets under a hand
constexpr int kFewestStrings = 3;
constexpr int kTonesOfTriad = 3;
constexpr int kFifth = 7;

bool isFretted(int fret) { return fret > 0; }

/// What a hand does for a shape.
struct Effort {
  explicit Effort(const ChordShape& shape) {
    for (const int fret : shape) {
      if (fret == kNotPlayed) continue;
      ++sounding;
      if (fret == 0) ++open;
      if (isFretted(fret)) lowest = lowest == 0 ? fret : std::min(lowest, fret);
      highest = std::max(highest, fret);
    }
    fingers = fingersFor(shape);
  }

  /// The index lies over the strings at the lowest fret, unless one between them is open.
  int fingersFor(const ChordShape& shape) const {
    const int pressed = pressedIn(shape);
    const auto barred = static_cast<int>(std::ranges::count(shape, lowest));
    const auto first = std::ranges::find(shape, lowest);
    const bool lies = lowest > 0 && std::find(first, shape.end(), 0) == shape.end() &&
                      std::find(first, shape.end(), kNotPlayed) == shape.end();
    return lies ? pressed - barred + 1 : pressed;
  }

  /// Low frets, few fingers and many strings are easy; the weights put the shapes of beginners
  /// first.
  double cost() const {
    return lowest + 0.6 * fingers + 0.7 * (kStrings - sounding) - 0.3 * open +
           0.2 * (highest - lowest);
  }

  int sounding = 0;
  int open = 0;
  int lowest = 0;  ///< Fret that is pressed; 0 when none is.
  int highest = 0;
  int fingers = 0;
};

class Search {
 public:
  Search(const ChordName& name, const OpenStrings& strings)
      : m_strings(strings), m_root(pitchClassOf(name.baseTone)) {
    for (int note = 0; note < kNotesOfOctave; ++note)
      if (name.harmony->includesNote(name.baseTone, note)) m_wanted |= 1U << note;
    m_wanted |= 1U << m_root;
  }

  std::vector<ChordShape> found() {
    for (int position = 1; position <= kHighestPosition; ++position) {
      ChordShape shape;
      shape.fill(kNotPlayed);
      fill(shape, 0, position);
    }
    std::ranges::sort(m_found);
    m_found.erase(std::unique(m_found.begin(), m_found.end()), m_found.end());
    std::ranges::stable_sort(m_found, {},
                             [](const ChordShape& each) { return Effort(each).cost(); });
    return std::move(m_found);
  }

 private:
  static constexpr int kNotesOfOctave = 12;

  static int pitchClassOf(int note) {
    return ((note % kNotesOfOctave) + kNotesOfOctave) % kNotesOfOctave;
  }
  int classAt(int string, int fret) const { return pitchClassOf(m_strings.note(string, fret)); }
  bool isWanted(int string, int fret) const {
    return (m_wanted >> classAt(string, fret) & 1U) != 0;
  }

  /// Strings are left out below the root and above the highest tone only.
  void fill(ChordShape& shape, int string, int position) {
    if (string == kStrings) return keep(shape);
    const auto at = static_cast<std::size_t>(string);
    shape[at] = kNotPlayed;
    fill(shape, string + 1, position);
    if (isWanted(string, 0)) {
      shape[at] = 0;
      fill(shape, string + 1, position);
    }
    for (int fret = position; fret < position + kReach; ++fret) {
      if (!isWanted(string, fret)) continue;
      shape[at] = fret;
      fill(shape, string + 1, position);
    }
    shape[at] = kNotPlayed;
  }

  void keep(const ChordShape& shape) {
    if (isUnbroken(shape) && hasRootBelow(shape) && hasItsTones(shape) &&
        Effort(shape).fingers <= kFingersOfHand)
      m_found.push_back(shape);
  }

  static bool isUnbroken(const ChordShape& shape) {
    const auto plays = [](int fret) { return fret != kNotPlayed; };
    const auto first = std::ranges::find_if(shape, plays);
    const auto end = std::find_if_not(first, shape.end(), plays);
    return end - first >= kFewestStrings && std::none_of(end, shape.end(), plays);
  }

  bool hasRootBelow(const ChordShape& shape) const {
    for (int string = 0; string < kStrings; ++string)
      if (const int fret = shape[static_cast<std::size_t>(string)]; fret != kNotPlayed)
        return classAt(string, fret) == m_root;
    return false;
  }

  bool hasItsTones(const ChordShape& shape) const {
    unsigned heard = 0;
    for (int string = 0; string < kStrings; ++string)
      if (const int fret = shape[static_cast<std::size_t>(string)]; fret != kNotPlayed)
        heard |= 1U << classAt(string, fret);
    const unsigned fifth = 1U << pitchClassOf(m_root + kFifth);
    const unsigned needed = std::popcount(m_wanted) > kTonesOfTriad ? m_wanted & ~fifth : m_wanted;
    return (needed & ~heard) == 0;
  }

  const OpenStrings& m_strings;
  int m_root;
  unsigned m_wanted = 0;  ///< Pitch classes, bit n for n.
  std::vector<ChordShape> m_found;
};

}  // namespace

std::vector<ChordShape> shapesOf(const ChordName& name, const OpenStrings& strings,
                                 std::size_t most) {
  std::vector<ChordShape> shapes = Search(name, strings).found();
  if (shapes.size() > most) shapes.resize(most);
  return shapes;
}

int pressedIn(const ChordShape& shape) {
  return static_cast<int>(std::ranges::count_if(shape, isFretted));
}

bool liesOpen(const ChordShape& shape) {
  constexpr int kHighestOfOpen = 3;
  return std::ranges::find(shape, 0) != shape.end() && std::ranges::max(shape) <= kHighestOfOpen;
}

std::string shorthandOf(const ChordShape& shape) {
  const bool isWide = std::ranges::any_of(shape, [](int fret) { return fret > 9; });
  std::string text;
  for (const int fret : shape) {
    if (isWide && !text.empty()) text += '-';
    text += fret == kNotPlayed ? "x" : std::to_string(fret);
  }
  return text;
}

std::optional<ChordShape> shapeWritten(std::string_view shorthand) {
  constexpr int kMostFrets = 24;
  const bool isWide = shorthand.find('-') != std::string_view::npos;
  ChordShape shape;
  for (std::size_t string = 0; string < shape.size(); ++string) {
    const std::size_t end = isWide ? std::min(shorthand.find('-'), shorthand.size()) : 1;
    const std::string_view fret = shorthand.substr(0, end);
    const bool isLast = string + 1 == shape.size();
    if (fret.empty() || fret.size() > 2 || (isLast && end < shorthand.size())) return std::nullopt;
    if (fret != "x" && fret.find_first_not_of("0123456789") != std::string_view::npos)
      return std::nullopt;
    shape[string] = fret == "x" ? kNotPlayed : std::stoi(std::string(fret));
    if (shape[string] > kMostFrets) return std::nullopt;
    shorthand.remove_prefix(std::min(shorthand.size(), end + (isWide ? 1 : 0)));
  }
  return shape;
}

}  // namespace korvel
