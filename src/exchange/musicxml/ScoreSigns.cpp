// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/musicxml/ScoreSigns.h"

#include <algorithm>
#include <bit>
#include <cctype>
#include <cmath>
#include <optional>

#include "music/Pitch.h"
#include "platform/text/Numerals.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {

namespace {

using Element = platform::XmlDocument::Element;

constexpr int kMostBeatsOfBar = 64;
constexpr int kShortestBeatType = 64;
constexpr unsigned kMostEndings = 32;
constexpr double kSlowestTempo = 1;
constexpr double kFastestTempo = 2000;

bool isYes(std::string_view value) { return !value.empty() && value != "no"; }

/// "3+2" is 5; 0 for what is no number.
int sumOf(std::string_view text) {
  int sum = 0;
  while (!text.empty()) {
    sum += std::clamp(platform::intValue(text), 0, kMostBeatsOfBar);
    const std::size_t plus = text.find('+');
    text = plus == std::string_view::npos ? "" : text.substr(plus + 1);
  }
  return sum;
}

/// Bits of "1, 2" or "1-3", from the lowest on.
unsigned endingsOf(std::string_view numbers) {
  unsigned endings = 0;
  unsigned number = 0;
  unsigned from = 0;
  const auto take = [&] {
    for (unsigned i = from ? from : number; i >= 1 && i <= number && i <= kMostEndings; ++i)
      endings |= 1U << (i - 1);
    from = 0;
  };
  for (const char c : numbers) {
    if (c >= '0' && c <= '9') {
      number = std::min(number * 10 + static_cast<unsigned>(c - '0'), kMostEndings + 1);
      continue;
    }
    if (c == '-')
      from = number;
    else
      take();
    number = 0;
  }
  take();
  return endings;
}

/// The length of a metronome's sign in quarters, of its first one; 0 where it is none.
double quartersOf(const Element& metronome) {
  static const std::map<std::string_view, double> kQuarters{
      {"whole", 4}, {"half", 2}, {"quarter", 1}, {"eighth", 0.5}, {"16th", 0.25}, {"32nd", 0.125}};
  const auto found = kQuarters.find(metronome.child("beat-unit").text());
  if (found == kQuarters.end()) return 0;
  double quarters = found->second;
  double dot = quarters / 2;
  for (const Element& each : metronome.children()) {
    if (each.is("per-minute")) break;
    if (!each.is("beat-unit-dot")) continue;
    quarters += dot;
    dot /= 2;
  }
  return quarters;
}

bool hasWord(const std::string& words, std::string_view word) {
  const auto isSame = [](char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == b;
  };
  return std::search(words.begin(), words.end(), word.begin(), word.end(), isSame) != words.end();
}

}  // namespace

void ScoreSigns::beginMeasure(const Element& measure) {
  if (m_next == m_score.bars.size()) m_score.bars.emplace_back();
  ++m_next;
  bar().isImplicit = bar().isImplicit || measure.attribute("implicit") == "yes";
  bar().signs.endings |= m_endings;
}

void ScoreSigns::endMeasure(std::int64_t length) {
  bar().length = std::max(bar().length, length);
  if (m_endingStops) m_endings = 0;
  m_endingStops = false;
}

void ScoreSigns::readTime(const Element& time) {
  int beats = 0;
  int beatType = 0;
  int group = 0;
  for (const Element& each : time.children()) {
    if (each.is("beats")) group = sumOf(each.text());
    if (!each.is("beat-type")) continue;
    const int type = each.integer().value_or(0);
    if (type < 1 || type > kShortestBeatType || !std::has_single_bit(static_cast<unsigned>(type)) ||
        group < 1 || beats + group > kMostBeatsOfBar)
      throw platform::UserError(
          platform::phrase("Exchange", "its time signature in line %1 cannot be read"),
          time.line());
    // Groups with beats of several lengths are counted in the shortest.
    const int shortest = std::max(type, beatType);
    beats = (beatType ? beats * (shortest / beatType) : 0) + group * (shortest / type);
    beatType = shortest;
  }
  if (beatType == 0) return;
  bar().beats = beats;
  bar().beatType = beatType;
}

void ScoreSigns::readKey(const Element& key) {
  const auto fifths = key.child("fifths").integer();
  if (!fifths || std::abs(*fifths) > 7) return;
  const std::string_view mode = key.child("mode").text();
  // Programs that know no keys write one without signs.
  if (mode == "none" || (mode.empty() && *fifths == 0)) return;
  constexpr int kFifth = 7;
  constexpr int kRelativeMinor = 9;
  const bool isMinor = mode == "minor";
  const Key read{pitchClass(*fifths * kFifth + (isMinor ? kRelativeMinor : 0)), isMinor};
  if (!m_score.head.key)
    m_score.head.key = read;
  else if (*m_score.head.key != read && m_score.parts.empty())
    ++m_score.head.left["changes of key"];
}

void ScoreSigns::readDirection(const Element& direction, std::int64_t at) {
  std::string words;
  const Element sound = direction.child("sound");
  for (const Element& type : direction.children()) {
    if (!type.is("direction-type")) continue;
    for (const Element& each : type.children()) {
      if (each.is("words")) words.append(each.text()) += ' ';
      if (each.is("segno")) bar().signs.isSegno = true;
      if (each.is("metronome") && sound.attribute("tempo").empty()) readMetronome(each, at);
    }
  }
  if (sound) readSound(sound, at, words);
}

