// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/loop/Slices.h"

namespace korvel {

class QBSong;
class QBTabMgr;
struct HeardSound;

/// Gives a song the recording that it was heard in: the file with its size, hash and tags, and all
/// that was heard. Reading a long file takes a moment. The file, the song and the sound have to
/// stay until it is done; a file that is gone leaves its path.
platform::Slices keepingRecording(QBTabMgr& db, QBSong& song, std::string file,
                                  const HeardSound& heard);

}  // namespace korvel
