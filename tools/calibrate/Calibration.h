// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <filesystem>
#include <string>

#include "platform/persistence/Ref.h"

namespace korvel {
class QBHold;
class QBInstrument;
class QBOvertone;
class QBSong;
}  // namespace korvel

namespace korvel::tools {

/// Measures an instrument from recordings of single notes: which positions the detection hears
/// beside the tone that is played, in how many blocks and how loud.
///
/// A recording does not tell on which string its note was played, so it counts for every string
/// that reaches the note with its open string or frets 1 to 12. Positions are entered for the open
/// string: what is heard while fret k is stopped lies k semitones lower there. One calibration
/// makes one instrument, for the selected tuning and in the store in use.
class Calibration {
 public:
  /// The detail level is the share of a string's hits that a tone must find to be kept.
  Calibration(const std::string& name, float detailLevel);

  /// Counts one recording of a note, a MIDI number. Throws FileError when it is no 44.1 kHz mono
  /// sound, when no string reaches the note, and when the detection does not hear it at all.
  void addNote(const std::filesystem::path& file, int midi);

  /// Ends the measurement. A position stays when it was heard in at least that share of the blocks
  /// in which its string sounded, and at least three times. Every string needs a note:
  /// std::runtime_error otherwise.
  QBInstrument& finish(double smallestShare);

 private:
  static constexpr int kStrings = 6;

  void countBlock(const QBHold& hold, int largeTone);
  QBOvertone& overtoneAt(int string, int offset);

  platform::Ref<QBInstrument> m_instrument;
  platform::Ref<QBSong> m_heard;         ///< The chords of all recordings.
  std::array<int, kStrings> m_blocks{};  ///< In which each string sounded.
};

}  // namespace korvel::tools