void ScoreSigns::readMetronome(const Element& metronome, std::int64_t at) {
  std::string_view text = metronome.child("per-minute").text();
  text.remove_prefix(std::min(text.find_first_of("0123456789"), text.size()));
  addTempo(at, platform::doubleValue(text) * quartersOf(metronome));
}

void ScoreSigns::readSound(const Element& sound, std::int64_t at, const std::string& words) {
  if (const auto tempo = sound.numberAttribute("tempo")) addTempo(at, *tempo);
  if (const auto percent = sound.numberAttribute("dynamics")) m_velocity = velocityOf(*percent);
  if (const Element swing = sound.child("swing")) readSwing(swing);
  BarSigns& signs = bar().signs;
  signs.isSegno = signs.isSegno || isYes(sound.attribute("segno"));
  signs.isCoda = signs.isCoda || isYes(sound.attribute("coda"));
  signs.isToCoda = signs.isToCoda || isYes(sound.attribute("tocoda"));
  signs.isFine = signs.isFine || isYes(sound.attribute("fine"));
  signs.opensRepeat = signs.opensRepeat || sound.attribute("forward-repeat") == "yes";
  readJump(sound, words);
}

void ScoreSigns::readJump(const Element& sound, const std::string& words) {
  BarSigns& signs = bar().signs;
  if (isYes(sound.attribute("dacapo")))
    signs.jump = BarSigns::Jump::daCapo;
  else if (isYes(sound.attribute("dalsegno")))
    signs.jump = BarSigns::Jump::dalSegno;
  else
    return;
  if (hasWord(words, "fine")) signs.until = BarSigns::Until::fine;
  if (hasWord(words, "coda")) signs.until = BarSigns::Until::coda;
}

int ScoreSigns::velocityOf(double percent) {
  constexpr double kForte = 90;
  constexpr int kLoudest = 127;
  if (!(percent > 0)) return 0;
  return static_cast<int>(std::clamp<double>(std::round(percent * kForte / 100), 1, kLoudest));
}

void ScoreSigns::readSwing(const Element& swing) {
  const double first = swing.child("first").number().value_or(0);
  const double second = swing.child("second").number().value_or(0);
  const std::string_view type = swing.child("swing-type").text();
  if (!(first >= 1 && second >= 1) || (!type.empty() && type != "eighth")) return;
  const double share = first / (first + second);
  if (!m_score.head.swing)
    m_score.head.swing = share;
  else if (*m_score.head.swing != share)
    ++m_score.head.left["changes of swing"];
}

void ScoreSigns::addTempo(std::int64_t at, double quartersAMinute) {
  if (!(quartersAMinute >= kSlowestTempo && quartersAMinute <= kFastestTempo)) return;
  auto& tempos = bar().tempos;
  const auto place = std::ranges::upper_bound(tempos, at, {}, &Tempo::at);
  if (place != tempos.begin() && std::prev(place)->at == at)
    std::prev(place)->quartersAMinute = quartersAMinute;
  else
    tempos.insert(place, {at, quartersAMinute});
}

void ScoreSigns::readBarline(const Element& barline) {
  constexpr int kMostTimes = 32;
  for (const Element& each : barline.children()) {
    if (each.is("ending")) readEnding(each);
    if (each.is("segno")) bar().signs.isSegno = true;
    if (!each.is("repeat")) continue;
    if (each.attribute("direction") == "forward")
      bar().signs.opensRepeat = true;
    else
      bar().signs.timesPlayed =
          std::clamp(each.integerAttribute("times").value_or(2), 2, kMostTimes);
  }
}

void ScoreSigns::readEnding(const Element& ending) {
  if (ending.attribute("type") == "start") {
    m_endings = endingsOf(ending.attribute("number"));
    bar().signs.endings |= m_endings;
  } else {
    m_endingStops = true;
  }
}

void settleSigns(WrittenScore& score) {
  auto& bars = score.bars;
  const auto has = [&](bool BarSigns::*sign) {
    return std::ranges::any_of(bars, [&](const CommonBar& bar) { return bar.signs.*sign; });
  };
  const bool hasCoda = has(&BarSigns::isToCoda) && has(&BarSigns::isCoda);
  const bool hasFine = has(&BarSigns::isFine);
  for (std::size_t i = 0; i < bars.size(); ++i) {
    BarSigns& signs = bars[i].signs;
    const unsigned later = i + 1 < bars.size() ? bars[i + 1].signs.endings : 0;
    if (signs.timesPlayed > 0 && signs.endings != 0 && later != 0)
      signs.timesPlayed =
          std::max(signs.timesPlayed, static_cast<int>(std::bit_width(signs.endings)) + 1);
    if (signs.jump != BarSigns::Jump::none && signs.until == BarSigns::Until::end) {
      if (hasCoda)
        signs.until = BarSigns::Until::coda;
      else if (hasFine)
        signs.until = BarSigns::Until::fine;
    }
  }
}

}  // namespace korvel::exchange
