// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

#include "exchange/guitarpro/FileBytes.h"
#include "exchange/guitarpro/TabSheet.h"

namespace korvel::exchange::guitarpro {

/// The version that a file of Guitar Pro 3 to 5 names in its first line, times 100: 510 for 5.10.
/// Throws a UserError for other versions; 0 where it is no such file.
int versionOf(std::string_view bytes);

/// Reads the binary files of Guitar Pro 3, 4 and 5, which have the same parts one after the other,
/// each version a few fields more.
class FileSong {
 public:
  /// The bytes must outlive this. version: as of `versionOf`.
  FileSong(std::string_view bytes, int version);

  /// To be called once. Throws a UserError for a damaged file.
  TabSheet read();

 private:
  static constexpr std::size_t kChannels = 64;

  // These read the parts of the file in the order of the format.
  void readInformation();
  void readLyrics();
  void readPage();
  void readTempo();
  void readChannels();
  void readDirections();
  void readBars(int count);
  void readBar(std::size_t index);
  void readSignature(MasterBar& bar, unsigned flags);
  unsigned endingsOf(int value) const;
  void readTracks(int count);
  void readTrack(bool isFirst);
  void readStrings(Track& track);
  void readSound();
  void readMusic();
  void placeDirections();
  void setFeel(int feel);

  FileBytes m_bytes;
  int m_version;
  TabSheet m_sheet;
  std::array<int, kChannels> m_programs{};
  std::array<int, 19> m_directions{};  ///< The number of the bar at which each stands.
};

}  // namespace korvel::exchange::guitarpro
