// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/DeckRing.h"

#include <algorithm>

namespace korvel::platform {

DeckBlock* DeckRing::room() {
  const std::uint64_t end = m_end.load(std::memory_order_relaxed);
  if (end - m_begin.load(std::memory_order_acquire) == kBlocks) return nullptr;
  return &m_blocks[end % kBlocks];
}

void DeckRing::push(bool fresh) {
  const std::uint64_t end = m_end.load(std::memory_order_relaxed);
  if (fresh) m_pushedBeforeFresh = m_pushed.load();
  m_pushed += static_cast<std::int64_t>(block(end).span.frames);
  m_end.store(end + 1, std::memory_order_release);
  if (fresh) m_fresh.store(end, std::memory_order_release);
}

DeckRing::Piece DeckRing::front(std::size_t most) {
  const std::uint64_t begin = m_begin.load(std::memory_order_relaxed);
  if (begin == m_end.load(std::memory_order_acquire)) return {};
  const DeckBlock& first = block(begin);
  Piece piece{first.span, first.seek, {}};
  piece.span.beat += static_cast<double>(m_offset) * first.span.beatsPerFrame;
  piece.span.frames = std::min(most, first.span.frames - m_offset);
  piece.span.turned = first.span.turned && m_offset == 0;
  piece.samples = first.samples().subspan(m_offset * DeckBlock::kChannels,
                                          piece.span.frames * DeckBlock::kChannels);
  return piece;
}

void DeckRing::release(std::size_t frames) {
  const std::uint64_t begin = m_begin.load(std::memory_order_relaxed);
  m_offset += frames;
  m_taken += static_cast<std::int64_t>(frames);
  if (m_offset < block(begin).span.frames) return;
  m_offset = 0;
  m_begin.store(begin + 1, std::memory_order_release);
}

void DeckRing::skipToFresh() {
  const std::uint64_t fresh = m_fresh.load(std::memory_order_acquire);
  while (m_begin.load(std::memory_order_relaxed) < fresh)
    release(block(m_begin).span.frames - m_offset);
}

}  // namespace korvel::platform
