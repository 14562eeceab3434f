// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/Deck.h"

#include <cmath>
#include <utility>

namespace korvel::platform {
namespace {

constexpr double kCentsOfOctave = 1200;
/// How much waits to be heard, in frames, and how often it is looked whether more is needed.
constexpr std::int64_t kFramesAhead = 8192;
constexpr std::chrono::milliseconds kPause{4};

}  // namespace

Deck::Deck(std::shared_ptr<const DecodedSound> sound, const DeckPlan& plan)
    : m_sound(std::move(sound)),
      m_ring(std::make_unique<DeckRing>()),
      m_tape(m_sound.get(), plan),
      m_thread([this](const std::stop_token& stopping) { work(stopping); }) {}

Deck::~Deck() = default;

void Deck::setRate(double rate) {
  const std::lock_guard guard(m_lock);
  m_orders.rate = rate;
  m_orders.changed = true;
}

void Deck::setPitch(double cents) {
  const std::lock_guard guard(m_lock);
  m_orders.pitch = std::exp2(cents / kCentsOfOctave);
  m_orders.changed = true;
}

void Deck::seek(double beat, std::uint32_t number) {
  {
    const std::lock_guard guard(m_lock);
    m_orders.beat = beat;
    m_orders.seek = number;
    m_orders.seeks = true;
  }
  m_ordered.notify_one();
}

bool Deck::isAhead() const {
  const std::lock_guard guard(m_lock);
  return !m_orders.seeks && m_seekAhead == m_orders.seek && m_ring->framesAhead() >= kFramesAhead;
}

bool Deck::awaitAhead(std::chrono::milliseconds atMost) const {
  const auto end = std::chrono::steady_clock::now() + atMost;
  while (!isAhead()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

void Deck::work(const std::stop_token& stopping) {
  bool begun = false, fresh = false;
  while (!stopping.stop_requested()) {
    fresh = takeOrders() || fresh;
    begun = begun || fresh;
    const bool wanted = begun && (fresh || m_ring->framesAhead() < kFramesAhead);
    DeckBlock* room = wanted ? m_ring->room() : nullptr;
    if (room && m_tape.next(*room)) {
      m_ring->push(std::exchange(fresh, false));
      m_seekAhead = room->seek;  // once what came before it does not count any more
      continue;
    }
    std::unique_lock guard(m_lock);
    m_ordered.wait_for(guard, stopping, kPause, [this] { return m_orders.seeks; });
  }
}

/// Whether the place is another one.
bool Deck::takeOrders() {
  Orders taken;
  {
    const std::lock_guard guard(m_lock);
    taken = m_orders;
    m_orders.seeks = m_orders.changed = false;
  }
  if (taken.changed) {
    m_tape.setRate(taken.rate);
    m_tape.setPitch(taken.pitch);
  }
  if (taken.seeks) m_tape.seek(taken.beat, taken.seek);
  return taken.seeks;
}

}  // namespace korvel::platform
