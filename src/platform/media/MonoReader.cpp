// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MonoReader.h"

#include <vector>

#include "platform/media/MediaDecoder.h"
#include "platform/media/MediaError.h"
#include "platform/media/MonoMixer.h"

namespace korvel::platform {
namespace {

/// Small frames are gathered up to this, so that a caller's cost per chunk does not count.
constexpr std::size_t kChunk = 16384;

}  // namespace

class MonoReader::Decoding {
 public:
  Decoding(const MediaAsset& asset, const MediaTrack& track) : m_decoder(asset, track) {
    if (track.channels > MonoMixer::kMostChannels)
      throw MediaError(asset.file(),
                       phrase("Message", "the track has more channels than can be mixed"));
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
  MonoMixer m_mixer;
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
