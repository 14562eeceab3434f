// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>

#include "platform/deck/DeckRing.h"
#include "platform/deck/DeckTape.h"

namespace korvel::platform {

/// A recording that is played beside a sequence: a thread of its own keeps what is heard next in a
/// ring, a fifth of a second of it, so that a slow disk or a busy machine is not heard. It has the
/// rate and the place of the playing, which the sequence follows. It begins at the first seek. Main
/// thread, but for the ring.
class Deck {
 public:
  /// Without a sound it plays silence, in rounds as well.
  Deck(std::shared_ptr<const DecodedSound> sound, const DeckPlan& plan);
  Deck(const Deck&) = delete;
  Deck& operator=(const Deck&) = delete;
  ~Deck();

  /// 1 is the speed of the recording. Heard once what waits has been.
  void setRate(double rate);
  /// So many cents higher, likewise.
  void setPitch(double cents);
  /// Heard as soon as there is something of it. number: what its blocks are marked with.
  void seek(double beat, std::uint32_t number);
  /// Waits until what is heard next is there; false when that takes longer.
  bool awaitAhead(std::chrono::milliseconds atMost) const;

  /// The audio thread takes from it.
  DeckRing& ring() { return *m_ring; }

 private:
  struct Orders {
    double rate = 1;
    double pitch = 1;
    double beat = 0;
    std::uint32_t seek = 0;
    bool seeks = false;
    bool changed = true;
  };

  void work(const std::stop_token& stopping);
  bool takeOrders();
  bool isAhead() const;

  const std::shared_ptr<const DecodedSound> m_sound;
  std::unique_ptr<DeckRing> m_ring;
  DeckTape m_tape;
  mutable std::mutex m_lock;  ///< Guards the orders.
  std::condition_variable_any m_ordered;
  Orders m_orders;
  std::atomic<std::uint32_t> m_seekAhead = 0;  ///< Of what was put into the ring last.
  std::jthread m_thread;                       ///< Last, so that it ends first.
};

}  // namespace korvel::platform
