// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/QBOnlineTestRecorder.h"

namespace korvel {

/// The recorder of the import: also names each filtered chord and sorts its tones by loudness.
class QBChordRecorder : public QBOnlineTestRecorder {
 public:
  using QBOnlineTestRecorder::QBOnlineTestRecorder;

  /// One step; the chord that it stored, or none.
  QBChord* nextChord() override;
};

}  // namespace korvel
