// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "platform/text/UserText.h"
#include "rhythm/Reading.h"

namespace korvel {

class QBSong;

// A rhythm in the words of users.

/// "3/4".
std::string metreName(const rhythm::Metre& metre);
platform::Phrase feelName(rhythm::Feel feel);
/// "96 beats a minute, 3/4, swing".
platform::UserText rhythmText(const rhythm::Reading& reading);
/// The same of a song on beats, which may be arranged other than its recording was read.
platform::UserText rhythmText(const QBSong& song, const rhythm::Reading& reading);
/// "184 in 4/4", "92 in 6/8" or "92 in 4/4, swing".
platform::UserText rhythmText(const rhythm::Alternative& other);
/// The same, and whether that is not much less probable than what was read.
platform::UserText offerText(const rhythm::Alternative& other);
/// What is to be said when no beats near the wished tempo fit the notes; nothing otherwise.
std::optional<platform::UserText> missedTempoText(const rhythm::Reading& reading,
                                                  const rhythm::Wishes& wishes);
/// "A minor".
platform::UserText keyText(const rhythm::Key& key);

}  // namespace korvel
