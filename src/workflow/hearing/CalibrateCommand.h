// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/instrument/Calibration.h"
#include "analysis/instrument/NoteCutter.h"
#include "platform/text/UserText.h"
#include "workflow/session/QBCommand.h"

namespace korvel {

class QBSampleSource;
class QBTuning;

/// A note that is to be played for a calibration.
struct CalibrationNote {
  int string;  ///< 0 the lowest.
  int fret;
  int midi;  ///< The MIDI number that it sounds.
};

/// The notes to play in a tuning, the lowest string first: each string open and at a fret in the
/// middle of the neck. Throws EditRefused when an instrument cannot be calibrated in that tuning.
std::vector<CalibrationNote> notesToCalibrate(QBTuning& tuning);

/// Hears a recording of single notes with silence between them, and measures with them what an
/// instrument sounds like. Which note each is it finds itself; more than those that are asked for
/// count too. Stores nothing.
class CalibrateCommand final : public QBCommand {
 public:
  struct HeardNote {
    int midi;
    double seconds;   ///< From the beginning of the recording.
    double decibels;  ///< Below full scale.
  };

  /// The source delivers samples (`readSamples`); the name is for the list of jobs. Throws
  /// EditRefused as notesToCalibrate does.
  CalibrateCommand(std::shared_ptr<QBSampleSource> source, const std::string& name,
                   QBTuning& tuning);
  ~CalibrateCommand() override;

  void prepare() override;
  void execute() override;
  /// About a hundredth of a second of reading or hearing. Stops the command at the end.
  void nextStep() override;
  void tearDown() override;
  /// Hears what has been read so far.
  void stopAndKeep() override;
  void cancelAndDrop() override;
  platform::UserText fullTitle() const override { return typeAndName(); }

  /// Called at the end, unless it is cancelled.
  void onFinished(std::function<void()> listener) { m_finished = std::move(listener); }

  // Once it has ended:
  /// The notes that count, in the order in which they were played.
  const std::vector<HeardNote>& notes() const { return m_notes; }
  /// Sounds that are no single note that a string reaches, or that the detection does not hear.
  int nmbOfOthers() const { return m_others; }
  const Calibration& calibration() const { return m_calibration; }
  /// Whether an instrument can be made of it.
  bool isComplete() const { return m_calibration.unknownStrings().empty(); }
  /// What is in the way, in one line with what to do.
  std::optional<platform::UserText> problem() const;

 private:
  /// A stretch that is being heard.
  struct HeardStretch {
    NoteCutter::Stretch stretch;
    std::optional<int> note;
    std::size_t next;  ///< Sample to go on at.
    std::vector<std::vector<HeardTone>> blocks;
  };

  bool step();
  void read();
  void hear();
  bool hearBlock();
  void count(const HeardStretch& heard);
  void release();

  std::shared_ptr<QBSampleSource> m_source;
  Calibration m_calibration;
  std::vector<std::int16_t> m_samples;
  NoteCutter m_cutter;
  bool m_tooLong = false;
  std::optional<std::vector<NoteCutter::Stretch>> m_stretches;  ///< When all is read.
  std::size_t m_next = 0;                                       ///< Stretch to hear.
  std::optional<HeardStretch> m_hearing;
  std::vector<HeardNote> m_notes;
  int m_others = 0;
  std::function<void()> m_finished;
};

}  // namespace korvel
