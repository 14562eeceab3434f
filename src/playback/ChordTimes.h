// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "model/songs/SongTime.h"

namespace korvel {

class QBChord;
class QBSong;
class QBTone;

/// A beat that a metronome tells; its time is negative before the beginning of the sequence.
struct TimedBeat {
  double time;
  bool first;  ///< Of its bar.
};

/// When what is played of a song sounds: in beats of a sequence, of which one is a second at rate
/// 1. The first chord that is played begins after kSecondsOfChord, so that a device has begun by
/// then. Filled once, by `goTo`, and then asked; not to be kept while the song is edited.
class ChordTimes {
 public:
  /// A song on beats is played as it is written, at that tempo, any other a chord at each step.
  static std::unique_ptr<ChordTimes> of(QBSong& song, SongTime::Tempo tempo);

  ChordTimes() = default;
  ChordTimes(const ChordTimes&) = delete;
  ChordTimes& operator=(const ChordTimes&) = delete;
  virtual ~ChordTimes() = default;

  /// Goes on to the chord that is played next: when it begins.
  virtual double goTo(const QBChord& chord) = 0;
  /// How long a tone of that chord sounds.
  virtual double lengthOf(const QBTone& tone) const = 0;

  // Of who plays the chords of positions from..to, whether or not they have been gone to.
  virtual std::vector<TimedBeat> beats(int from, int to) const = 0;
  /// What is counted before the first of them: a bar, or four beats without bars.
  virtual std::vector<TimedBeat> countIn(int from) const = 0;

  // Of the chords that were gone to; indexes count these.
  /// The chord that a time belongs to, or -1.
  virtual int indexAt(double time) const = 0;
  /// Where a player goes to hear a chord.
  virtual double placeOf(int index) const = 0;
  /// When the last one begins that has tones; 0 where none has.
  virtual double lastStruck() const = 0;
  /// When the last one has been heard, in a loop its duration too.
  virtual double end() const = 0;
  virtual double endOfLoop() const = 0;
  /// Where a loop goes on, in time, at its end. None where it is only told to go back to the
  /// beginning of the sequence, as soon as the end has been seen.
  virtual std::optional<double> turnOfLoop() const = 0;
  /// How much is over when the chord at an index is, of all of that count of chords.
  virtual float shareUntil(int index, int count) const = 0;

  /// From the song's first chord to the one at an index of its `allChords`, or to its end, in
  /// seconds of the recording.
  virtual double secondsUntil(int chord) const = 0;
  /// The second of the recording that a time in the chords that were gone to is; none in strict
  /// tempo.
  virtual std::optional<double> recordedSecondsAt(double time) const = 0;
};

/// Beats a minute of a song on beats, as it is written; 0 of any other.
double beatsPerMinuteOf(QBSong& song);

}  // namespace korvel
