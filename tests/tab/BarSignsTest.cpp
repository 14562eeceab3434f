// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/BarSigns.h"

#include <cctype>
#include <map>

#include "support/Script.h"
#include "support/Testing.h"

namespace korvel {
namespace {

using test::Words;

/// Letters of values: w h q e s t, "." dotted, "r" a rest, "~" tied to what is before; signs under
/// a beam are joined by "-", those of a triplet in parentheses.
std::string written(const std::vector<BarSign>& signs) {
  std::string text;
  for (std::size_t i = 0; i < signs.size(); ++i) {
    const BarSign& sign = signs[i];
    const BarSign* before = i > 0 ? &signs[i - 1] : nullptr;
    if (before && before->triplet && before->triplet != sign.triplet) text += ')';
    if (before) text += sign.beam && before->beam == sign.beam ? '-' : ' ';
    if (sign.triplet && (!before || before->triplet != sign.triplet)) text += '(';
    if (sign.isTied) text += '~';
    if (sign.isRest) text += 'r';
    text += std::map<int, char>{{1, 'w'}, {2, 'h'}, {4, 'q'}, {8, 'e'}, {16, 's'}, {32, 't'}}.at(
        sign.value);
    if (sign.isDotted) text += '.';
  }
  if (!signs.empty() && signs.back().triplet) text += ')';
  return text;
}

/// Time signature, the tick of the first event, then the ticks of each, "r" before a rest and "~"
/// before what is held.
std::string bar(const Words& words) {
  std::vector<BarEvent> events;
  for (const std::string& word : words.from(3)) {
    const bool isPlain = std::isdigit(static_cast<unsigned char>(word[0]));
    events.push_back(
        {std::stoi(isPlain ? word : word.substr(1)), word[0] == 'r'   ? BarEvent::Kind::rest
                                                     : word[0] == '~' ? BarEvent::Kind::held
                                                                      : BarEvent::Kind::struck});
  }
  return written(signsOf(events, words.number(0), words.number(1), words.number(2)));
}

TEST(BarSignsTest, showTheBeats) { test::expectScript("tab/bars.txt", {{"bar", &bar}}); }

}  // namespace
}  // namespace korvel
