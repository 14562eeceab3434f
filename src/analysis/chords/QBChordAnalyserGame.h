// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/chords/QBChordAnalyserStandard.h"

namespace korvel {

/// Reads the stored blocks of a file instead of live ones, and deletes each once it is transformed.
class QBChordAnalyserGame final : public QBChordAnalyserStandard {
 public:
  using QBChordAnalyserStandard::QBChordAnalyserStandard;

  std::shared_ptr<QBFFT> nextFFT() override;
};

}  // namespace korvel
