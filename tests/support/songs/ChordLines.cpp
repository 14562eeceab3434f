// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/songs/ChordLines.h"

#include <algorithm>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "arrange/harmony/HarmonyOfChord.h"
#include "support/store/StandardStore.h"

namespace korvel::test {
namespace {

constexpr double kMillion = 1e6;

}  // namespace

QBChord* addWritten(QBSong* song, const std::string& written) {
  static const std::regex form(R"(([0-9a-z]*)(\*(\d+))?(@([\d.,]+))?(\+(\d)/(\d+))?(!(\d?))?)");
  std::smatch part;
  if (!std::regex_match(written, part, form)) throw std::invalid_argument(written);
  QBChord* chord = addChord(song, part[1].str(), part[3].matched ? std::stoi(part[3]) : 1);
  std::istringstream amps(part[5]);
  for (QBTone* tone : chord->hold()->tones()) {
    std::string amp;
    if (std::getline(amps, amp, ',')) tone->setAmp(std::stod(amp) * kMillion);
    const bool meant = part[10].length() == 0 || std::stoi(part[10]) == tone->string();
    if (part[9].matched && meant) tone->setActive(false);
  }
  if (part[6].matched) chord->hold()->addTone(std::stoi(part[7]), std::stoi(part[8]), kMillion);
  readHarmony(*chord);
  return chord;
}

std::string drawn(const QBChord& chord) {
  std::ostringstream text;
  if (chord.harmony()) text << chord.fullHarmonyName() << ':';
  text << fretsOf(chord);
  if (chord.duration() != 1) text << '*' << chord.duration();
  const auto& tones = chord.hold()->tones().snapshot();
  if (std::ranges::any_of(tones, [](const auto& tone) { return tone->amp() != kMillion; }))
    for (char before = '@'; const auto& tone : tones)
      text << std::exchange(before, ',') << tone->amp() / kMillion;
  return text.str();
}

std::string drawn(const QBSong& song) {
  std::string text;
  for (const auto& chord : song.chords()) text += drawn(*chord) + ' ';
  return text;
}

}  // namespace korvel::test
