// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/deck/Deck.h"
#include "platform/deck/DeckOutput.h"
#include "platform/midi/MusicSequence.h"
#include "platform/midi/PlayTimeline.h"
#include "platform/midi/SequenceRenderer.h"
#include "platform/midi/Synthesizer.h"
#include "platform/sound/AudioSystem.h"

namespace korvel::platform {

/// Plays a sequence through a synthesiser on a device. A beat is a second at rate 1. It goes on
/// after the last event until it is stopped. Main thread; what is changed while it plays reaches
/// the audio thread without locks, and sounds some 50 milliseconds later than what the device has
/// taken by then.
class MusicPlayer {
 public:
  /// device: as in AudioSystem. The system must outlive this.
  MusicPlayer(AudioSystem& system, std::string device, std::unique_ptr<Synthesizer> synthesizer);
  MusicPlayer(const MusicPlayer&) = delete;
  MusicPlayer& operator=(const MusicPlayer&) = delete;
  /// Stops.
  ~MusicPlayer();

  /// Before it plays. The sequence must outlive the playing; it may change meanwhile.
  void setSequence(MusicSequence& sequence);
  /// Before it plays. What is played turns back at its end, in time.
  void setLoop(const SequenceRenderer::Loop& loop);
  /// Before it plays: a recording that is heard beside the sequence. What is played again then is
  /// what the deck turns back in, not a loop that is set here.
  void setDeck(std::unique_ptr<Deck> deck);
  /// Before it plays: how far the guitar's A lies above 440 Hz, in cents.
  void tune(double cents) { m_synthesizer->tune(cents); }
  bool hasDeck() const { return m_deck != nullptr; }
  Deck* deck() { return m_deck.get(); }
  /// How loud the deck's recording and the guitar are; without effect where there is none.
  void setLevels(const DeckLevels& levels);
  /// Of the deck's recording, in cents; likewise.
  void setPitch(double cents);

  /// Opens the device and renders what is heard first, so that start takes no time. Throws
  /// AudioError.
  void preroll();
  /// Plays from `time` on. Throws AudioError.
  void start();
  /// Stops at once; `time` stays as it is.
  void stop();
  /// False also when the device was lost.
  bool isPlaying() const;
  /// Whether the device has failed, which may show only while the player stops. Stays true until
  /// the next start.
  bool isLost() const;

  /// The place that can be heard now, in beats, or the one that was set and cannot be heard yet.
  double time() const;
  void setTime(double beats);
  void setPlayRateScalar(double rate);
  /// 0 is silent, 1 is as it comes.
  void setVolume(float volume);

 private:
  void publishEvents();
  void play(QueueBuffer& buffer);
  void playSequence(std::span<std::int16_t> samples);
  void takeOrders();
  double inLoop(double beat) const;

  AudioSystem& m_system;
  std::string m_device;
  std::unique_ptr<Synthesizer> m_synthesizer;
  SequenceRenderer m_renderer{*m_synthesizer};
  MusicSequence* m_sequence = nullptr;
  std::optional<SequenceRenderer::Loop> m_loop;
  std::unique_ptr<Deck> m_deck;
  std::unique_ptr<DeckOutput> m_deckOutput;
  double m_time = 0;  ///< Where it stands, or last was told to go.
  float m_volume = 1;
  bool m_lost = false;

  // What the main thread tells the audio thread; only the latest value counts.
  std::atomic<const MusicEvents*> m_newEvents = nullptr;
  std::atomic<double> m_rate = 1;
  std::atomic<double> m_seekTo = 0;
  std::atomic<std::uint32_t> m_seeks = 0;
  /// The audio thread uses one of these, so they stay while it runs.
  std::vector<std::unique_ptr<const MusicEvents>> m_published;

  // These belong to the audio thread.
  std::uint32_t m_seeksDone = 0;
  std::uint64_t m_frames = 0;  ///< Frames that were rendered since the start.

  PlayTimeline m_timeline;
  /// Last, so that the callbacks end before what they use does.
  std::unique_ptr<AudioQueue> m_queue;
};

}  // namespace korvel::platform
