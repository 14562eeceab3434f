// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "analysis/beats/HeardSound.h"
#include "chords/BandSound.h"
#include "chords/voices/Voice.h"
#include "fingering/FingeringOptions.h"
#include "music/Neck.h"
#include "rhythm/Reading.h"

namespace korvel {

/// The guitar on which voices are to be played.
struct VoiceGuitar {
  OpenPitches open{};  ///< Without capo.
  fingering::FingeringOptions options{};
};

/// Hears voices in the sound of a band, which has tones, on the beats of a reading whose chords are
/// told. Each is written in sixteenths, or what the feel of the reading has in their place. A voice
/// that goes below the guitar is raised by octaves as a whole.
std::vector<HeardVoice> hearVoices(const chords::BandSound& sound, const chords::Voices& voices,
                                   const rhythm::Reading& reading, const VoiceGuitar& guitar);

}  // namespace korvel
