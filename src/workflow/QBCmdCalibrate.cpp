// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/QBCmdCalibrate.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <span>

#include "audio/QBSampleSource.h"
#include "audio/Samples16.h"
#include "model/QBTabMgr.h"
#include "model/QBTuning.h"
#include "workflow/LibraryEdits.h"
#include "workflow/TuningEdits.h"
#include "workflow/TuningForNow.h"

namespace korvel {
namespace {

constexpr std::array kFretsToPlay{0, 7};
constexpr std::size_t kRate = 44100;
constexpr std::size_t kLongest = 600 * kRate;
constexpr std::size_t kBlock = 16384;
/// A note that rings on and on shall not outweigh the others.
constexpr std::size_t kBlocksOfNote = 16;
constexpr int kPercentOfReading = 60;
constexpr int kAll = 100;

class Deadline {
 public:
  bool isOver() const { return Clock::now() >= m_end; }

 private:
  using Clock = std::chrono::steady_clock;
  const Clock::time_point m_end = Clock::now() + std::chrono::milliseconds(10);
};

double decibels(float level) { return 20 * std::log10(static_cast<double>(level)); }

/// A last one that is mostly silence would only show less of the note.
std::vector<std::vector<HeardTone>> tonesOfBlocks(std::span<const std::int16_t> stretch) {
  std::vector<std::vector<HeardTone>> blocks;
  while (stretch.size() >= kBlock / 2 && blocks.size() < kBlocksOfNote) {
    const std::size_t size = std::min(kBlock, stretch.size());
    blocks.push_back(Calibration::tonesIn(stretch.first(size)));
    stretch = stretch.subspan(size);
  }
  return blocks;
}

bool holds(const std::vector<HeardTone>& tones, int midi) {
  return std::ranges::find(tones, midi, &HeardTone::midi) != tones.end();
}

}  // namespace

std::vector<CalibrationNote> notesToCalibrate() {
  QBTuning& tuning = *QBTabMgr::db().selectedTuning();
  if (!Calibration::canMeasure(tuning))
    throw EditRefused(tuning.descr() +
                      ": an instrument is calibrated in Standard or Drop D; select one of them, "
                      "and tune the guitar to it");
  std::vector<CalibrationNote> notes;
  const OpenPitches open = pitchesOf(tuning);
  for (int string = 0; string < kStrings; ++string)
    for (const int fret : kFretsToPlay)
      notes.push_back({string, fret, open.at(static_cast<std::size_t>(string)) + fret});
  return notes;
}

QBCmdCalibrate::QBCmdCalibrate(std::shared_ptr<QBSampleSource> source, const std::string& name)
    : m_source(std::move(source)) {
  notesToCalibrate();
  m_type = "Calibration";
  m_name = ": " + name;
}

QBCmdCalibrate::~QBCmdCalibrate() = default;

void QBCmdCalibrate::prepare() { m_source->startRecord(0.0F); }

void QBCmdCalibrate::execute() {
  while (step()) continue;
}

void QBCmdCalibrate::nextStep() {
  if (!step()) stop();
}

/// False when all is done.
bool QBCmdCalibrate::step() {
  if (!m_stretches) {
    read();
    return true;
  }
  if (m_next == m_stretches->size()) return false;
  const TuningForNow chosen(m_calibration.tuning());
  hear((*m_stretches)[m_next++]);
  m_percent = kPercentOfReading +
              static_cast<int>((kAll - kPercentOfReading) * m_next / m_stretches->size());
  return true;
}

void QBCmdCalibrate::read() {
  const Deadline deadline;
  while (!m_source->eof() && !m_tooLong && !deadline.isOver()) {
    const std::size_t before = m_samples.size();
    append16(m_samples, m_source->readSamples());
    m_cutter.add(std::span(m_samples).subspan(before));
    m_tooLong = m_samples.size() > kLongest;
  }
  m_percent = static_cast<int>(kPercentOfReading * m_source->progress());
  if (m_tooLong)
    m_stretches.emplace();
  else if (m_source->eof())
    m_stretches = m_cutter.stretches();
}

/// A note whose own tone the detection misses throughout was taken for another one.
void QBCmdCalibrate::hear(const NoteCutter::Stretch& stretch) {
  const auto samples = std::span(m_samples).subspan(stretch.begin, stretch.end - stretch.begin);
  const auto note = singleNote(samples);
  const auto blocks = tonesOfBlocks(samples);
  const bool counts =
      note && Calibration::isReached(*note) &&
      std::ranges::any_of(blocks, [&](const auto& each) { return holds(each, *note); });
  if (!counts) {
    ++m_others;
    return;
  }
  for (const auto& tones : blocks)
    if (!tones.empty()) m_calibration.addBlock(tones, *note);
  m_notes.push_back({*note, static_cast<double>(stretch.begin) / kRate, decibels(stretch.loudest)});
}

void QBCmdCalibrate::tearDown() {
  release();
  m_percent = kAll;
  printOut("Calibration: " + std::to_string(m_notes.size()) + " notes were heard.");
  if (m_finished) m_finished();
}

void QBCmdCalibrate::stopAndKeep() { m_source->stopRecord(); }

void QBCmdCalibrate::cancelAndDrop() {
  abandonSteps();
  release();
  m_notes.clear();
  printOut("Calibration cancelled.");
}

void QBCmdCalibrate::release() {
  m_source->stopRecord();
  m_samples = {};
  m_stretches.emplace();
  m_next = 0;
}

std::optional<std::string> QBCmdCalibrate::problem() const {
  if (m_tooLong)
    return "The recording is longer than ten minutes; choose one that holds the single notes only";
  if (m_notes.empty() && m_others == 0)
    return "Nothing is heard in the recording; check the microphone or choose another file";
  if (m_notes.empty())
    return "No single note is heard in the recording; play one note at a time, louder, and mute it "
           "before the next one";
  const auto unknown = m_calibration.unknownStrings();
  if (unknown.empty()) return std::nullopt;
  return "String " + std::to_string(kStrings - unknown.front()) +
         " was not heard long enough; record its notes once more, and let each ring for three "
         "seconds";
}

}  // namespace korvel
