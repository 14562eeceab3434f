// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/CalibrateCommand.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "audio/QBSampleSource.h"
#include "audio/Samples16.h"
#include "model/instruments/QBTuning.h"
#include "music/ChordStep.h"
#include "platform/loop/Deadline.h"
#include "platform/sound/SampleRate.h"
#include "workflow/library/TuningEdits.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

constexpr std::array kFretsToPlay{0, 7};
constexpr std::size_t kRate = platform::kSampleRate;
constexpr std::size_t kMostSamples = 600 * kRate;
constexpr std::size_t kBlock = kSamplesOfChord;
/// A note that rings on and on shall not outweigh the others.
constexpr std::size_t kBlocksOfNote = 16;
constexpr int kPercentOfReading = 60;
constexpr std::chrono::milliseconds kWork{10};

double decibels(float level) { return 20 * std::log10(static_cast<double>(level)); }

}  // namespace

std::vector<CalibrationNote> notesToCalibrate(QBTuning& tuning) {
  if (!Calibration::canMeasure(tuning))
    throw EditRefused(
        platform::phrase(
            "Message",
            "%1: an instrument is calibrated in Standard or Drop D; select one of them, "
            "and tune the guitar to it"),
        tuning.descr());
  std::vector<CalibrationNote> notes;
  const OpenPitches open = tuning.openStrings().pitches();
  for (int string = 0; string < kStrings; ++string)
    for (const int fret : kFretsToPlay)
      notes.push_back({string, fret, open.at(static_cast<std::size_t>(string)) + fret});
  return notes;
}

CalibrateCommand::CalibrateCommand(std::shared_ptr<QBSampleSource> source, const std::string& name,
                                   QBTuning& tuning)
    : m_source(std::move(source)), m_calibration(tuning) {
  notesToCalibrate(tuning);
  m_type = platform::phrase("Job", "Calibration");
  m_name = ": " + name;
}

CalibrateCommand::~CalibrateCommand() = default;

/// Memory that is not used yet costs nothing, unlike growing samples that have to move.
void CalibrateCommand::prepare() {
  m_samples.reserve(kMostSamples + kRate);
  m_source->startRecord(0.0F);
}

void CalibrateCommand::execute() {
  while (step()) continue;
}

void CalibrateCommand::nextStep() {
  if (!step()) stop();
}

/// False when all is done.
bool CalibrateCommand::step() {
  if (!m_stretches) {
    read();
    return true;
  }
  if (m_next == m_stretches->size()) return false;
  hear();
  m_percent = kPercentOfReading +
              static_cast<int>((kAll - kPercentOfReading) * m_next / m_stretches->size());
  return true;
}

void CalibrateCommand::read() {
  const platform::Deadline deadline(kWork);
  while (!m_source->eof() && !m_tooLong && !deadline.isOver()) {
    const std::size_t before = m_samples.size();
    append16(m_samples, m_source->readSamples());
    m_cutter.add(std::span(m_samples).subspan(before));
    m_tooLong = m_samples.size() > kMostSamples;
  }
  m_percent = static_cast<int>(kPercentOfReading * m_source->progress());
  if (m_tooLong)
    m_stretches.emplace();
  else if (m_source->eof())
    m_stretches = m_cutter.stretches();
}

/// Its note in one step, then as many blocks in each as there is time for.
void CalibrateCommand::hear() {
  if (!m_hearing) {
    const NoteCutter::Stretch& next = (*m_stretches)[m_next];
    const auto samples = std::span(m_samples).subspan(next.begin, next.end - next.begin);
    m_hearing = HeardStretch{next, singleNote(samples), next.begin, {}};
    return;
  }
  const platform::Deadline deadline(kWork);
  while (hearBlock())
    if (deadline.isOver()) return;
  count(*m_hearing);
  m_hearing.reset();
  ++m_next;
}

/// A last block that is mostly silence would only show less of the note; false then.
bool CalibrateCommand::hearBlock() {
  auto& [stretch, note, next, blocks] = *m_hearing;
  const std::size_t size = std::min(kBlock, stretch.end - next);
  if (size < kBlock / 2 || blocks.size() == kBlocksOfNote) return false;
  blocks.push_back(m_calibration.tonesIn(std::span(m_samples).subspan(next, size)));
  next += size;
  return true;
}

/// What is heard besides counts also where the note itself is too faint for the detection.
void CalibrateCommand::count(const HeardStretch& heard) {
  const auto isHeard = [](const auto& tones) { return !tones.empty(); };
  if (!heard.note || !m_calibration.isReached(*heard.note) ||
      std::ranges::none_of(heard.blocks, isHeard)) {
    ++m_others;
    return;
  }
  for (const auto& tones : heard.blocks)
    if (isHeard(tones)) m_calibration.addBlock(tones, *heard.note);
  m_notes.push_back({*heard.note, static_cast<double>(heard.stretch.begin) / kRate,
                     decibels(heard.stretch.loudest)});
}

void CalibrateCommand::tearDown() {
  release();
  m_percent = kAll;
  printOut({platform::phrase("Log", "Calibration: %1 notes were heard."), m_notes.size()});
  if (m_finished) m_finished();
}

void CalibrateCommand::stopAndKeep() { m_source->stopRecord(); }

void CalibrateCommand::cancelAndDrop() {
  abandonSteps();
  release();
  m_notes.clear();
  printOut(platform::phrase("Log", "Calibration cancelled."));
}

void CalibrateCommand::release() {
  m_source->stopRecord();
  m_samples = {};
  m_stretches.emplace();
  m_next = 0;
  m_hearing.reset();
}

std::optional<platform::UserText> CalibrateCommand::problem() const {
  using platform::phrase;
  using platform::UserText;
  if (m_tooLong)
    return phrase(
        "Message",
        "The recording is longer than ten minutes; choose one that holds the single notes "
        "only");
  if (m_notes.empty() && m_others == 0)
    return phrase("Message",
                  "Nothing is heard in the recording; check the microphone or choose another file");
  if (m_notes.empty())
    return phrase("Message",
                  "No single note is heard in the recording; play one note at a time, louder, and "
                  "mute it before the next one");
  const auto unknown = m_calibration.unknownStrings();
  if (unknown.empty()) return std::nullopt;
  return UserText(phrase("Message",
                         "String %1 was not heard long enough; record its notes once more, and let "
                         "each ring for three seconds"),
                  kStrings - unknown.front());
}

}  // namespace korvel
