// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/recordings/RecordingSound.h"

#include <string>
#include <system_error>
#include <tuple>

#include "model/recorded/SongRecording.h"
#include "model/songs/QBSong.h"
#include "platform/files/FileError.h"
#include "workflow/recordings/FileContent.h"
#include "workflow/recordings/KeptSounds.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;
using platform::phrase;
using platform::UserText;

constexpr platform::Phrase kNone = phrase("Message", "%1: no recording is stored with the song");
constexpr platform::Phrase kGone =
    phrase("Message", "%1: the recording is not there any more; say where it is now");
constexpr platform::Phrase kOther =
    phrase("Message", "%1: the recording has changed since it was heard; say where the old one is");

bool isThereAsFile(const fs::path& file) {
  std::error_code unknown;
  return !file.empty() && fs::is_regular_file(file, unknown);
}

bool hasSizeOf(const SongRecording& recording, const fs::path& file) {
  std::error_code unknown;
  const auto size = fs::file_size(file, unknown);
  return !unknown && static_cast<std::int64_t>(size) == recording.size();
}

/// A disk that fails is not a file that was changed.
UserText whyNowhere(const SongRecording& recording) {
  const std::string& file = recording.path();
  if (!isThereAsFile(file)) return {kGone, file};
  if (hasSizeOf(recording, file) && contentOf(file).empty())
    return platform::FileError(file, platform::FileError::kCannotRead).text();
  return {kOther, file};
}

/// content: of the file, which may have had another one when it was opened last, as its time tells
/// where the content is not known or was not proven then.
std::shared_ptr<const platform::DecodedSound> opened(const fs::path& file,
                                                     const std::string& content) {
  static std::tuple<fs::path, std::string, fs::file_time_type> last;
  static std::shared_ptr<const platform::DecodedSound> sound;
  std::error_code unknown;
  const std::tuple wanted(file, content, fs::last_write_time(file, unknown));
  const bool isOpen = sound && last == wanted;
  if (isOpen && (!sound->isWhole() || sound->problem().empty())) return sound;
  sound = nullptr;
  sound = std::make_shared<const platform::DecodedSound>(file);
  last = wanted;
  return sound;
}

}  // namespace

bool isRecording(const SongRecording& recording, const fs::path& file, Proof proof) {
  if (!hasSizeOf(recording, file)) return false;
  if (recording.hash().empty()) return true;
  if (proof == Proof::content || (proof == Proof::atOnce && isContentAtHand(file)))
    return contentOf(file) == recording.hash();
  if (const auto known = knownContent(file)) return *known == recording.hash();
  readAhead(file);
  return true;
}

std::optional<fs::path> fileOfRecording(const SongRecording& recording, Proof proof) {
  if (isThereAsFile(recording.path()) && isRecording(recording, recording.path(), proof))
    return recording.path();
  const fs::path kept = keptSoundOf(recording);
  return isThereAsFile(kept) ? std::optional(kept) : std::nullopt;
}

fs::path requireRecordingFile(const SongRecording& recording, Proof proof) {
  const auto file = fileOfRecording(recording, proof);
  if (!file) throw EditRefused(whyNowhere(recording));
  return *file;
}

RecordingSound openRecording(const QBSong& song, Proof proof) {
  const SongRecording* recording = song.recording();
  if (!recording) return {nullptr, UserText(kNone, song.title())};
  const auto file = fileOfRecording(*recording, proof);
  if (!file) return {nullptr, whyNowhere(*recording)};
  try {
    return {opened(*file, recording->hash()), {}};
  } catch (const platform::FileError& error) {
    return {nullptr, error.text()};
  }
}

}  // namespace korvel
