// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MediaReader.h"

extern "C" {
#include <libavutil/frame.h>
#include <libswresample/swresample.h>
}

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

#include "platform/media/MediaDecoder.h"
#include "platform/sound/SampleRate.h"

namespace korvel::platform {
namespace {

static_assert(std::endian::native == std::endian::little, "samples are handed out as decoded");

/// Small frames are gathered up to this, so that a caller's cost per chunk does not count.
constexpr std::size_t chunkBytes = 65536;

struct FreeConverter {
  void operator()(SwrContext* converter) const { swr_free(&converter); }
};

/// Bytes of one chunk, in storage that is kept from chunk to chunk.
class BytesOfChunk {
 public:
  void clear() { m_used = 0; }
  std::uint8_t* room(std::size_t bytes) {
    if (m_used + bytes > m_storage.size()) m_storage.resize(m_used + std::max(bytes, chunkBytes));
    return m_storage.data() + m_used;
  }
  void add(std::size_t bytes) { m_used += bytes; }
  std::size_t size() const { return m_used; }
  std::span<const std::byte> bytes() const {
    return std::as_bytes(std::span(m_storage.data(), m_used));
  }

 private:
  std::vector<std::uint8_t> m_storage;
  std::size_t m_used = 0;
};

/// Turns decoded frames of any sample format into interleaved 16-bit samples.
class SampleConverter {
 public:
  void append(const AVFrame& frame, BytesOfChunk& chunk) {
    if (frame.nb_samples <= 0 || frame.ch_layout.nb_channels <= 0) return;
    if (frame.format == AV_SAMPLE_FMT_S16)
      copy(frame, chunk);
    else
      convert(frame, chunk);
  }

 private:
  static std::size_t samplesOf(const AVFrame& frame) {
    return static_cast<std::size_t>(frame.nb_samples) *
           static_cast<std::size_t>(frame.ch_layout.nb_channels);
  }

  static void copy(const AVFrame& frame, BytesOfChunk& chunk) {
    const std::size_t bytes = samplesOf(frame) * sizeof(std::int16_t);
    std::memcpy(chunk.room(bytes), frame.extended_data[0], bytes);
    chunk.add(bytes);
  }

  void convert(const AVFrame& frame, BytesOfChunk& chunk) {
    // Interleaved samples convert as one long channel: there may be more channels than the
    // converter takes, and it is to know nothing of their meaning.
    const auto format = static_cast<AVSampleFormat>(frame.format);
    const int lanes = av_sample_fmt_is_planar(format) ? frame.ch_layout.nb_channels : 1;
    if (!prepare(format, lanes)) return;
    const int count = static_cast<int>(samplesOf(frame) / static_cast<std::size_t>(lanes));
    std::uint8_t* out = chunk.room(samplesOf(frame) * sizeof(std::int16_t));
    const auto** in = const_cast<const std::uint8_t**>(frame.extended_data);
    const int done = swr_convert(m_converter.get(), &out, count, in, count);
    if (done > 0)
      chunk.add(static_cast<std::size_t>(done) * static_cast<std::size_t>(lanes) *
                sizeof(std::int16_t));
  }

  /// Makes a new converter when the frames have changed.
  bool prepare(AVSampleFormat format, int lanes) {
    if (m_converter && format == m_format && lanes == m_lanes) return true;
    AVChannelLayout layout{};
    layout.order = AV_CHANNEL_ORDER_UNSPEC;
    layout.nb_channels = lanes;
    // The rate only has to be the same on both sides.
    constexpr int rate = kSampleRate;
    SwrContext* made = nullptr;
    swr_alloc_set_opts2(&made, &layout, AV_SAMPLE_FMT_S16, rate, &layout, format, rate, 0, nullptr);
    m_converter.reset(made);
    m_format = format;
    m_lanes = lanes;
    if (made && swr_init(made) >= 0) return true;
    m_converter.reset();
    return false;
  }

  std::unique_ptr<SwrContext, FreeConverter> m_converter;
  AVSampleFormat m_format = AV_SAMPLE_FMT_NONE;
  int m_lanes = 0;
};

}  // namespace

class MediaReader::Decoding {
 public:
  Decoding(const MediaAsset& asset, const MediaTrack& track) : m_decoder(asset, track) {}

  bool start() { return m_reading = m_decoder.start(); }

  std::span<const std::byte> next() {
    m_chunk.clear();
    while (m_reading && m_chunk.size() < chunkBytes) {
      const AVFrame* frame = m_decoder.next();
      if (!frame) break;
      m_converter.append(*frame, m_chunk);
    }
    if (m_chunk.size() == 0) m_reading = false;
    return m_chunk.bytes();
  }

  bool isReading() const { return m_reading; }
  double progress() const { return m_decoder.progress(); }
  void cancel() { m_reading = false; }

 private:
  MediaDecoder m_decoder;
  SampleConverter m_converter;
  BytesOfChunk m_chunk;
  bool m_reading = false;
};

MediaReader::MediaReader(const MediaAsset& asset, const MediaTrack& track)
    : m_decoding(std::make_unique<Decoding>(asset, track)) {}

MediaReader::MediaReader(MediaReader&&) noexcept = default;
MediaReader& MediaReader::operator=(MediaReader&&) noexcept = default;
MediaReader::~MediaReader() = default;

bool MediaReader::start() { return m_decoding->start(); }
std::span<const std::byte> MediaReader::next() { return m_decoding->next(); }
bool MediaReader::isReading() const { return m_decoding->isReading(); }
double MediaReader::progress() const { return m_decoding->progress(); }
void MediaReader::cancel() { m_decoding->cancel(); }

}  // namespace korvel::platform
