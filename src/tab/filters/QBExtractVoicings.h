// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>

#include "model/songs/QBChordVisitor.h"

namespace korvel {

class QBSong;

/// Collects the different fingerings of three or more tones, each once, in a new song beside the
/// source. How often each was seen is the `m_hits` of its chord.
class QBExtractVoicings final : public QBChordVisitor {
 public:
  /// Makes the new song, titled after the source with "(voic)", whether that is taken or not.
  QBExtractVoicings(QBSong* source, int minimum);
  ~QBExtractVoicings() override;

  void execute(QBChord* previous, QBChord* current, QBChord* next) override;
  /// Deletes the voicings that were seen less often than the minimum.
  void cleanUp();
  QBSong* voicings() const;

 private:
  platform::Ref<QBSong> m_source;
  platform::Ref<QBSong> m_target;
  int m_filter;
  std::map<std::string, platform::Ref<QBChord>> m_voicings;
};

}  // namespace korvel
