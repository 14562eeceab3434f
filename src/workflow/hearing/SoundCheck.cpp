// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/SoundCheck.h"

#include <algorithm>
#include <filesystem>

#include "exchange/Formats.h"
#include "platform/media/MediaAsset.h"
#include "platform/media/MediaError.h"
#include "platform/media/MediaReader.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;
using platform::phrase;

/// Of pages that a browser saved under the name of a tab, above all.
constexpr platform::Phrase kIsSomethingElse = phrase(
    "Message",
    "%1: is neither what its name says nor a sound file; fetch it again, or save it as MIDI or "
    "MusicXML in the program that it is from");

constexpr platform::Phrase kIsUnread = phrase(
    "Message",
    "%1: tabs and scores of this kind are not read; save it as MusicXML, MIDI or Guitar Pro in the "
    "program that it is from");

void requireFile(const std::string& file) {
  std::error_code error;
  if (!fs::exists(file, error)) throw NoSound(phrase("Message", "%1: there is no such file"), file);
  if (fs::is_directory(file, error))
    throw NoSound(phrase("Message", "%1: is a folder; name a sound file"), file);
  if (!fs::is_regular_file(file, error))
    throw NoSound(phrase("Message", "%1: is not a plain file"), file);
  if (fs::file_size(file, error) == 0) throw NoSound(phrase("Message", "%1: is empty"), file);
}

const platform::MediaTrack& soundTrack(const platform::MediaAsset& asset) {
  using platform::MediaTrack;
  const auto isSound = [](const MediaTrack& track) {
    return track.media == MediaTrack::Media::sound;
  };
  if (const MediaTrack* found = asset.firstSound()) return *found;
  const bool any = std::ranges::any_of(asset.tracks(), isSound);
  throw NoSound(
      any ? phrase("Message",
                   "%1: its sound is in a coding that cannot be decoded; convert it to WAV first")
          : phrase("Message", "%1: has no sound track"),
      asset.file().string());
}

}  // namespace

void requireSound(const std::string& file) {
  requireFile(file);
  const platform::MediaAsset asset(file);
  if (!asset.hasTrackList() && exchange::isNamedAsPiece(file))
    throw NoSound(kIsSomethingElse, file);
  if (!asset.hasTrackList() && exchange::isNamedAsUnread(file)) throw NoSound(kIsUnread, file);
  if (!asset.hasTrackList()) throw NoSound(asset.problem());
  try {
    platform::MediaReader reader(asset, soundTrack(asset));
    if (reader.start() && !reader.next().empty()) return;
  } catch (const platform::MediaError& error) {
    throw NoSound(error.text());
  }
  throw NoSound(phrase("Message", "%1: no sound could be decoded; is the file complete?"), file);
}

}  // namespace korvel
