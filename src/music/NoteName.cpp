// SPDX-License-Identifier: GPL-3.0-or-later
#include "music/NoteName.h"

#include <array>
#include <charconv>

#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr std::string_view kLetters = "CDEFGAB";
constexpr int kSteps[] = {0, 2, 4, 5, 7, 9, 11};
constexpr int kOctaveOfNote0 = -1;

/// The number that the whole text is.
std::optional<int> number(std::string_view text) {
  int value = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || rest != end) return std::nullopt;
  return value;
}

/// Takes a sharp or flat sign off the front: its semitones, or 0.
int takeAccidental(std::string_view& text) {
  const int shift = text.starts_with('#') ? 1 : text.starts_with('b') ? -1 : 0;
  if (shift != 0) text.remove_prefix(1);
  return shift;
}

std::optional<int> named(std::string_view text) {
  const auto letter = text.empty() ? std::string_view::npos : kLetters.find(text.front());
  if (letter == std::string_view::npos) return std::nullopt;
  text.remove_prefix(1);
  const int step = kSteps[letter] + takeAccidental(text);
  const std::optional<int> octave = number(text);
  if (!octave || *octave < -1 || *octave > 9) return std::nullopt;
  return (*octave - kOctaveOfNote0) * kNotesPerOctave + step;
}

/// Fifths from C up to the tonic: 1 for G, -1 for F.
int fifthsOfTonic(int key) {
  constexpr int kHighestInMajor = 6;
  constexpr int kHighestInMinor = 8;
  const int fifths = pitchClass(key) * 7 % kNotesPerOctave;
  const bool minor = key >= kNotesPerOctave;
  return fifths > (minor ? kHighestInMinor : kHighestInMajor) ? fifths - kNotesPerOctave : fifths;
}

}  // namespace

std::optional<int> midiNote(std::string_view text) {
  const std::optional<int> given = number(text);
  const std::optional<int> note = given ? given : named(text);
  return note && *note >= 0 && *note <= kHighestNote ? note : std::nullopt;
}

std::string_view nameOfPitchClass(int note) {
  static constexpr std::array<std::string_view, kNotesPerOctave> kNames = {
      "C", "C#", "D", "Eb", "E", "F", "F#", "G", "Ab", "A", "Bb", "B"};
  return kNames.at(static_cast<std::size_t>(note));
}

// On the line of fifths a key reaches from its lowered second to its raised fourth, and in major to
// the raised first, which leads to the second. White keys keep their names.
std::string_view nameInKey(int note, int key) {
  static constexpr std::array<std::string_view, kNotesPerOctave> kSharps = {
      "C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
  static constexpr std::array<std::string_view, kNotesPerOctave> kFlats = {
      "C", "Db", "D", "Eb", "E", "F", "Gb", "G", "Ab", "A", "Bb", "B"};
  if (key < 0 || key >= 2 * kNotesPerOctave) return nameOfPitchClass(note);
  const int highest = fifthsOfTonic(key) + (key < kNotesPerOctave ? 7 : 6);
  const bool isSharp = note * 7 % kNotesPerOctave <= highest;
  return (isSharp ? kSharps : kFlats).at(static_cast<std::size_t>(note));
}

std::string noteName(int midi) {
  const int octave = midi / kNotesPerOctave + kOctaveOfNote0;
  return std::string(nameOfPitchClass(pitchClass(midi))) + std::to_string(octave);
}

}  // namespace korvel
