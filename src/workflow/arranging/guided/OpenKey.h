// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace korvel {

class QBSong;

/// In which key an easy version is played.
enum class EasyKey {
  asRecorded,
  transposed,  ///< Up or down to where most of its chords are open ones.
  capo,        ///< The same only down, so that a capo brings back the pitch of the recording.
};

/// By how many half tones the song goes to that key: from -5 to 6, with a capo from -7 to 0, the
/// fewest among equals. Those of a song without names of chords follow the open strings that its
/// tones sound on.
int halfTonesTo(EasyKey key, QBSong& song);

/// The tag of a song that is moved by so many half tones, -11 to 11; "" for 0.
std::string_view transpositionTag(int halfTones);

}  // namespace korvel
