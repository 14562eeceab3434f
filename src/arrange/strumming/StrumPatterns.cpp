// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/strumming/StrumPatterns.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

#include "music/Neck.h"
#include "music/Ticks.h"

namespace korvel {
namespace {

using platform::phrase;

constexpr char kRing = '.';
constexpr char kDamp = '-';
constexpr char kAll = 'D';
constexpr std::size_t kMostOfTreble = 4;

constexpr StrumPattern kPatterns[]{
    {"beats", phrase("Strumming", "On the beats")},
    {"none", phrase("Strumming", "Held through the bar"), "D", "D", "D", "D", "D", "D"},
    {"eighths", phrase("Strumming", "Down and up in eighths"), "DuDu", "DuDuDu", "DuDuDuDu",
     "DduDdu", "DduDduDdu", "DduDduDduDdu"},
    {"downs", phrase("Strumming", "Eighths, all downwards"), "DDDD", "DDDDDD", "DDDDDDDD", "DDDDDD",
     "DDDDDDDDD", "DDDDDDDDDDDD"},
    {"folk", phrase("Strumming", "Folk song"), "D.Du", "D.DuDu", "D.Du.uDu", "D.uD.u", "D.uD.uD.u",
     "D.uD.uD.uDdu"},
    {"ballad", phrase("Strumming", "Ballad"), "D..u", "D...Du", "D...D.Du", "D....u", "D.....D.u",
     "D.....D..D.u"},
    {"bass", phrase("Strumming", "Bass and chord"), "b.d.", "b.d.d.", "b.d.a.d.", "b.da.d",
     "b.dd.dd.d", "b.dd.da.dd.d"},
    {"country", phrase("Strumming", "Bass, then down and up"), "b.du", "b.dudu", "b.dua.du",
     "bduadu", "bdudududu", "bdudduaduddu"},
    {"offbeat", phrase("Strumming", "Short, between the beats"), "-d-d", "-d-d-d", "-d-d-d-d",
     "-.d-.d", "-.d-.d-.d", "-.d-.d-.d-.d"},
    {"rolling", phrase("Strumming", "Sixteenths"), "D.DuD.Du", "D.DuD.DuD.Du", "D.DuD.DuD.DuD.Du",
     "D.DuDuD.DuDu", "D.DuDuD.DuDuD.DuDu", "D.DuDuD.DuDuD.DuDuD.DuDu"},
    {"syncopated", phrase("Strumming", "Across the beats"), "D..u..D.", "D..D.u", "D..D..D.",
     "D.d.u.", "D.d.u.d.u", "D.d.u.D.d.u."},
    {"charleston", phrase("Strumming", "Twice, then a rest"), "D..d", "D..d--", "D..d----",
     "D.d---", "D.d------", "D.d---D.d---"},
};

constexpr double loudnessOf(char stroke) {
  if (stroke == 'u') return 0.7;
  if (stroke == 'd') return 0.8;
  return stroke == kAll ? 1 : 0.9;
}

std::vector<int> struckBy(char stroke, unsigned held) {
  std::vector<int> strings;
  for (int string = 0; string < kStrings; ++string)
    if ((held >> string & 1U) != 0) strings.push_back(string);
  if (strings.empty() || stroke == kAll) return strings;
  if (stroke == kDamp) return {};
  if (stroke == 'b' || stroke == 'a') {
    const bool other = stroke == 'a' && strings.size() > kMostOfTreble - 1;
    return {strings[other ? 1 : 0]};
  }
  const std::size_t most = std::min(kMostOfTreble, strings.size());
  return {strings.end() - static_cast<std::ptrdiff_t>(most), strings.end()};
}

struct Stroke {
  int tick;
  char letter;
};

std::string onBeats(const HeldPart& part) {
  const int ticks = ticksOfBar(part.beat, part.beattype);
  return std::string(static_cast<std::size_t>(std::max(ticks / kTicksOfBeat, 1)), kAll);
}

/// Whether it strikes between the beats only.
bool leavesOutBeats(std::string_view bar, int ticks) {
  for (std::size_t i = 0; i < bar.size(); ++i) {
    const bool isBeat = static_cast<int>(i) * ticks % kTicksOfBeat == 0;
    if (isBeat && bar[i] != kRing && bar[i] != kDamp) return false;
  }
  return true;
}

std::vector<Stroke> strokesOf(const StrumPattern& pattern, const HeldPart& part) {
  const std::string_view written = pattern.bar(part.beat, part.beattype);
  const std::string bar = written.empty() ? onBeats(part) : std::string(written);
  const int ticks =
      std::max(ticksOfBar(part.beat, part.beattype), kTicksOfBeat) / static_cast<int>(bar.size());
  std::vector<Stroke> strokes;
  for (std::size_t i = 0; i < bar.size(); ++i) {
    const int tick = part.barLine + static_cast<int>(i) * ticks;
    if (bar[i] != kRing && tick >= part.from && tick < part.to) strokes.push_back({tick, bar[i]});
  }
  const bool isStruck = !strokes.empty() && strokes.front().tick == part.from;
  const bool isAwaited =
      leavesOutBeats(bar, ticks) &&
      std::ranges::any_of(strokes, [](const Stroke& each) { return each.letter != kDamp; });
  if (part.begins && !isAwaited && (!isStruck || strokes.front().letter == kDamp)) {
    if (isStruck) strokes.erase(strokes.begin());
    strokes.insert(strokes.begin(), {part.from, kAll});
  }
  return strokes;
}

}  // namespace

std::string_view StrumPattern::bar(int beat, int beattype) const {
  if (beattype == 4 && beat >= 2 && beat <= 4)
    return beat == 2 ? twoFour : beat == 3 ? threeFour : fourFour;
  if (beattype != 8) return {};
  return beat == 6 ? sixEight : beat == 9 ? nineEight : beat == 12 ? twelveEight : "";
}

std::span<const StrumPattern> strumPatterns() { return kPatterns; }

const StrumPattern* strumPatternNamed(std::string_view name) {
  const auto* found = std::ranges::find(kPatterns, name, &StrumPattern::name);
  return found == std::end(kPatterns) ? nullptr : found;
}

const StrumPattern& strumOnBeats() { return kPatterns[0]; }

std::vector<Strike> strikesOf(const StrumPattern& pattern, const HeldPart& part, unsigned strings) {
  const std::vector<Stroke> strokes = strokesOf(pattern, part);
  std::vector<Strike> strikes;
  std::array<int, kStrings> until;
  until.fill(part.to);
  int next = part.to;
  for (std::size_t i = strokes.size(); i-- > 0;) {
    const auto [tick, letter] = strokes[i];
    if (letter == kDamp) until.fill(tick);
    Strike strike{.tick = tick, .loudness = loudnessOf(letter)};
    int silent = tick;
    for (const int string : struckBy(letter, strings)) {
      int& end = until[static_cast<std::size_t>(string)];
      strike.strings.push_back({string, end - tick});
      end = tick;
    }
    for (const Strike::String& each : strike.strings) silent = std::max(silent, tick + each.ticks);
    strike.ticks = std::min(next, silent) - tick;
    next = tick;
    if (!strike.strings.empty()) strikes.push_back(std::move(strike));
  }
  std::ranges::reverse(strikes);
  return strikes;
}

}  // namespace korvel
