// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Transcribe.h"

#include <cmath>
#include <memory>
#include <nlohmann/json.hpp>

#include "analysis/precise/Transcription.h"
#include "audio/QBMonoTrack.h"
#include "cli/Console.h"
#include "cli/SoundCheck.h"
#include "cli/TuningForNow.h"
#include "model/QBTuning.h"
#include "platform/Files.h"

namespace korvel::cli {
namespace {

using Json = nlohmann::ordered_json;

constexpr double kPerSecond = 10000;
constexpr double kPerUnit = 1000;

double rounded(double value, double steps) { return std::round(value * steps) / steps; }

Json placeOf(int number) { return number < 0 ? Json(nullptr) : Json(number); }

Json asJson(const precise::Note& note) {
  return {{"onset", rounded(note.onset, kPerSecond)},
          {"offset", rounded(note.end, kPerSecond)},
          {"midi", note.pitch},
          {"string", placeOf(note.string)},
          {"fret", placeOf(note.fret)},
          {"strength", rounded(note.strength, kPerUnit)},
          {"probability", rounded(note.probability, kPerUnit)}};
}

std::string asJson(const std::vector<precise::Note>& notes) {
  Json list = Json::array();
  for (const precise::Note& note : notes) list.push_back(asJson(note));
  return Json{{"notes", std::move(list)}}.dump(1) + '\n';
}

precise::OpenStrings openStrings(const TranscribeOptions& options) {
  return options.tuning ? precise::openStringsOf(chooseTuning(*options.tuning))
                        : precise::kStandardTuning;
}

precise::Transcription hear(const TranscribeOptions& options) {
  const auto track = std::make_shared<QBMonoTrack>(options.file);
  track->startRecord(0);
  precise::Transcription heard(track, openStrings(options), options.settings);
  while (heard.step()) Console::attached().progress(heard.progress());
  Console::attached().progress(1);
  return heard;
}

}  // namespace

void transcribe(const TranscribeOptions& options) {
  requireSound(options.file);
  const std::string notes = asJson(hear(options).result().notes);
  if (options.json)
    platform::writeAtomically(*options.json, notes);
  else
    Console::attached().print(notes);
}

}  // namespace korvel::cli
