// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MediaReader.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswresample/swresample.h>
}

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <vector>

#include "platform/MediaError.h"
#include "platform/MediaFile.h"

namespace korvel::platform {
namespace {

static_assert(std::endian::native == std::endian::little, "samples are handed out as decoded");

/// Small frames are gathered up to this, so that a caller's cost per chunk does not count.
constexpr std::size_t chunkBytes = 65536;

/// A demuxer may ask to be called again without having read a packet; not for ever.
constexpr int triesPerPacket = 10000;

struct FreePacket {
  void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct FreeFrame {
  void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
struct FreeDecoder {
  void operator()(AVCodecContext* decoder) const { avcodec_free_context(&decoder); }
};
struct FreeConverter {
  void operator()(SwrContext* converter) const { swr_free(&converter); }
};

template <class Owner>
Owner owned(typename Owner::pointer object) {
  if (!object) throw std::bad_alloc();
  return Owner(object);
}

/// Bytes of one chunk, in storage that is kept from chunk to chunk.
class Chunk {
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
  void append(const AVFrame& frame, Chunk& chunk) {
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

  static void copy(const AVFrame& frame, Chunk& chunk) {
    const std::size_t bytes = samplesOf(frame) * sizeof(std::int16_t);
    std::memcpy(chunk.room(bytes), frame.extended_data[0], bytes);
    chunk.add(bytes);
  }

  void convert(const AVFrame& frame, Chunk& chunk) {
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
    constexpr int rate = 44100;
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
  Decoding(const std::filesystem::path& file, int track)
      : m_file(file),
        m_packet(owned<decltype(m_packet)>(av_packet_alloc())),
        m_frame(owned<decltype(m_frame)>(av_frame_alloc())) {
    AVFormatContext& context = *m_file.context();
    if (track < 0 || track >= static_cast<int>(context.nb_streams))
      throw MediaError(file, "the file has no such track");
    m_stream = context.streams[track];
    const AVCodec* codec = avcodec_find_decoder(m_stream->codecpar->codec_id);
    if (!codec || codec->type != AVMEDIA_TYPE_AUDIO)
      throw MediaError(file, "the track is no sound that can be decoded");
    m_decoder = owned<decltype(m_decoder)>(avcodec_alloc_context3(codec));
    for (unsigned i = 0; i < context.nb_streams; ++i)
      if (context.streams[i] != m_stream) context.streams[i]->discard = AVDISCARD_ALL;
  }

  bool start() {
    if (avcodec_parameters_to_context(m_decoder.get(), m_stream->codecpar) < 0) return false;
    // Padding at the end is told in units of the track's clock.
    m_decoder->pkt_timebase = m_stream->time_base;
    m_reading = avcodec_open2(m_decoder.get(), nullptr, nullptr) >= 0;
    return m_reading;
  }

  std::span<const std::byte> next() {
    m_chunk.clear();
    while (m_reading && m_chunk.size() < chunkBytes && nextFrame())
      m_converter.append(*m_frame, m_chunk);
    if (m_chunk.size() == 0) m_reading = false;
    return m_chunk.bytes();
  }

  bool isReading() const { return m_reading; }
  void cancel() { m_reading = false; }

 private:
  /// False at the end. A packet that the decoder rejects is passed over.
  bool nextFrame() {
    while (true) {
      const int result = avcodec_receive_frame(m_decoder.get(), m_frame.get());
      if (result >= 0) return true;
      if (result == AVERROR_EOF || m_draining) return false;
      feed();
    }
  }

  void feed() {
    if (!m_packetWaits) m_packetWaits = readPacket();
    m_draining = !m_packetWaits;
    const int result = avcodec_send_packet(m_decoder.get(), m_draining ? nullptr : m_packet.get());
    if (result == AVERROR(EAGAIN)) return;
    av_packet_unref(m_packet.get());
    m_packetWaits = false;
  }

  bool readPacket() {
    for (int tries = 0; tries < triesPerPacket;) {
      const int result = av_read_frame(m_file.context(), m_packet.get());
      if (result >= 0 && m_packet->stream_index == m_stream->index) return true;
      if (result >= 0) av_packet_unref(m_packet.get());
      if (result == AVERROR(EAGAIN)) ++tries;
      if (result < 0 && result != AVERROR(EAGAIN)) return false;
    }
    return false;
  }

  MediaFile m_file;
  AVStream* m_stream = nullptr;
  std::unique_ptr<AVCodecContext, FreeDecoder> m_decoder;
  std::unique_ptr<AVPacket, FreePacket> m_packet;
  std::unique_ptr<AVFrame, FreeFrame> m_frame;
  SampleConverter m_converter;
  Chunk m_chunk;
  bool m_reading = false;
  bool m_packetWaits = false;
  bool m_draining = false;
};

MediaReader::MediaReader(const MediaAsset& asset, const MediaTrack& track)
    : m_decoding(std::make_unique<Decoding>(asset.file(), track.index)) {}

MediaReader::MediaReader(MediaReader&&) noexcept = default;
MediaReader& MediaReader::operator=(MediaReader&&) noexcept = default;
MediaReader::~MediaReader() = default;

bool MediaReader::start() { return m_decoding->start(); }
std::span<const std::byte> MediaReader::next() { return m_decoding->next(); }
bool MediaReader::isReading() const { return m_decoding->isReading(); }
void MediaReader::cancel() { m_decoding->cancel(); }

}  // namespace korvel::platform
