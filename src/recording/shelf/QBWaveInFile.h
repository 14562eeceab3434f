// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

#include "recording/QBWaveIn.h"

namespace korvel {

/// Samples that were stored as a property list, in place of those of the microphone.
class QBWaveInFile final : public QBWaveIn {
 public:
  QBWaveInFile(QBChordAnalyser* analyser, std::string file)
      : QBWaveIn(analyser), m_file(std::move(file)) {}

  using QBWaveIn::startRecord;
  /// Reads `samples` from the file: none when it is missing or holds anything but an array of
  /// 16-bit numbers.
  void startRecord();

 private:
  std::string m_file;
};

}  // namespace korvel
