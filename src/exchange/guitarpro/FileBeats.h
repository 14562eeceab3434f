// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "exchange/guitarpro/FileBytes.h"
#include "exchange/guitarpro/TabSheet.h"

namespace korvel::exchange::guitarpro {

/// Quarters a minute; throws where nothing is played like that.
double requiredTempo(const FileBytes& bytes, int tempo);

/// Reads the beats and notes of a binary file, bar after bar.
class FileBeats {
 public:
  /// The bytes must outlive this.
  FileBeats(FileBytes& bytes, int version);

  /// The next bar, which is appended to the track, as is what of it is not kept. Changes of the
  /// tempo go to the bar.
  void readBar(MasterBar& bar, SheetTrack& track);

 private:
  void readVoice(SheetVoice& voice, MasterBar& bar, int strings);
  /// None for a beat that takes no time.
  std::optional<SheetBeat> readBeat(MasterBar& bar, double place, int strings);
  double readLength(bool isDotted, bool isTuplet);
  std::string readChord(int strings);
  std::string readOldChord(int strings);
  void readBeatEffects();
  void readMix(MasterBar& bar, double place);
  void readNotes(SheetBeat& beat, int strings);
  /// None for one that is not kept.
  std::optional<SheetNote> readNote(int string);
  void readNoteEffects();
  void readGrace();
  void readHarmonic();
  void readBend();
  void leave(const char* what) { ++(*m_left)[what]; }
  void leaveIf(bool isThere, const char* what) {
    if (isThere) leave(what);
  }

  FileBytes& m_bytes;
  int m_version;
  LeftCounts* m_left = nullptr;  ///< Of the track that is read.
};

}  // namespace korvel::exchange::guitarpro
