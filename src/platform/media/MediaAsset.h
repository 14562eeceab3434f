// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/text/UserText.h"

namespace korvel::platform {

/// One track of a media file.
struct MediaTrack {
  enum class Media { sound, other };
  /// How a sound track is coded. Everything that its decoder turns into linear PCM counts as lpcm,
  /// be it PCM itself, FLAC, Vorbis or Opus. None: no sound, no decoder, or a track whose rate or
  /// channel count the file does not tell.
  enum class Coding { none, mp3, aac, lpcm };

  int index = 0;
  Media media = Media::other;
  Coding coding = Coding::none;
  std::string codec;   ///< The decoding library's name: "mp3", "pcm_s24le", "vorbis", "h264".
  int sampleRate = 0;  ///< Per second; 0 for anything but sound.
  int channels = 0;    ///< 0 for anything but sound.
};

/// A media file and its tracks, in the file's order. Opening never throws for what the file is or
/// holds: a file that cannot be read as media has no track list, and problem() says why.
class MediaAsset {
 public:
  explicit MediaAsset(std::filesystem::path file);

  bool hasTrackList() const { return m_hasTrackList; }
  const std::vector<MediaTrack>& tracks() const { return m_tracks; }
  /// The first track that is sound and can be decoded; null when there is none.
  const MediaTrack* firstSound() const;
  // What the file's tags say; empty without them.
  const std::string& title() const { return m_title; }
  const std::string& artist() const { return m_artist; }
  /// Why there is no track list; names the file. Empty when there is one.
  const UserText& problem() const { return m_problem; }
  const std::filesystem::path& file() const { return m_file; }

 private:
  std::filesystem::path m_file;
  bool m_hasTrackList = false;
  std::vector<MediaTrack> m_tracks;
  std::string m_title;
  std::string m_artist;
  UserText m_problem;
};

}  // namespace korvel::platform
