// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "analysis/HearingSettings.h"

namespace korvel {

class Listening;
struct HeardSound;
class QBAlbum;
class QBChord;
class QBChordAnalyser;
class QBInstrument;
class QBRecorder;
class QBSampleSource;
class QBSong;
class QBTuning;

/// What a hearing fills, and what it goes by.
struct HearingTask {
  QBSong* song;              ///< Takes the chords.
  QBAlbum* album;            ///< Where the recorder's scratch song is from begin to end.
  QBTuning* tuning;          ///< Of the guitar that is heard.
  QBInstrument* instrument;  ///< Confirms tones, for a kind that has them confirmed.
  HearingSettings settings{};
  std::shared_ptr<Listening> listening{};  ///< To that sound already, for a kind that can be ahead.
};

/// Sound that becomes the chords of a song, step by step: a source, the analyser that hears it and
/// the recorder that keeps what was heard. Every detection is a kind of its own.
///
/// Call begin, then next until it is at its end or cut short, then end, and dropSound when nobody
/// asks about the sound any more. Main thread.
class Hearing {
 public:
  Hearing(const Hearing&) = delete;
  Hearing& operator=(const Hearing&) = delete;
  virtual ~Hearing();

  /// Makes the scratch song and starts the source, which may throw.
  void begin();
  /// Reads as much of a file as the next step needs.
  virtual void readAhead() {}
  /// For who has nothing else to do: returns when a step may bring something, or a little later.
  virtual void wait() const {}
  /// One step: the chord that it stored, with harmony and groups of tones, or none.
  QBChord* next();
  /// No chord will come any more. What is live never knows.
  virtual bool atEnd() const;
  /// How much is done of what there is to hear, 0..1.
  double progress() const;
  /// Once chords come, many of them cost no more than a step should.
  virtual bool hasCheapChords() const = 0;
  /// The notes and their rhythm, once all was listened to, by a kind that knows them.
  virtual const HeardSound* heard() const { return nullptr; }
  /// Leaves out what was not heard yet; what was may still become chords in further steps. Whether
  /// there was something to leave out.
  virtual bool cutShort() = 0;
  /// Stops the source and drops the scratch song. May be repeated.
  virtual void end();
  /// Gives the sound up, with what was read of it and not heard.
  virtual void dropSound();

  /// None before begin and after end.
  QBSong* scratch() const;

 protected:
  /// The recorder is one that drives the analyser.
  Hearing(std::shared_ptr<QBChordAnalyser> analyser, std::unique_ptr<QBRecorder> recorder);

  QBChordAnalyser& analyser() const { return *m_analyser; }
  /// None when the analyser has none.
  const std::shared_ptr<QBSampleSource>& source() const;

 private:
  std::shared_ptr<QBChordAnalyser> m_analyser;
  std::unique_ptr<QBRecorder> m_recorder;
};

}  // namespace korvel
