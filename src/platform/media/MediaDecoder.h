// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/media/MediaAsset.h"
#include "platform/media/MediaFile.h"

struct AVCodecContext;
struct AVFrame;
struct AVPacket;
struct AVStream;

namespace korvel::platform {

/// One track of a media file, decoded from its start to its end. Part of MediaReader and
/// MonoReader, which say what they make of the frames. Damaged parts are skipped.
class MediaDecoder {
 public:
  /// Opens the file anew. Throws MediaError when it has become unreadable or the track is no sound
  /// that can be decoded.
  MediaDecoder(const MediaAsset& asset, const MediaTrack& track);

  /// False when the decoder refuses the track. To be called once.
  bool start();
  /// The next frame of samples, valid until the next call; none at the end, and before start.
  const AVFrame* next();
  /// Goes on shortly before that time, from the first frame's beginning on; false where the file
  /// does not let it, and then it is at no certain place. To be called after a first `next`.
  bool seek(double seconds);
  /// When the latest frame begins, likewise; none when the file does not tell.
  std::optional<double> secondsOfFrame() const;
  /// How much of the file has been read, 0..1.
  double progress() const;
  /// Whether the disk refused to be read, as when it is unplugged; what came before is decoded.
  bool hasFailed() const;

 private:
  struct FreePacket {
    void operator()(AVPacket* packet) const;
  };
  struct FreeFrame {
    void operator()(AVFrame* frame) const;
  };
  struct FreeDecoder {
    void operator()(AVCodecContext* decoder) const;
  };

  void feed();
  bool readPacket();
  void noteBeginning();

  MediaFile m_file;
  AVStream* m_stream = nullptr;
  std::unique_ptr<AVCodecContext, FreeDecoder> m_decoder;
  std::unique_ptr<AVPacket, FreePacket> m_packet;
  std::unique_ptr<AVFrame, FreeFrame> m_frame;
  std::optional<std::int64_t> m_beginning;  ///< Of the first frame, on the track's clock.
  bool m_started = false;
  bool m_hasFirst = false;
  bool m_packetWaits = false;
  bool m_draining = false;
};

}  // namespace korvel::platform
