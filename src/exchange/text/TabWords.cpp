// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/TabWords.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "music/Pitch.h"

namespace korvel::exchange {

namespace {

using Words = std::string_view;

constexpr std::size_t kStringsOfTuning = kStrings;
constexpr std::size_t kShortLine = 34;
constexpr std::size_t kFarFromCapo = 24;
constexpr std::size_t kFretBeforeCapo = 14;  ///< Columns of "seventh fret ".
constexpr int kHighestCapo = 12;
constexpr std::size_t kLongestTitle = 100;
constexpr double kSlowest = 20;
constexpr double kFastest = 400;
constexpr int kMostBeats = 24;

struct NamedTuning {
  Words name;
  OpenPitches open;
  bool isChordToo = false;  ///< A chord may be meant.
};

constexpr std::array kTunings{
    NamedTuning{"double drop d", {38, 45, 50, 55, 59, 62}},
    NamedTuning{"dadgad", {38, 45, 50, 55, 57, 62}},
    NamedTuning{"drop c#", {37, 44, 49, 54, 58, 63}},
    NamedTuning{"drop db", {37, 44, 49, 54, 58, 63}},
    NamedTuning{"drop d", kDropDPitches},
    NamedTuning{"dropped d", kDropDPitches},
    NamedTuning{"drop c", {36, 43, 48, 53, 57, 62}},
    NamedTuning{"open dm", {38, 45, 50, 53, 57, 62}, true},
    NamedTuning{"open d minor", {38, 45, 50, 53, 57, 62}, true},
    NamedTuning{"open g", {38, 43, 50, 55, 59, 62}, true},
    NamedTuning{"open d", {38, 45, 50, 54, 57, 62}, true},
    NamedTuning{"open e", {40, 47, 52, 56, 59, 64}, true},
    NamedTuning{"open c", {36, 43, 48, 55, 60, 64}, true},
    NamedTuning{"open a", {40, 45, 52, 57, 61, 64}, true},
};
struct NumberWord {
  Words word;
  int number;
};
constexpr std::array kNumberWords{
    NumberWord{"first", 1},   NumberWord{"second", 2}, NumberWord{"third", 3},
    NumberWord{"fourth", 4},  NumberWord{"fifth", 5},  NumberWord{"sixth", 6},
    NumberWord{"seventh", 7}, NumberWord{"eighth", 8}, NumberWord{"ninth", 9},
    NumberWord{"tenth", 10},  NumberWord{"none", 0},   NumberWord{"viii", 8},
    NumberWord{"vii", 7},     NumberWord{"iii", 3},    NumberWord{"iv", 4},
    NumberWord{"vi", 6},      NumberWord{"ix", 9},     NumberWord{"ii", 2},
    NumberWord{"v", 5},
};

bool isNumeral(char c) { return c >= '0' && c <= '9'; }

bool isSmallLetter(char c) { return c >= 'a' && c <= 'z'; }

bool holds(Words words, Words part) { return words.find(part) != Words::npos; }

bool hasAny(Words words, std::initializer_list<Words> parts) {
  return std::ranges::any_of(parts, [words](Words part) { return holds(words, part); });
}

/// Where a word stands that is not part of another one.
std::size_t findWord(Words words, Words word) {
  for (std::size_t at = words.find(word); at != Words::npos; at = words.find(word, at + 1)) {
    const std::size_t end = at + word.size();
    const bool begins = at == 0 || !isSmallLetter(words[at - 1]);
    if (begins && (end >= words.size() || (!isSmallLetter(words[end]) && words[end] != '#')))
      return at;
  }
  return Words::npos;
}

bool hasWord(Words words, Words word) { return findWord(words, word) != Words::npos; }

std::optional<int> numberAt(Words words) {
  int number = 0;
  const auto result = std::from_chars(words.data(), words.data() + words.size(), number);
  if (result.ec != std::errc()) return std::nullopt;
  return number;
}

/// The first number of a text.
std::optional<int> numberIn(Words words) {
  const auto* digit = std::ranges::find_if(words, isNumeral);
  if (digit == words.end()) return std::nullopt;
  return numberAt(words.substr(static_cast<std::size_t>(digit - words.begin())));
}

// Tunings.

OpenPitches shifted(OpenPitches open, int by) {
  for (int& pitch : open) pitch += by;
  return open;
}

/// "half a step down", "2 steps down", "a semitone lower": in half tones.
std::optional<int> stepsDown(Words words) {
  if (!hasAny(words, {"down", "lower", "flat"})) return std::nullopt;
  if (holds(words, "semitone")) return std::max(numberIn(words).value_or(1), 1);
  if (!holds(words, "step")) return std::nullopt;
  if (hasAny(words, {"1 1/2", "one and a half", "1.5"})) return 3;
  if (hasAny(words, {"half", "1/2", "?"})) return 1;
  if (hasWord(words, "two") || hasWord(words, "2")) return 4;
  return 2;
}

struct TuningNote {
  int note;
  std::optional<int> octave{};
};

/// The notes that a text begins with, six at most; none of a longer word.
std::vector<TuningNote> notesOf(std::u32string_view words) {
  std::vector<TuningNote> notes;
  const bool isAllSmall =
      std::ranges::none_of(words, [](char32_t c) { return c >= U'A' && c <= U'Z'; });
  for (std::size_t i = 0; i < words.size(); ++i) {
    const char32_t c = words[i];
    if (notes.size() == kStringsOfTuning) {
      if (Row(U" ,.;:()").find(c) == Row::npos) notes.clear();
      break;
    }
    if (Row(U" ,-/.|").find(c) != Row::npos) continue;
    const bool isNote = (c >= U'A' && c <= U'H') || (c >= U'a' && c <= U'h');
    if (!isNote) break;
    constexpr std::array kLetters{9, 11, 0, 2, 4, 5, 7, 11};
    TuningNote note{kLetters.at((c | 0x20U) - U'a')};
    const char32_t sign = at(words, i + 1);
    const bool isFlat = sign == U'\u266D' || (sign == U'b' && !isAllSmall);
    if (sign == U'#' || sign == U'\u266F' || isFlat) {
      note.note = pitchClass(note.note + (isFlat ? -1 : 1));
      ++i;
    }
    if (isDigit(at(words, i + 1))) note.octave = static_cast<int>(words[++i] - U'0');
    notes.push_back(note);
  }
  return notes;
}

int farness(const std::vector<TuningNote>& notes) {
  int sum = 0;
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const int up = pitchClass(notes[i].note - kStandardPitches.at(i));
    sum += std::min(up, kNotesPerOctave - up);
  }
  return sum;
}

std::optional<OpenPitches> openOfNotes(std::vector<TuningNote> notes) {
  if (notes.size() != kStringsOfTuning) return std::nullopt;
  const std::vector<TuningNote> reversed(notes.rbegin(), notes.rend());
  if (farness(reversed) < farness(notes)) notes = reversed;
  OpenPitches open{};
  for (std::size_t string = kStringsOfTuning; string-- > 0;) {
    const TuningNote& note = notes[string];
    const int standard = kStandardPitches.at(string);
    const int up = pitchClass(note.note - standard);
    open.at(string) = note.octave
                          ? (*note.octave + 1) * kNotesPerOctave + note.note
                          : standard + (up > kNotesPerOctave / 2 ? up - kNotesPerOctave : up);
    while (!note.octave && string + 1 < kStringsOfTuning && open.at(string) >= open.at(string + 1))
      open.at(string) -= kNotesPerOctave;
  }
  return std::ranges::is_sorted(open) && open.front() > 0 ? std::optional(open) : std::nullopt;
}

/// "Eb standard", "tuned to D".
std::optional<OpenPitches> standardOn(const std::vector<TuningNote>& notes) {
  if (notes.empty()) return std::nullopt;
  const int down = pitchClass(kStandardPitches.front() - notes.front().note);
  return shifted(kStandardPitches, down > kNotesPerOctave / 2 ? kNotesPerOctave - down : -down);
}

/// Where it says what the strings are tuned to.
std::size_t behindTuned(Words words) {
  for (const Words word : {"tuning", "tuned", "tune"}) {
    const std::size_t found = words.find(word);
    if (found == Words::npos) continue;
    std::size_t at = words.find_first_not_of(" :=-", found + word.size());
    for (const Words filler : {"guitar ", "is ", "in ", "to ", "used ", ": "})
      if (at != Words::npos && words.substr(at).starts_with(filler))
        at = words.find_first_not_of(' ', at + filler.size());
    return std::min(at, words.size());
  }
  return Words::npos;
}

/// A word of its own such as "DADGAD" or "CGDGBE", and no other of these letters.
bool isWordOfNotes(std::u32string_view words) {
  const bool isLarge =
      std::ranges::all_of(words, [](char32_t c) { return c >= U'A' && c <= U'G'; });
  const auto notes = notesOf(words);
  return words.size() == kStringsOfTuning && isLarge && farness(notes) <= kStrings;
}

// Other words.

std::optional<int> fretIn(Words words) {
  for (const NumberWord& each : kNumberWords)
    if (hasWord(words, each.word)) return each.number;
  const auto number = numberIn(words);
  return number && *number <= kHighestCapo ? number : std::nullopt;
}

/// "Capo 2nd fret", "3rd fret capo", "no capo".
std::optional<int> capoOf(Words words) {
  const std::size_t found = words.find("capo");
  if (found == Words::npos) return std::nullopt;
  const Words before = words.substr(0, found);
  for (const Words none : {"no ", "without ", "without a "})
    if (before.ends_with(none)) return 0;
  if (before.ends_with("fret "))
    return fretIn(before.substr(before.size() - std::min(before.size(), kFretBeforeCapo)));
  return fretIn(words.substr(found + 4, kFarFromCapo));
}

std::optional<double> tempoNear(Words words) {
  const auto number = numberIn(words);
  if (!number || *number < kSlowest || *number > kFastest) return std::nullopt;
  return static_cast<double>(*number);
}

/// "Tempo: 96", "96 bpm", or a note, "=" and a number.
std::optional<double> tempoOf(const Row& row, Words words) {
  const std::size_t equals = row.find(U'=');
  const bool hasNote = row.find_first_of(U"\u2669\u2669") != Row::npos ||
                       hasAny(words, {"quarter", "1/4 =", "1/4=", "q=", "q =", "q.=", "q. ="});
  if (hasNote && equals != Row::npos) {
    const auto tempo = tempoNear(words.substr(equals));
    const bool isDotted = equals > 0 && row.find(U'.') < equals;
    return tempo && isDotted ? std::optional(*tempo * 3 / 2) : tempo;
  }
  if (const std::size_t found = findWord(words, "tempo"); found != Words::npos)
    return tempoNear(words.substr(found));
  const std::size_t found = findWord(words, "bpm");
  if (found == Words::npos) return std::nullopt;
  if (const auto behind = tempoNear(words.substr(found))) return behind;
  std::size_t digit = words.find_last_of("0123456789", found);
  if (digit == Words::npos) return std::nullopt;
  while (digit > 0 && isNumeral(words[digit - 1])) --digit;
  return tempoNear(words.substr(digit));
}

std::optional<Metre> metreOf(Words words) {
  const bool isTold = hasAny(words, {"time", "metre", "meter", "takt", "tempo"});
  for (std::size_t i = words.find('/'); i != Words::npos; i = words.find('/', i + 1)) {
    std::size_t first = i;
    while (first > 0 && isNumeral(words[first - 1])) --first;
    const auto metre = first == i ? std::nullopt : metreAt(words, first);
    if (metre && (isTold || words.size() <= i + 3)) return metre;
  }
  return std::nullopt;
}

/// What stands behind one of these and a colon.
std::string labelled(const Row& row, Words words, std::initializer_list<Words> labels) {
  const std::size_t first = std::min(words.find_first_not_of(' '), words.size());
  for (const Words label : labels) {
    if (!words.substr(first).starts_with(label)) continue;
    const std::size_t colon = words.find_first_not_of(' ', first + label.size());
    if (colon == Words::npos || words[colon] != ':') continue;
    const std::size_t text = words.find_first_not_of(' ', colon + 1);
    if (text != Words::npos) return utf8(row.substr(text, kLongestTitle));
  }
  return {};
}

}  // namespace

