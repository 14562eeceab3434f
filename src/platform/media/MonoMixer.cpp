// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MonoMixer.h"

extern "C" {
#include <libavutil/frame.h>
#include <libswresample/swresample.h>
}

#include <algorithm>

#include "platform/media/MediaAsset.h"
#include "platform/media/MediaError.h"

namespace korvel::platform {
namespace {

/// The channels are mixed whatever their meaning, so that all sound is heard.
AVChannelLayout unspecified(int channels) {
  AVChannelLayout layout{};
  layout.order = AV_CHANNEL_ORDER_UNSPEC;
  layout.nb_channels = channels;
  return layout;
}

}  // namespace

MonoMixer::MonoMixer() = default;
MonoMixer::MonoMixer(MonoMixer&&) noexcept = default;
MonoMixer& MonoMixer::operator=(MonoMixer&&) noexcept = default;
MonoMixer::~MonoMixer() = default;

void MonoMixer::requireMixable(const MediaAsset& asset, const MediaTrack& track) {
  if (track.channels > kMostChannels)
    throw MediaError(asset.file(),
                     phrase("Message", "the track has more channels than can be mixed"));
}

void MonoMixer::FreeConverter::operator()(SwrContext* converter) const { swr_free(&converter); }

void MonoMixer::append(const AVFrame& frame, std::vector<float>& samples) {
  const Kind kind{frame.format, frame.sample_rate, frame.ch_layout.nb_channels};
  if (frame.nb_samples <= 0 || !prepare(kind, samples)) return;
  const auto** in = const_cast<const std::uint8_t**>(frame.extended_data);
  convert(in, frame.nb_samples, samples);
}

void MonoMixer::append(std::span<const std::int16_t> mono, int rate, std::vector<float>& samples) {
  if (mono.empty() || !prepare({AV_SAMPLE_FMT_S16, rate, 1}, samples)) return;
  const auto* in = reinterpret_cast<const std::uint8_t*>(mono.data());
  convert(&in, static_cast<int>(mono.size()), samples);
}

void MonoMixer::finish(std::vector<float>& samples) {
  if (m_converter) convert(nullptr, 0, samples);
  m_converter.reset();
}

/// Makes a new converter when the kind has changed.
bool MonoMixer::prepare(const Kind& kind, std::vector<float>& samples) {
  if (m_converter && kind == m_kind) return true;
  finish(samples);
  m_kind = kind;
  makeConverter();
  return m_converter != nullptr;
}

void MonoMixer::makeConverter() {
  const auto [format, rate, channels] = m_kind;
  if (rate <= 0 || channels <= 0 || channels > kMostChannels) return;
  SwrContext* made = nullptr;
  AVChannelLayout in = unspecified(channels);
  AVChannelLayout out = unspecified(1);
  swr_alloc_set_opts2(&made, &out, AV_SAMPLE_FMT_FLT, kRate, &in,
                      static_cast<AVSampleFormat>(format), rate, 0, nullptr);
  m_converter.reset(made);
  const std::vector<double> shares(static_cast<std::size_t>(channels), 1.0 / channels);
  if (!made || swr_set_matrix(made, shares.data(), channels) < 0 || swr_init(made) < 0)
    m_converter.reset();
}

void MonoMixer::convert(const std::uint8_t** in, int count, std::vector<float>& samples) {
  const std::size_t before = samples.size();
  const int room = std::max(0, swr_get_out_samples(m_converter.get(), count));
  samples.resize(before + static_cast<std::size_t>(room));
  auto* out = reinterpret_cast<std::uint8_t*>(samples.data() + before);
  const int done = swr_convert(m_converter.get(), &out, room, in, count);
  samples.resize(before + static_cast<std::size_t>(std::max(0, done)));
}

}  // namespace korvel::platform
