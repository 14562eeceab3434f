// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/MusicPlayer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <span>
#include <utility>

namespace korvel::platform {
namespace {

// 46 milliseconds in all: short enough for changes to be heard at once, long enough to be late
// once.
constexpr int kBuffers = 4;
constexpr std::uint32_t kBufferFrames = 512;
/// How long the start waits for the recording; what is not there by then comes a little later.
constexpr std::chrono::milliseconds kMostPatience{700};

std::span<std::int16_t> samplesOf(QueueBuffer& buffer) {
  return {reinterpret_cast<std::int16_t*>(buffer.data.data()),
          buffer.data.size() / sizeof(std::int16_t)};
}

}  // namespace

MusicPlayer::MusicPlayer(AudioSystem& system, std::string device,
                         std::unique_ptr<Synthesizer> synthesizer)
    : m_system(system), m_device(std::move(device)), m_synthesizer(std::move(synthesizer)) {}

MusicPlayer::~MusicPlayer() {
  stop();
  if (m_sequence) m_sequence->onChanged(nullptr);
}

void MusicPlayer::setSequence(MusicSequence& sequence) {
  if (m_sequence) m_sequence->onChanged(nullptr);
  m_sequence = &sequence;
  m_sequence->onChanged([this] {
    if (m_queue) publishEvents();
  });
}

void MusicPlayer::setLoop(const SequenceRenderer::Loop& loop) {
  m_loop = loop;
  m_renderer.setLoop(loop);
}

void MusicPlayer::setDeck(std::unique_ptr<Deck> deck) {
  m_deck = std::move(deck);
  m_deckOutput = std::make_unique<DeckOutput>(m_deck->ring(), m_renderer, *m_synthesizer);
}

void MusicPlayer::setLevels(const DeckLevels& levels) {
  if (m_deckOutput) m_deckOutput->setLevels(levels);
}

void MusicPlayer::setPitch(double cents) {
  if (m_deck) m_deck->setPitch(cents);
}

void MusicPlayer::preroll() {
  if (m_queue) return;
  auto queue = m_system.newOutput(m_device, kLiveSound, [this](QueueBuffer& buffer) {
    play(buffer);
    m_queue->enqueue(buffer);
  });
  queue->setVolume(m_volume);
  m_queue = std::move(queue);
  m_timeline.clear();
  m_lost = false;
  m_frames = 0;
  m_seekTo = m_time;
  ++m_seeks;
  if (m_deck) {
    m_deck->seek(m_time, m_seeks);
    m_deck->awaitAhead(kMostPatience);
  }
  m_published.clear();
  publishEvents();
  for (int i = 0; i < kBuffers; ++i) {
    QueueBuffer& buffer = m_queue->allocateBuffer(kBufferFrames * kLiveSound.bytesPerFrame);
    play(buffer);
    m_queue->enqueue(buffer);
  }
}

void MusicPlayer::start() {
  preroll();
  try {
    m_queue->start();
  } catch (...) {
    stop();
    throw;
  }
}

void MusicPlayer::stop() {
  if (!m_queue) return;
  m_time = time();
  m_queue->stop();
  m_lost = m_queue->isLost();
  m_queue = nullptr;
  m_renderer.seek(m_time);
}

bool MusicPlayer::isPlaying() const { return m_queue && m_queue->isRunning(); }

bool MusicPlayer::isLost() const { return m_queue ? m_queue->isLost() : m_lost; }

double MusicPlayer::time() const {
  if (!m_queue) return m_time;
  const auto place = m_timeline.at(m_queue->currentTime().sampleTime);
  return place && place->seek == m_seeks ? inLoop(place->beat) : m_time;
}

/// The timeline knows the places that buffers begin with, and goes straight on in each.
double MusicPlayer::inLoop(double beat) const {
  if (!m_loop || beat < m_loop->end) return beat;
  return m_loop->begin + std::fmod(beat - m_loop->end, m_loop->end - m_loop->begin);
}

void MusicPlayer::setTime(double beats) {
  m_time = beats;
  m_seekTo = beats;
  ++m_seeks;
  if (m_deck) m_deck->seek(beats, m_seeks);
}

void MusicPlayer::setPlayRateScalar(double rate) {
  m_rate = rate;
  if (m_deck) m_deck->setRate(rate);
}

void MusicPlayer::setVolume(float volume) {
  m_volume = volume;
  if (m_queue) m_queue->setVolume(volume);
}

void MusicPlayer::publishEvents() {
  m_published.push_back(
      std::make_unique<MusicEvents>(m_sequence ? m_sequence->events() : MusicEvents()));
  m_newEvents = m_published.back().get();
}

void MusicPlayer::play(QueueBuffer& buffer) {
  if (const MusicEvents* events = m_newEvents.exchange(nullptr)) m_renderer.use(*events);
  if (m_deckOutput)
    m_deckOutput->render(samplesOf(buffer), m_timeline, m_frames);
  else
    playSequence(samplesOf(buffer));
  buffer.dataByteSize = static_cast<std::uint32_t>(buffer.data.size());
  m_frames += buffer.data.size() / kLiveSound.bytesPerFrame;
}

void MusicPlayer::playSequence(std::span<std::int16_t> samples) {
  takeOrders();
  m_timeline.note(m_frames, {m_renderer.position(), m_seeksDone}, m_renderer.beatsPerFrame());
  m_renderer.render(samples);
}

/// The number of seeks is read first: a place that comes in meanwhile is gone to twice at most.
void MusicPlayer::takeOrders() {
  m_renderer.setRate(m_rate);
  const std::uint32_t seeks = m_seeks;
  if (seeks == m_seeksDone) return;
  m_seeksDone = seeks;
  m_renderer.seek(m_seekTo);
}

}  // namespace korvel::platform
