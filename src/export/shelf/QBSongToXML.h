// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string_view>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;
class QBMusicXML;
class QBSong;

/// Turns the first 450 chords of a song into a `QBMusicXML`, laid into measures of one metric.
/// Chords are not split: one that crosses the end of a measure stays in the one it begins in.
class QBSongToXML final {
 public:
  /// metric: "4/4", "6/8", "3/4" or "12/8".
  QBSongToXML(QBSong* song, std::string_view metric);
  ~QBSongToXML();

  /// std::out_of_range for a song of fewer than 450 chords, std::domain_error for another metric.
  std::unique_ptr<QBMusicXML> buildXML() const;

 private:
  static void addChord(QBMusicXML& document, const QBChord& chord);

  platform::Ref<QBSong> m_song;
  int m_metric = 0;   ///< Length of a measure, in sixteenths.
  int m_zaehler = 0;  ///< Numerator of the time signature.
  int m_nenner = 0;   ///< Its denominator.
};

}  // namespace korvel
