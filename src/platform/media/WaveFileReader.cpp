// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/WaveFileReader.h"

#include <fcntl.h>
#include <sndfile.h>

extern "C" {
#include <libswresample/swresample.h>
}

#include <algorithm>
#include <cmath>
#include <new>
#include <numeric>
#include <string>

#include "platform/files/Descriptor.h"
#include "platform/files/FileError.h"
#include "platform/sound/AudioQueue.h"

namespace korvel::platform {
namespace {

constexpr std::size_t kFramesOfPiece = 4096;
constexpr int kRate = static_cast<int>(kLiveSound.sampleRate);
/// What sound is recorded at. Others would make more samples than there is memory for.
constexpr int kLowestRate = 1000;
constexpr int kHighestRate = 768000;

bool isWave(const SF_INFO& info) {
  const int type = info.format & SF_FORMAT_TYPEMASK;
  return type == SF_FORMAT_WAV || type == SF_FORMAT_WAVEX || type == SF_FORMAT_RF64;
}

/// Exact for what was 16 bits wide in the file.
std::int16_t asInteger(float sample) {
  return static_cast<std::int16_t>(std::lrint(std::clamp(sample * 32768.0F, -32768.0F, 32767.0F)));
}

void addFrame(std::span<const float> frame, std::vector<float>& stereo) {
  if (frame.size() == WaveFileReader::kChannels) {
    stereo.insert(stereo.end(), frame.begin(), frame.end());
    return;
  }
  const float sum = std::accumulate(frame.begin(), frame.end(), 0.0F);
  stereo.insert(stereo.end(), WaveFileReader::kChannels, sum / static_cast<float>(frame.size()));
}

}  // namespace

struct WaveFileReader::Decoder {
  explicit Decoder(const std::filesystem::path& file)
      : named(file), in(file, file, O_RDONLY | O_NONBLOCK, FileError::kCannotRead) {
    in.refuseIrregular();
    handle = sf_open_fd(in.number(), SFM_READ, &info, SF_FALSE);
    if (handle && isWave(info)) return;
    sf_close(handle);
    throw FileError(
        file,
        phrase("Message", "it is no WAV file; another program has to convert it to one first"));
  }
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;
  ~Decoder() { sf_close(handle); }

  /// The next frames as two channels; none at the end. Throws FileError.
  std::vector<float> next() {
    const auto channels = static_cast<std::size_t>(info.channels);
    piece.resize(kFramesOfPiece * channels);
    const sf_count_t frames = sf_readf_float(handle, piece.data(), kFramesOfPiece);
    if (sf_error(handle) != SF_ERR_NO_ERROR)
      throw FileError(named, UserText(phrase("Message", "cannot read: %1"), sf_strerror(handle)));
    std::vector<float> stereo;
    for (std::size_t i = 0; i < static_cast<std::size_t>(frames); ++i)
      addFrame(std::span(piece).subspan(i * channels, channels), stereo);
    return stereo;
  }

  std::filesystem::path named;
  Descriptor in;
  SF_INFO info{};
  SNDFILE* handle = nullptr;
  std::vector<float> piece;
};

struct WaveFileReader::Resampler {
  explicit Resampler(int rate) {
    AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
    swr_alloc_set_opts2(&context, &stereo, AV_SAMPLE_FMT_FLT, kRate, &stereo, AV_SAMPLE_FMT_FLT,
                        rate, 0, nullptr);
    if (!context || swr_init(context) < 0) throw std::bad_alloc();
  }
  Resampler(const Resampler&) = delete;
  Resampler& operator=(const Resampler&) = delete;
  ~Resampler() { swr_free(&context); }

  /// The samples at the other rate; without samples, what was held back of earlier ones.
  std::vector<float> convert(std::span<const float> samples) {
    const auto count = static_cast<int>(samples.size()) / kChannels;
    const int room = std::max(0, swr_get_out_samples(context, count));
    std::vector<float> converted(static_cast<std::size_t>(room) * kChannels);
    const auto* in = reinterpret_cast<const std::uint8_t*>(samples.data());
    auto* out = reinterpret_cast<std::uint8_t*>(converted.data());
    const int done = swr_convert(context, &out, room, samples.empty() ? nullptr : &in, count);
    converted.resize(static_cast<std::size_t>(std::max(0, done)) * kChannels);
    return converted;
  }

  SwrContext* context = nullptr;
};

WaveFileReader::WaveFileReader(const std::filesystem::path& file)
    : m_decoder(std::make_unique<Decoder>(file)) {
  const int rate = m_decoder->info.samplerate;
  if (rate < kLowestRate || rate > kHighestRate)
    throw FileError(
        file,
        UserText(phrase("Message",
                        "cannot read: no sound has %1 samples a second; record or convert it anew"),
                 rate));
  if (rate != kRate) m_resampler = std::make_unique<Resampler>(rate);
}

WaveFileReader::~WaveFileReader() = default;

std::size_t WaveFileReader::read(std::span<std::int16_t> samples) {
  std::size_t filled = 0;
  while (filled < samples.size() && (m_next < m_pending.size() || readMore())) {
    const auto count = std::min(samples.size() - filled, m_pending.size() - m_next);
    std::ranges::transform(std::span(m_pending).subspan(m_next, count),
                           samples.subspan(filled).begin(), asInteger);
    m_next += count;
    filled += count;
  }
  return filled;
}

/// Also true when nothing came of it, as long as more may follow.
bool WaveFileReader::readMore() {
  if (m_atEnd) return false;
  m_next = 0;
  m_pending = m_decoder->next();
  m_atEnd = m_pending.empty();
  if (m_resampler) m_pending = m_resampler->convert(m_pending);
  return true;
}

}  // namespace korvel::platform
