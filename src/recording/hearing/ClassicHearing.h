// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>

#include "recording/hearing/Hearing.h"

namespace korvel {

class QBMediaTrack;

/// Hears block by block, and has each tone confirmed by the instrument's spectra. A step takes a
/// block, of a file or of live sound.
class ClassicHearing final : public Hearing {
 public:
  /// What is wrong with the file becomes a line of the log, and there is nothing to hear then.
  ClassicHearing(const std::filesystem::path& file, const HearingTask& task);
  /// Of live sound.
  ClassicHearing(std::shared_ptr<QBSampleSource> live, const HearingTask& task);
  ~ClassicHearing() override;

  void readAhead() override;
  bool atEnd() const override;
  bool hasCheapChords() const override { return false; }
  bool cutShort() override;
  void dropSound() override;

 private:
  ClassicHearing(const std::shared_ptr<QBMediaTrack>& track, const HearingTask& task);
  ClassicHearing(const std::shared_ptr<QBChordAnalyser>& analyser, const HearingTask& task);

  std::shared_ptr<QBMediaTrack> m_decoding;  ///< While a file is read.
  bool m_endsEarly = false;
};

}  // namespace korvel
