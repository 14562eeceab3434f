// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MediaDecoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

#include "platform/media/MediaError.h"
#include "platform/media/MediaFormats.h"

namespace korvel::platform {
namespace {

/// A demuxer may ask to be called again without having read a packet; not for ever.
constexpr int triesPerPacket = 10000;

template <class Owner>
Owner owned(typename Owner::pointer object) {
  if (!object) throw std::bad_alloc();
  return Owner(object);
}

}  // namespace

void MediaDecoder::FreePacket::operator()(AVPacket* packet) const { av_packet_free(&packet); }
void MediaDecoder::FreeFrame::operator()(AVFrame* frame) const { av_frame_free(&frame); }
void MediaDecoder::FreeDecoder::operator()(AVCodecContext* decoder) const {
  avcodec_free_context(&decoder);
}

MediaDecoder::MediaDecoder(const MediaAsset& asset, const MediaTrack& track)
    : m_file(asset.file()),
      m_packet(owned<decltype(m_packet)>(av_packet_alloc())),
      m_frame(owned<decltype(m_frame)>(av_frame_alloc())) {
  AVFormatContext& context = *m_file.context();
  if (track.index < 0 || track.index >= static_cast<int>(context.nb_streams))
    throw MediaError(asset.file(), phrase("Message", "the file has no such track"));
  m_stream = context.streams[track.index];
  const AVCodec* codec = media::decoderOf(m_stream->codecpar->codec_id);
  if (!codec)
    throw MediaError(asset.file(), phrase("Message", "the track is no sound that can be decoded"));
  m_decoder = owned<decltype(m_decoder)>(avcodec_alloc_context3(codec));
  for (unsigned i = 0; i < context.nb_streams; ++i)
    if (context.streams[i] != m_stream) context.streams[i]->discard = AVDISCARD_ALL;
}

bool MediaDecoder::start() {
  if (avcodec_parameters_to_context(m_decoder.get(), m_stream->codecpar) < 0) return false;
  // Padding at the end is told in units of the track's clock.
  m_decoder->pkt_timebase = m_stream->time_base;
  m_started = avcodec_open2(m_decoder.get(), nullptr, nullptr) >= 0;
  return m_started;
}

// A packet that the decoder rejects is passed over.
const AVFrame* MediaDecoder::next() {
  while (m_started) {
    const int result = avcodec_receive_frame(m_decoder.get(), m_frame.get());
    if (result >= 0) {
      noteBeginning();
      return m_frame.get();
    }
    if (result == AVERROR_EOF || m_draining) return nullptr;
    feed();
  }
  return nullptr;
}

/// What the file leaves out at the beginning lies before its first frame.
void MediaDecoder::noteBeginning() {
  if (std::exchange(m_hasFirst, true) || m_frame->best_effort_timestamp == AV_NOPTS_VALUE) return;
  m_beginning = m_frame->best_effort_timestamp;
}

bool MediaDecoder::seek(double seconds) {
  if (!m_beginning) return false;
  const auto place = *m_beginning + std::llround(seconds / av_q2d(m_stream->time_base));
  if (av_seek_frame(m_file.context(), m_stream->index, place, AVSEEK_FLAG_BACKWARD) < 0)
    return false;
  avcodec_flush_buffers(m_decoder.get());
  av_packet_unref(m_packet.get());
  m_packetWaits = false;
  m_draining = false;
  return true;
}

std::optional<double> MediaDecoder::secondsOfFrame() const {
  const std::int64_t place = m_frame->best_effort_timestamp;
  if (!m_beginning || place == AV_NOPTS_VALUE) return {};
  return static_cast<double>(place - *m_beginning) * av_q2d(m_stream->time_base);
}

void MediaDecoder::feed() {
  if (!m_packetWaits) m_packetWaits = readPacket();
  m_draining = !m_packetWaits;
  const int result = avcodec_send_packet(m_decoder.get(), m_draining ? nullptr : m_packet.get());
  if (result == AVERROR(EAGAIN)) return;
  av_packet_unref(m_packet.get());
  m_packetWaits = false;
}

bool MediaDecoder::readPacket() {
  for (int tries = 0; tries < triesPerPacket;) {
    const int result = av_read_frame(m_file.context(), m_packet.get());
    if (result >= 0 && m_packet->stream_index == m_stream->index) return true;
    if (result >= 0) av_packet_unref(m_packet.get());
    if (result == AVERROR(EAGAIN)) ++tries;
    if (result < 0 && result != AVERROR(EAGAIN)) return false;
  }
  return false;
}

double MediaDecoder::progress() const {
  AVIOContext* input = m_file.context()->pb;
  const auto size = static_cast<double>(avio_size(input));
  return size > 0 ? std::clamp(static_cast<double>(avio_tell(input)) / size, 0.0, 1.0) : 0;
}

bool MediaDecoder::hasFailed() const {
  const int error = m_file.context()->pb->error;
  return error < 0 && error != AVERROR_EOF;
}

}  // namespace korvel::platform
