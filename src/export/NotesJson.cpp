// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/NotesJson.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace korvel {
namespace {

using Json = nlohmann::ordered_json;

constexpr double kTimesPerSecond = 10000;
constexpr double kSharesPerUnit = 1000;

double roundedTo(double value, double steps) { return std::round(value * steps) / steps; }

Json numberOrNull(int number, bool isThere) { return isThere ? Json(number) : Json(nullptr); }

Json jsonOf(const JudgedNote& judged) {
  const fingering::Note& note = judged.note;
  const bool hasBar = judged.beat > 0;
  return {{"number", judged.number},
          {"chord", numberOrNull(judged.chord, judged.chord > 0)},
          {"bar", numberOrNull(judged.bar, hasBar)},
          {"beat", hasBar ? Json(roundedTo(judged.beat, kSharesPerUnit)) : Json(nullptr)},
          {"onset", roundedTo(note.onset, kTimesPerSecond)},
          {"offset", roundedTo(note.end, kTimesPerSecond)},
          {"midi", note.pitch},
          {"string", numberOrNull(note.string, note.string >= 0)},
          {"fret", numberOrNull(note.fret, note.fret >= 0)},
          {"probability", roundedTo(static_cast<double>(note.probability), kSharesPerUnit)},
          {"locked", judged.isLocked},
          {"doubt", judged.doubt.empty() ? Json(nullptr) : Json(judged.doubt)}};
}

}  // namespace

std::string notesAsJson(std::span<const JudgedNote> notes) {
  Json in = Json::array();
  Json candidates = Json::array();
  for (const JudgedNote& note : notes) (note.isIn ? in : candidates).push_back(jsonOf(note));
  return Json{{"notes", in}, {"candidates", candidates}}.dump(1) + '\n';
}

}  // namespace korvel
