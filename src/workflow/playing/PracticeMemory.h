// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "workflow/playing/PlayedSound.h"

namespace korvel {

class QBSong;

/// How a song was practised last; its loop is the song's own.
struct PractisedSong {
  double rate = 1;  ///< 1 is the speed of the recording.
  PlayedSound sound;
};

/// As a song has it, in words such as "rate=0.6 mix=0.5 ramp=60:5:2"; what they do not tell is as
/// it is at first, and words that nobody knows are passed over.
std::string textOf(const PractisedSong& practised);
PractisedSong practisedOf(const std::string& text);

/// None of a song that has not been practised.
std::optional<PractisedSong> practiceOf(const QBSong& song);
/// Saves it with the song, which is no action that can be undone. Without effect where the store
/// cannot be written, where it is what the song has, and on a song that is at work otherwise.
void rememberPractice(QBSong& song, const PractisedSong& practised);

}  // namespace korvel
