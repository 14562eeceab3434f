// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MediaAsset.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <utility>

#include "platform/media/MediaError.h"
#include "platform/media/MediaFile.h"
#include "platform/media/MediaFormats.h"

namespace korvel::platform {
namespace {

MediaTrack::Coding codingOf(const AVCodecParameters& sound) {
  const bool known = sound.sample_rate > 0 && sound.ch_layout.nb_channels > 0;
  if (!known || !media::decoderOf(sound.codec_id)) return MediaTrack::Coding::none;
  if (sound.codec_id == AV_CODEC_ID_MP3) return MediaTrack::Coding::mp3;
  if (sound.codec_id == AV_CODEC_ID_AAC) return MediaTrack::Coding::aac;
  return MediaTrack::Coding::lpcm;
}

MediaTrack describe(const AVStream& stream) {
  const AVCodecParameters& parameters = *stream.codecpar;
  MediaTrack track;
  track.index = stream.index;
  track.codec = avcodec_get_name(parameters.codec_id);
  if (parameters.codec_type != AVMEDIA_TYPE_AUDIO) return track;
  track.media = MediaTrack::Media::sound;
  track.coding = codingOf(parameters);
  track.sampleRate = parameters.sample_rate;
  track.channels = parameters.ch_layout.nb_channels;
  return track;
}

/// Some formats tag the file, others its first track of sound.
std::string tagOf(const AVFormatContext& file, const char* name) {
  if (const auto* entry = av_dict_get(file.metadata, name, nullptr, 0)) return entry->value;
  for (unsigned i = 0; i < file.nb_streams; ++i) {
    const AVStream& stream = *file.streams[i];
    if (stream.codecpar->codec_type != AVMEDIA_TYPE_AUDIO) continue;
    const auto* entry = av_dict_get(stream.metadata, name, nullptr, 0);
    return entry ? entry->value : "";
  }
  return {};
}

}  // namespace

MediaAsset::MediaAsset(std::filesystem::path file) : m_file(std::move(file)) {
  try {
    const MediaFile media(m_file);
    for (unsigned i = 0; i < media.context()->nb_streams; ++i)
      m_tracks.push_back(describe(*media.context()->streams[i]));
    m_title = tagOf(*media.context(), "title");
    m_artist = tagOf(*media.context(), "artist");
    m_hasTrackList = true;
  } catch (const MediaError& error) {
    m_problem = error.text();
  }
}

const MediaTrack* MediaAsset::firstSound() const {
  const auto sound = std::ranges::find_if(
      m_tracks, [](const MediaTrack& track) { return track.coding != MediaTrack::Coding::none; });
  return sound == m_tracks.end() ? nullptr : &*sound;
}

}  // namespace korvel::platform
