// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/NumberedSigns.h"

#include <algorithm>
#include <functional>
#include <numeric>

#include "export/score/Triplets.h"

namespace korvel::exchange::guitarpro {
namespace {

constexpr int kUsualTuplet = 3;

int unitsOfSign(const ScoreNote& sign) { return sign.value->units; }

/// How many of its shortest sign fill a group; the usual number where the format has no such one.
int tupletOf(std::span<const ScoreNote> group) {
  const int units =
      std::transform_reduce(group.begin(), group.end(), 0, std::plus<>(), unitsOfSign);
  const int shortest = unitsOfSign(*std::ranges::min_element(group, {}, unitsOfSign));
  for (const int tuplet : {3, 6, 12})
    if (units % tuplet == 0 && units / tuplet <= shortest) return tuplet;
  return kUsualTuplet;
}

/// Adds a sign as several that are tied: what is left of it before the last one, and that.
void addEndingWith(int units, const ScoreNote& sign, int place, int tuplet,
                   std::vector<NumberedSign>& signs) {
  for (int left = unitsOfSign(sign); left > 0;) {
    const int wanted = left > units ? left - units : left;
    NumberedSign part{sign, tuplet};
    part.sign.value = &longestInTriplet(place, wanted);
    part.sign.first = sign.first && left == unitsOfSign(sign);
    left -= unitsOfSign(part.sign);
    place += unitsOfSign(part.sign);
    part.sign.last = sign.last && left == 0;
    signs.push_back(part);
  }
}

void addGroup(std::span<const ScoreNote> group, bool isLast, std::vector<NumberedSign>& signs) {
  const int tuplet = isLast ? kUsualTuplet : tupletOf(group);
  int place = 0;
  for (const ScoreNote& sign : group.first(group.size() - 1)) {
    signs.push_back({sign, tuplet});
    place += unitsOfSign(sign);
  }
  const int units = place + unitsOfSign(group.back());
  if (isLast || units % tuplet != 0)
    signs.push_back({group.back(), tuplet});
  else
    addEndingWith(units / tuplet, group.back(), place, tuplet, signs);
}

}  // namespace

std::vector<NumberedSign> numberedSigns(std::span<const ScoreNote> signs) {
  std::vector<NumberedSign> numbered;
  const auto isInGroup = [](const ScoreNote& sign) { return sign.tripletOf != nullptr; };
  for (auto sign = signs.begin(); sign != signs.end();) {
    if (!isInGroup(*sign)) {
      numbered.push_back({*sign++});
      continue;
    }
    auto end =
        std::find_if(sign, signs.end(), [](const ScoreNote& each) { return each.closesTriplet; });
    if (end != signs.end()) ++end;
    addGroup({sign, end}, std::none_of(end, signs.end(), isInGroup), numbered);
    sign = end;
  }
  return numbered;
}

}  // namespace korvel::exchange::guitarpro
