// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/StereoReader.h"

extern "C" {
#include <libavutil/frame.h>
#include <libswresample/swresample.h>
}

#include <algorithm>
#include <vector>

#include "platform/media/MediaDecoder.h"
#include "platform/media/MonoMixer.h"
#include "platform/sound/SampleRate.h"

namespace korvel::platform {
namespace {

constexpr int kSides = 2;
constexpr std::size_t kSamplesAtOnce = 16384;

struct FreeResampler {
  void operator()(SwrContext* resampler) const { swr_free(&resampler); }
};

struct KindOfSound {
  int format = -1;
  int rate = 0;
  int channels = 0;
  bool operator==(const KindOfSound&) const = default;
};

AVChannelLayout withoutMeaning(int channels) {
  AVChannelLayout layout{};
  layout.order = AV_CHANNEL_ORDER_UNSPEC;
  layout.nb_channels = channels;
  return layout;
}

/// A row for each side: the even channels are heard on the left, the odd ones on the right.
std::vector<double> sharesOf(int channels) {
  const auto count = static_cast<std::size_t>(channels);
  std::vector<double> shares(kSides * count, 0);
  for (std::size_t side = 0; side < kSides; ++side)
    for (std::size_t channel = 0; channel < count; ++channel)
      if (channels == 1 || channel % kSides == side)
        shares[side * count + channel] =
            channels == 1 ? 1.0 : 1.0 / static_cast<double>((count + 1 - side) / kSides);
  return shares;
}

}  // namespace

class StereoReader::Decoding {
 public:
  Decoding(const MediaAsset& asset, const MediaTrack& track) : m_decoder(asset, track) {
    MonoMixer::requireMixable(asset, track);
  }

  bool start() { return m_reading = m_decoder.start(); }

  std::span<const std::int16_t> next() {
    m_samples.clear();
    while (m_reading && m_samples.size() < kSamplesAtOnce) {
      const AVFrame* frame = m_decoder.next();
      m_reading = frame != nullptr;
      frame ? append(*frame) : finish();
    }
    return m_samples;
  }

  bool hasFailed() const { return !m_reading && m_decoder.hasFailed(); }

 private:
  void append(const AVFrame& frame) {
    const KindOfSound kind{frame.format, frame.sample_rate, frame.ch_layout.nb_channels};
    if (frame.nb_samples <= 0 || !prepare(kind)) return;
    convert(const_cast<const std::uint8_t**>(frame.extended_data), frame.nb_samples);
  }

  void finish() {
    if (m_resampler) convert(nullptr, 0);
    m_resampler.reset();
  }

  bool prepare(const KindOfSound& kind) {
    if (m_resampler && kind == m_kind) return true;
    finish();
    m_kind = kind;
    if (kind.rate > 0 && kind.channels > 0 && kind.channels <= MonoMixer::kMostChannels)
      makeResampler();
    return m_resampler != nullptr;
  }

  void makeResampler() {
    SwrContext* made = nullptr;
    AVChannelLayout in = withoutMeaning(m_kind.channels);
    AVChannelLayout out = withoutMeaning(kSides);
    swr_alloc_set_opts2(&made, &out, AV_SAMPLE_FMT_S16, kSampleRate, &in,
                        static_cast<AVSampleFormat>(m_kind.format), m_kind.rate, 0, nullptr);
    m_resampler.reset(made);
    const std::vector<double> shares = sharesOf(m_kind.channels);
    if (!made || swr_set_matrix(made, shares.data(), m_kind.channels) < 0 || swr_init(made) < 0)
      m_resampler.reset();
  }

  void convert(const std::uint8_t** in, int count) {
    const std::size_t before = m_samples.size();
    const int room = std::max(0, swr_get_out_samples(m_resampler.get(), count));
    m_samples.resize(before + static_cast<std::size_t>(room) * kSides);
    auto* out = reinterpret_cast<std::uint8_t*>(m_samples.data() + before);
    const int done = std::max(0, swr_convert(m_resampler.get(), &out, room, in, count));
    m_samples.resize(before + static_cast<std::size_t>(done) * kSides);
  }

  MediaDecoder m_decoder;
  std::unique_ptr<SwrContext, FreeResampler> m_resampler;
  KindOfSound m_kind;
  std::vector<std::int16_t> m_samples;
  bool m_reading = false;
};

StereoReader::StereoReader(const MediaAsset& asset, const MediaTrack& track)
    : m_decoding(std::make_unique<Decoding>(asset, track)) {}

StereoReader::~StereoReader() = default;

bool StereoReader::start() { return m_decoding->start(); }
std::span<const std::int16_t> StereoReader::next() { return m_decoding->next(); }
bool StereoReader::hasFailed() const { return m_decoding->hasFailed(); }

}  // namespace korvel::platform
