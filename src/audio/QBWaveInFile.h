// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "audio/QBSampleSource.h"

namespace korvel {

/// Samples that were stored as a property list, in place of a microphone.
class QBWaveInFile final : public QBSampleSource {
 public:
  explicit QBWaveInFile(std::string file) : m_file(std::move(file)) {}

  using QBSampleSource::startRecord;
  /// Reads `samples` from the file: none when it is missing or holds anything but an array of
  /// 16-bit numbers.
  void startRecord();

 private:
  std::string m_file;
};

}  // namespace korvel
