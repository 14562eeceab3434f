// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "platform/deck/DecodedSound.h"
#include "platform/text/UserText.h"

namespace korvel {

class QBSong;
class SongRecording;

/// The sound of the recording that a song was heard in, or why there is none.
struct RecordingSound {
  std::shared_ptr<const platform::DecodedSound> sound;  ///< None where it is not to be had.
  platform::UserText problem;  ///< One line with what to do; empty when there is a sound.
};

/// How sure it is to be that a file is a recording.
enum class Proof {
  /// All of the file is read, unless it was before: a second or more for an hour of sound.
  content,
  /// A long file that was not read yet is taken by its size for now, and read by another thread.
  atOnce,
  /// So is a short one, for what is asked again and again.
  known
};

/// Finds and opens the recording of a song: the file that it was heard in, if that still has its
/// content, or else the copy that is kept beside the store. What was opened last stays open, so
/// that it begins at once the next time.
RecordingSound openRecording(const QBSong& song, Proof proof = Proof::content);

/// Where that is; none where it is nowhere.
std::optional<std::filesystem::path> fileOfRecording(const SongRecording& recording,
                                                     Proof proof = Proof::content);

/// The same; throws EditRefused with what to do where it is nowhere.
std::filesystem::path requireRecordingFile(const SongRecording& recording,
                                           Proof proof = Proof::content);

/// Whether the file has the recording's content, whatever its name.
bool isRecording(const SongRecording& recording, const std::filesystem::path& file,
                 Proof proof = Proof::content);

}  // namespace korvel
