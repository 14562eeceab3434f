// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/Transcribe.h"

#include <cmath>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>

#include "audio/MonoTrack.h"
#include "cli/support/Console.h"
#include "cli/support/OutputFile.h"
#include "cli/support/TuningChoice.h"
#include "model/instruments/QBTuning.h"
#include "music/Neck.h"
#include "precise/Transcription.h"
#include "workflow/exporting/NoteScore.h"
#include "workflow/exporting/ScoreFile.h"
#include "workflow/hearing/SoundCheck.h"
#include "workflow/session/TuningForNow.h"

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

OpenPitches openStrings(const TranscribeOptions& options) {
  return options.tuning ? precise::openStringsOf(chooseTuning(*options.tuning)) : kStandardPitches;
}

precise::Transcription hear(const TranscribeOptions& options) {
  const auto track = std::make_shared<MonoTrack>(options.file);
  track->startRecord(0);
  precise::Transcription heard(track, openStrings(options), options.settings);
  while (heard.step()) Console::attached().progress(heard.progress());
  Console::attached().progress(1);
  return heard;
}

/// The formats that were asked for, each with its file.
class Outputs {
 public:
  explicit Outputs(const TranscribeOptions& options) : m_options(options) {
    OutputFile::requireDifferent({options.json, options.midi, options.musicxml});
    for (const auto* name : {&options.json, &options.midi, &options.musicxml})
      if (*name) checkFile(**name);
  }

  void write(const std::vector<precise::Note>& notes, const OpenPitches& open) const {
    const std::string title = std::filesystem::path(m_options.file).stem().string();
    const NoteScore score(notes, m_options.tempo);
    if (m_options.json) fileOf(*m_options.json).write(asJson(notes));
    if (m_options.midi) fileOf(*m_options.midi).write(midiFile(score.midi(title)));
    if (m_options.musicxml) fileOf(*m_options.musicxml).write(musicXmlOf(score.score(title, open)));
    if (!m_options.json && !m_options.midi && !m_options.musicxml)
      Console::attached().print(asJson(notes));
  }

 private:
  void checkFile(const std::string& name) const {
    const OutputFile file = fileOf(name);
    file.requireOtherThan(m_options.file);
    file.check();
  }
  OutputFile fileOf(const std::string& name) const { return {name, m_options.force}; }

  const TranscribeOptions& m_options;
};

}  // namespace

void transcribe(const TranscribeOptions& options) {
  requireSound(options.file);
  const Outputs outputs(options);
  const precise::Transcription heard = hear(options);
  outputs.write(heard.result().notes, openStrings(options));
}

}  // namespace korvel::cli