std::optional<OpenPitches> tuningNamed(const Row& row) {
  const std::string text = plainWords(row);
  const Words words = text;
  const std::size_t tuned = behindTuned(words);
  const bool isTold = tuned != Words::npos;
  const bool isShort = words.size() <= kShortLine;
  if (!isTold && hasWord(words, "chord")) return std::nullopt;
  for (const NamedTuning& each : kTunings)
    if (hasWord(words, each.name) && (isTold || isShort || !each.isChordToo)) return each.open;
  if (const auto steps = isTold || isShort ? stepsDown(words) : std::nullopt)
    return shifted(kStandardPitches, -*steps);
  for (std::size_t at = 0; at < row.size();) {
    const std::size_t end = std::min(row.find_first_of(U" ,.;:()", at), row.size());
    const Row word = row.substr(at, end - at);
    if (isWordOfNotes(word)) return openOfNotes(notesOf(word));
    at = end + 1;
  }
  if (!isTold) return std::nullopt;
  if (const auto open = openOfNotes(notesOf(Row(row, tuned)))) return open;
  if (hasWord(words, "eb") || hasAny(words, {"e flat", "e-flat"}))
    return shifted(kStandardPitches, -1);
  if (const std::size_t standard = words.find("standard"); standard != Words::npos) {
    const std::size_t word = words.find_last_of(' ', standard < 2 ? 0 : standard - 2);
    const bool hasRoot =
        standard >= 2 && words.substr(0, standard).find_last_of("abcdefg#") == standard - 2;
    if (!hasRoot) return kStandardPitches;
    return standardOn(notesOf(Row(row, word == Words::npos ? 0 : word + 1)));
  }
  return std::nullopt;
}

std::optional<Metre> metreAt(Words words, std::size_t column) {
  const auto beats = numberAt(words.substr(column));
  const std::size_t slash = words.find_first_not_of("0123456789", column);
  if (!beats || slash == Words::npos || words[slash] != '/') return std::nullopt;
  const auto type = numberAt(words.substr(slash + 1));
  const std::size_t end = words.find_first_not_of("0123456789", slash + 1);
  const bool isType = type && (*type == 2 || *type == 4 || *type == 8 || *type == 16);
  const bool isDate = end != Words::npos && words[end] == '/';
  if (!isType || isDate || *beats < 2 || *beats > kMostBeats) return std::nullopt;
  return Metre{*beats, *type};
}

void TabWords::read(const Row& row) {
  const std::string words = plainWords(row);
  if (title.empty()) title = labelled(row, words, {"title", "song", "song name", "song title"});
  if (artist.empty()) artist = labelled(row, words, {"artist", "band", "by", "composer"});
  if (!open) open = tuningNamed(row);
  if (!capo) capo = capoOf(words);
  if (!metre) metre = metreOf(words);
  if (tempo) return;
  tempo = tempoOf(row, words);
  isSwung = tempo && hasWord(words, "swing");
}

}  // namespace korvel::exchange
