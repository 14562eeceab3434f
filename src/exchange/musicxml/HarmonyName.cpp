// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/musicxml/HarmonyName.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <vector>

#include "platform/text/Utf8.h"

namespace korvel::exchange {

namespace {

using Element = platform::XmlDocument::Element;

constexpr std::size_t kLongestKind = 16;

/// A tone that is added to a chord, left out of it or altered in it.
struct Degree {
  int value;
  int alter;
  std::string_view type;
};

std::optional<std::string_view> suffixOf(std::string_view kind) {
  static const std::map<std::string_view, std::string_view> kSuffixes{
      {"major", ""},
      {"minor", "m"},
      {"augmented", "aug"},
      {"diminished", "dim"},
      {"dominant", "7"},
      {"major-seventh", "maj7"},
      {"minor-seventh", "m7"},
      {"diminished-seventh", "dim7"},
      {"augmented-seventh", "7#5"},
      {"half-diminished", "m7b5"},
      {"major-minor", "mMaj7"},
      {"major-sixth", "6"},
      {"minor-sixth", "m6"},
      {"dominant-ninth", "9"},
      {"major-ninth", "maj9"},
      {"minor-ninth", "m9"},
      {"dominant-11th", "11"},
      {"major-11th", "maj11"},
      {"minor-11th", "m11"},
      {"dominant-13th", "13"},
      {"major-13th", "maj13"},
      {"minor-13th", "m13"},
      {"suspended-second", "sus2"},
      {"suspended-fourth", "sus4"},
      {"power", "5"},
  };
  const auto found = kSuffixes.find(kind);
  if (found == kSuffixes.end()) return std::nullopt;
  return found->second;
}

std::string accidentals(int alter) {
  constexpr int kMost = 2;
  const auto count = static_cast<std::size_t>(std::min(std::abs(alter), kMost));
  return std::string(count, alter < 0 ? 'b' : '#');
}

/// The name of a root or a bass; empty where there is none.
std::string noteName(const Element& element, const std::string& what) {
  const std::string_view step = element.child(what + "-step").text();
  if (step.size() != 1 || step[0] < 'A' || step[0] > 'G') return {};
  return std::string(step) + accidentals(element.child(what + "-alter").integer().value_or(0));
}

std::vector<Degree> degreesOf(const Element& harmony) {
  std::vector<Degree> degrees;
  for (const Element& each : harmony.children()) {
    if (!each.is("degree")) continue;
    degrees.push_back({each.child("degree-value").integer().value_or(0),
                       each.child("degree-alter").integer().value_or(0),
                       each.child("degree-type").text()});
  }
  std::erase_if(degrees,
                [](const Degree& degree) { return degree.value < 1 || degree.value > 13; });
  std::ranges::stable_sort(degrees, {}, &Degree::value);
  return degrees;
}

/// A suspended chord's seventh, or what stands for it, comes before "sus": 9sus4.
std::string suspended(const std::string& suffix, std::vector<Degree>& degrees) {
  const auto isSeventh = [](const Degree& degree) {
    return degree.value == 7 && degree.type == "add";
  };
  const auto seventh = std::ranges::find_if(degrees, isSeventh);
  if (seventh == degrees.end()) return suffix;
  std::string number = seventh->alter > 0 ? "maj7" : "7";
  degrees.erase(seventh);
  const auto extends = [](const Degree& degree) {
    return degree.value > 7 && degree.alter == 0 && degree.type == "add";
  };
  const auto highest = std::find_if(degrees.rbegin(), degrees.rend(), extends);
  if (highest != degrees.rend() && number == "7") {
    number = std::to_string(highest->value);
    degrees.erase(std::next(highest).base());
  }
  return number + suffix;
}

std::string textOf(const Degree& degree, bool hasSeventh) {
  const std::string tone = accidentals(degree.alter) + std::to_string(degree.value);
  if (degree.type == "subtract") return "no" + std::to_string(degree.value);
  if (degree.type == "add" && !hasSeventh) return "add" + tone;
  return tone;
}

std::string typeOf(const std::string& kind, std::vector<Degree> degrees) {
  const bool isSuspended = kind.starts_with("sus");
  std::string type = isSuspended ? suspended(kind, degrees) : kind;
  const bool hasSeventh = kind.find('7') != std::string::npos ||
                          kind.find('9') != std::string::npos ||
                          kind.find('1') != std::string::npos;
  for (const Degree& degree : degrees) {
    const std::string text = textOf(degree, hasSeventh);
    // Behind a bare root it would be its accidental.
    const bool isAmbiguous = type.empty() && (text[0] == 'b' || text[0] == '#');
    type += isAmbiguous ? "(" + text + ")" : text;
  }
  return type;
}

}  // namespace

std::optional<std::string> harmonyName(const Element& harmony) {
  const Element kind = harmony.child("kind");
  if (kind.is("kind") && kind.text() == "none") return "";
  const std::string root = noteName(harmony.child("root"), "root");
  if (root.empty()) return std::nullopt;
  const std::string bass = noteName(harmony.child("bass"), "bass");
  const std::string behind = bass.empty() ? "" : "/" + bass;
  if (const auto suffix = suffixOf(kind.text()))
    return root + typeOf(std::string(*suffix), degreesOf(harmony)) + behind;
  const std::string text = platform::printable(kind.attribute("text"));
  if (text.empty() || text.size() > kLongestKind) return std::nullopt;
  return root + text + behind;
}

}  // namespace korvel::exchange
