// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/QBChordRecorder.h"

namespace korvel {

QBChord* QBChordRecorder::nextChord() { return completed(nextStep()); }

}  // namespace korvel
