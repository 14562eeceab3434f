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

std::string noteName(int midi) {
  const int octave = midi / kNotesPerOctave + kOctaveOfNote0;
  return std::string(nameOfPitchClass(pitchClass(midi))) + std::to_string(octave);
}

}  // namespace korvel
