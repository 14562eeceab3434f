// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MonoReader.h"

extern "C" {
#include <libavutil/frame.h>
#include <libswresample/swresample.h>
}

#include <algorithm>
#include <vector>

#include "platform/MediaDecoder.h"
#include "platform/MediaError.h"

namespace korvel::platform {
namespace {

/// Small frames are gathered up to this, so that a caller's cost per chunk does not count.
constexpr std::size_t kChunk = 16384;
constexpr int kMostChannels = 64;

struct FreeConverter {
  void operator()(SwrContext* converter) const { swr_free(&converter); }
};

/// Turns decoded frames of any kind into samples of one channel at one rate.
class Mixer {
 public:
  void append(const AVFrame& frame, std::vector<float>& samples) {
    if (frame.nb_samples <= 0 || !prepare(frame, samples)) return;
    const auto** in = const_cast<const std::uint8_t**>(frame.extended_data);
    convert(in, frame.nb_samples, samples);
  }

  /// What the resampler still holds back.
  void finish(std::vector<float>& samples) {
    if (m_converter) convert(nullptr, 0, samples);
    m_converter.reset();
  }

 private:
  /// Makes a new converter when the frames have changed.
  bool prepare(const AVFrame& frame, std::vector<float>& samples) {
    if (m_converter && frame.format == m_format && frame.sample_rate == m_rate &&
        frame.ch_layout.nb_channels == m_channels)
      return true;
    finish(samples);
    m_format = frame.format;
    m_rate = frame.sample_rate;
    m_channels = frame.ch_layout.nb_channels;
    makeConverter();
    return m_converter != nullptr;
  }

  void makeConverter() {
    if (m_rate <= 0 || m_channels <= 0 || m_channels > kMostChannels) return;
    SwrContext* made = nullptr;
    AVChannelLayout in = unspecified(m_channels);
    AVChannelLayout out = unspecified(1);
    swr_alloc_set_opts2(&made, &out, AV_SAMPLE_FMT_FLT, MonoReader::kRate, &in,
                        static_cast<AVSampleFormat>(m_format), m_rate, 0, nullptr);
    m_converter.reset(made);
    const std::vector<double> shares(static_cast<std::size_t>(m_channels), 1.0 / m_channels);
    if (!made || swr_set_matrix(made, shares.data(), m_channels) < 0 || swr_init(made) < 0)
      m_converter.reset();
  }

  /// The channels are mixed whatever their meaning, so that all sound is heard.
  static AVChannelLayout unspecified(int channels) {
    AVChannelLayout layout{};
    layout.order = AV_CHANNEL_ORDER_UNSPEC;
    layout.nb_channels = channels;
    return layout;
  }

  void convert(const std::uint8_t** in, int count, std::vector<float>& samples) {
    const std::size_t before = samples.size();
    const int room = std::max(0, swr_get_out_samples(m_converter.get(), count));
    samples.resize(before + static_cast<std::size_t>(room));
    auto* out = reinterpret_cast<std::uint8_t*>(samples.data() + before);
    const int done = swr_convert(m_converter.get(), &out, room, in, count);
    samples.resize(before + static_cast<std::size_t>(std::max(0, done)));
  }

  std::unique_ptr<SwrContext, FreeConverter> m_converter;
  int m_format = AV_SAMPLE_FMT_NONE;
  int m_rate = 0;
  int m_channels = 0;
};

}  // namespace

class MonoReader::Decoding {
 public:
  Decoding(const MediaAsset& asset, const MediaTrack& track) : m_decoder(asset, track) {
    if (track.channels > kMostChannels)
      throw MediaError(asset.file(), "the track has more channels than can be mixed");
  }

  bool start() { return m_reading = m_decoder.start(); }

  std::span<const float> next() {
    m_samples.clear();
    while (m_reading && m_samples.size() < kChunk) {
      const AVFrame* frame = m_decoder.next();
      if (!frame) {
        m_mixer.finish(m_samples);
        m_reading = false;
        break;
      }
      m_mixer.append(*frame, m_samples);
    }
    return m_samples;
  }

  bool isReading() const { return m_reading; }
  double progress() const { return m_decoder.progress(); }
  void cancel() { m_reading = false; }

 private:
  MediaDecoder m_decoder;
  Mixer m_mixer;
  std::vector<float> m_samples;
  bool m_reading = false;
};

MonoReader::MonoReader(const MediaAsset& asset, const MediaTrack& track)
    : m_decoding(std::make_unique<Decoding>(asset, track)) {}

MonoReader::MonoReader(MonoReader&&) noexcept = default;
MonoReader& MonoReader::operator=(MonoReader&&) noexcept = default;
MonoReader::~MonoReader() = default;

bool MonoReader::start() { return m_decoding->start(); }
std::span<const float> MonoReader::next() { return m_decoding->next(); }
bool MonoReader::isReading() const { return m_decoding->isReading(); }
double MonoReader::progress() const { return m_decoding->progress(); }
void MonoReader::cancel() { m_decoding->cancel(); }

}  // namespace korvel::platform
