// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBFrequency;
class QBString;
class QBTuning;

/// The tuning's open string that sounds the detected frequency, to half a semitone, or none.
QBString* findBaseToneByFrequency(QBTuning& tuning, const QBFrequency& frequency);

}  // namespace korvel
