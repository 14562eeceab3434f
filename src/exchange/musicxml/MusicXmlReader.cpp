// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/musicxml/MusicXmlReader.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "exchange/WrittenScore.h"
#include "exchange/musicxml/PartReader.h"
#include "platform/text/UserError.h"
#include "platform/text/Utf8.h"
#include "platform/text/XmlDocument.h"

namespace korvel::exchange {

namespace {

using Element = platform::XmlDocument::Element;
using platform::phrase;

constexpr std::size_t kMostParts = 200;
constexpr int kChannelOfDrums = 10;
constexpr int kMostPrograms = 128;

/// A part as the list of parts describes it.
struct ListedPart {
  std::string id;
  Track track;
  DrumPitches drums{};
};

void readMidi(const Element& midi, ListedPart& part) {
  const auto numberIn = [&](const char* what) {
    const int number = midi.child(what).integer().value_or(0);
    return number <= kMostPrograms ? number - 1 : -1;
  };
  if (part.track.program < 0) part.track.program = std::max(numberIn("midi-program"), -1);
  if (midi.child("midi-channel").integer() == kChannelOfDrums) part.track.isDrums = true;
  if (const int drum = numberIn("midi-unpitched"); drum >= 0)
    part.drums.emplace(midi.attribute("id"), drum);
}

std::vector<ListedPart> listedParts(const Element& root) {
  std::vector<ListedPart> parts;
  for (const Element& each : root.child("part-list").children()) {
    if (!each.is("score-part")) continue;
    ListedPart& part = parts.emplace_back();
    part.id = each.attribute("id");
    part.track.name = platform::printable(each.child("part-name").text());
    for (const Element& midi : each.children())
      if (midi.is("midi-instrument")) readMidi(midi, part);
  }
  return parts;
}

std::string creatorOf(const Element& root) {
  std::string found;
  for (const std::string_view wanted : {"artist", "composer", "arranger"}) {
    for (const Element& each : root.child("identification").children())
      if (each.is("creator") && each.attribute("type") == wanted && found.empty())
        found = platform::printable(each.text());
  }
  return found;
}

void readHead(const Element& root, Piece& piece) {
  std::string_view title = root.child("work").child("work-title").text();
  if (title.empty()) title = root.child("movement-title").text();
  piece.title = platform::printable(title);
  piece.artist = creatorOf(root);
}

/// The measures of a part: what has their attributes, and what has their notes.
using Measures = std::vector<std::pair<Element, Element>>;

/// By the ids of the parts.
std::map<std::string_view, Measures> measuresOf(const Element& root) {
  std::map<std::string_view, Measures> measures;
  const bool isPartwise = root.is("score-partwise");
  for (const Element& outer : root.children()) {
    for (const Element& inner : outer.children()) {
      if (isPartwise && outer.is("part") && inner.is("measure"))
        measures[outer.attribute("id")].emplace_back(inner, inner);
      if (!isPartwise && outer.is("measure") && inner.is("part"))
        measures[inner.attribute("id")].emplace_back(outer, inner);
    }
  }
  return measures;
}

void requireScore(const Element& root) {
  if (root.is("score-partwise") || root.is("score-timewise")) return;
  throw platform::UserError(phrase("Exchange", "it is no MusicXML score"));
}

}  // namespace

Piece readMusicXml(std::string_view document) {
  const platform::XmlDocument xml(document);
  const Element root = xml.root();
  requireScore(root);
  std::vector<ListedPart> parts = listedParts(root);
  if (parts.size() > kMostParts)
    throw platform::UserError(phrase("Exchange", "it has more than %1 parts"), kMostParts);
  WrittenScore score;
  readHead(root, score.head);
  auto measures = measuresOf(root);
  for (ListedPart& part : parts) {
    PartReader reader(score, std::move(part.track), std::move(part.drums));
    // One that is listed twice is read once.
    for (const auto& [measure, content] : std::exchange(measures[part.id], {})) {
      if (score.bars.size() > kMostPlayedBars)
        throw platform::UserError(phrase("Exchange", "it has more than %1 bars"), kMostPlayedBars);
      reader.read(measure, content);
    }
    score.parts.push_back(reader.finish());
  }
  settleSigns(score);
  return playedPiece(std::move(score));
}

}  // namespace korvel::exchange
