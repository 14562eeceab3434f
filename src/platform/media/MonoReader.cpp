// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MonoReader.h"

#include <cmath>
#include <utility>
#include <vector>

#include "platform/media/MediaDecoder.h"
#include "platform/media/MonoMixer.h"

namespace korvel::platform {
namespace {

/// Small frames are gathered up to this, so that a caller's cost per chunk does not count.
constexpr std::size_t kChunk = 16384;

/// Coders need what lies before a place to be in step there.
constexpr double kSecondsBefore = 0.3;
constexpr double kFirstSought = 1;

}  // namespace

class MonoReader::Decoding {
 public:
  Decoding(const MediaAsset& asset, const MediaTrack& track) : m_decoder(asset, track) {
    MonoMixer::requireMixable(asset, track);
  }

  bool start() { return m_reading = m_decoder.start(); }

  std::span<const float> next() {
    if (!std::exchange(m_hasFirst, false)) m_samples.clear();
    while (m_reading && m_samples.size() < kChunk) readFrame();
    return m_samples;
  }

  std::optional<std::int64_t> seek(std::int64_t sample) {
    m_mixer = MonoMixer();
    m_samples.clear();
    if (!m_hasRead) readFrame();
    const double wanted = static_cast<double>(sample) / kRate;
    m_reading = wanted >= kFirstSought && m_decoder.seek(wanted - kSecondsBefore);
    m_samples.clear();
    m_mixer = MonoMixer();
    if (m_reading) readFrame();
    const auto begin = m_decoder.secondsOfFrame();
    m_reading = m_reading && begin.has_value() && *begin <= wanted;
    m_hasFirst = m_reading;
    return m_reading ? std::optional(std::llround(*begin * kRate)) : std::nullopt;
  }

  bool isReading() const { return m_reading; }
  double progress() const { return m_decoder.progress(); }
  void cancel() { m_reading = false; }

 private:
  void readFrame() {
    const AVFrame* frame = m_decoder.next();
    m_hasRead = true;
    if (frame) {
      m_mixer.append(*frame, m_samples);
    } else {
      m_mixer.finish(m_samples);
      m_reading = false;
    }
  }

  MediaDecoder m_decoder;
  MonoMixer m_mixer;
  std::vector<float> m_samples;
  bool m_reading = false;
  bool m_hasRead = false;
  bool m_hasFirst = false;  ///< The samples are those behind the place gone to.
};

MonoReader::MonoReader(const MediaAsset& asset, const MediaTrack& track)
    : m_decoding(std::make_unique<Decoding>(asset, track)) {}

MonoReader::MonoReader(MonoReader&&) noexcept = default;
MonoReader& MonoReader::operator=(MonoReader&&) noexcept = default;
MonoReader::~MonoReader() = default;

bool MonoReader::start() { return m_decoding->start(); }
std::span<const float> MonoReader::next() { return m_decoding->next(); }
std::optional<std::int64_t> MonoReader::seek(std::int64_t sample) {
  return m_decoding->seek(sample);
}
bool MonoReader::isReading() const { return m_decoding->isReading(); }
double MonoReader::progress() const { return m_decoding->progress(); }
void MonoReader::cancel() { m_decoding->cancel(); }

}  // namespace korvel::platform
