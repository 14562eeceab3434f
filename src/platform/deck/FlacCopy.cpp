// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/FlacCopy.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/frame.h>
#include <libswresample/swresample.h>
}
#include <sndfile.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <vector>

#include "platform/files/NewFile.h"
#include "platform/media/MediaDecoder.h"
#include "platform/media/MediaError.h"

namespace korvel::platform {
namespace {

constexpr int kFramesOfStep = 16384;
constexpr Phrase kCannotKeep =
    phrase("Message", "its sound cannot be kept as FLAC: it has %1 channels at %2 Hz");

struct FreeConversion {
  void operator()(SwrContext* conversion) const { swr_free(&conversion); }
};
struct CloseEncoder {
  void operator()(SNDFILE* encoder) const { sf_close(encoder); }
};

const MediaTrack& trackOf(const MediaAsset& asset) {
  const MediaTrack* track = asset.firstSound();
  if (!asset.hasTrackList()) throw MediaError(asset.file(), asset.problem());
  if (!track) throw MediaError(asset.file(), phrase("Message", "there is no sound in it"));
  return *track;
}

/// What a lossy coding makes of 16 bits has no more.
int formatOf(const AVFrame& frame, const std::string& codec) {
  const AVCodecDescriptor* coding = avcodec_descriptor_get_by_name(codec.c_str());
  const bool isLossless = coding && (coding->props & AV_CODEC_PROP_LOSSLESS) != 0;
  const int bytes = av_get_bytes_per_sample(static_cast<AVSampleFormat>(frame.format));
  return SF_FORMAT_FLAC | (isLossless && bytes > 2 ? SF_FORMAT_PCM_24 : SF_FORMAT_PCM_16);
}

}  // namespace

class FlacCopy::Copying {
 public:
  Copying(const std::filesystem::path& recording, const std::filesystem::path& file)
      : m_asset(recording),
        m_codec(trackOf(m_asset).codec),
        m_decoder(m_asset, trackOf(m_asset)),
        m_file(file, Existing::replaced, Readers::ownerOnly) {
    if (!m_decoder.start())
      throw MediaError(recording, phrase("Message", "the track is no sound that can be decoded"));
  }

  bool step() {
    for (int frames = 0; frames < kFramesOfStep;) {
      const AVFrame* frame = m_decoder.next();
      if (!frame) {
        if (m_decoder.hasFailed())
          throw MediaError(m_asset.file(), phrase("Message", "cannot be read any further"));
        return false;
      }
      if (frame->nb_samples <= 0) continue;
      if (!m_encoder) begin(*frame);
      copy(*frame);
      frames += frame->nb_samples;
    }
    return true;
  }

  double seconds() const {
    return m_rate > 0 ? static_cast<double>(m_copied) / static_cast<double>(m_rate) : 0;
  }

  void finish() {
    if (!m_encoder) throw MediaError(m_asset.file(), phrase("Message", "there is no sound in it"));
    errno = 0;
    if (sf_close(m_encoder.release()) != 0)
      throw FileError(m_file.file(), FileError::kCannotWrite, errno != 0 ? errno : EIO);
    m_file.appear();
  }

 private:
  void begin(const AVFrame& frame) {
    m_rate = frame.sample_rate;
    m_channels = frame.ch_layout.nb_channels;
    m_format = frame.format;
    SF_INFO info{};
    info.samplerate = m_rate;
    info.channels = m_channels;
    info.format = formatOf(frame, m_codec);
    m_encoder.reset(sf_open_fd(m_file.descriptor(), SFM_WRITE, &info, SF_FALSE));
    if (!m_encoder) throw MediaError(m_asset.file(), UserText(kCannotKeep, m_channels, m_rate));
    AVChannelLayout layout{};
    layout.order = AV_CHANNEL_ORDER_UNSPEC;
    layout.nb_channels = m_channels;
    SwrContext* made = nullptr;
    swr_alloc_set_opts2(&made, &layout, AV_SAMPLE_FMT_S32, m_rate, &layout,
                        static_cast<AVSampleFormat>(m_format), m_rate, 0, nullptr);
    m_conversion.reset(made);
    if (!made || swr_init(made) < 0)
      throw MediaError(m_asset.file(), UserText(kCannotKeep, m_channels, m_rate));
  }

  void copy(const AVFrame& frame) {
    if (frame.sample_rate != m_rate || frame.ch_layout.nb_channels != m_channels ||
        frame.format != m_format)
      throw MediaError(m_asset.file(),
                       phrase("Message", "its sound changes its kind, which FLAC does not know"));
    m_samples.resize(static_cast<std::size_t>(frame.nb_samples) *
                     static_cast<std::size_t>(m_channels));
    auto* out = reinterpret_cast<std::uint8_t*>(m_samples.data());
    const auto** in = const_cast<const std::uint8_t**>(frame.extended_data);
    const int done = swr_convert(m_conversion.get(), &out, frame.nb_samples, in, frame.nb_samples);
    errno = 0;
    if (done > 0 && sf_writef_int(m_encoder.get(), m_samples.data(), done) != done)
      throw FileError(m_file.file(), FileError::kCannotWrite, errno != 0 ? errno : EIO);
    m_copied += std::max(done, 0);
  }

  const MediaAsset m_asset;
  const std::string m_codec;
  MediaDecoder m_decoder;
  NewFile m_file;
  std::unique_ptr<SNDFILE, CloseEncoder> m_encoder;
  std::unique_ptr<SwrContext, FreeConversion> m_conversion;
  std::vector<int> m_samples;
  std::int64_t m_copied = 0;  ///< Frames.
  int m_rate = 0;
  int m_channels = 0;
  int m_format = -1;
};

FlacCopy::FlacCopy(const std::filesystem::path& recording, const std::filesystem::path& file)
    : m_copying(std::make_unique<Copying>(recording, file)) {}

FlacCopy::~FlacCopy() = default;

bool FlacCopy::step() { return m_copying->step(); }

double FlacCopy::seconds() const { return m_copying->seconds(); }

void FlacCopy::finish() { m_copying->finish(); }

}  // namespace korvel::platform
