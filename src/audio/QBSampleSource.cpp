// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/QBSampleSource.h"

namespace korvel {

QBSampleSource::QBSampleSource() : m_replacement(std::make_unique<QBSampleBlock>()) {
  m_filling.push_back(std::make_unique<QBSampleBlock>());
  while (m_spare.size() < kSpareBlocks) m_spare.push_back(std::make_unique<QBSampleBlock>());
}

void QBSampleSource::pushBuffer(const platform::AudioTimeStamp& time,
                                const platform::QueueBuffer& buffer) {
  if (buffer.dataByteSize != QBBlock::kBytes || buffer.data.size() < QBBlock::kBytes) return;
  bool queued = findBlockToFill();
  if (queued) {
    m_filling.front()->m_time = static_cast<std::int64_t>(time.sampleTime);
    m_filling.front()->fill(buffer);
    queued = queueFilled();
  }
  if (!queued) m_nmbOfDroppedBlocks.fetch_add(1, std::memory_order_relaxed);
}

bool QBSampleSource::findBlockToFill() {
  if (!m_filling.empty()) return true;
  if (!m_isLimited) {
    m_filling.push_back(std::make_unique<QBSampleBlock>());
    return true;
  }
  const std::unique_lock lock(m_lock, std::try_to_lock);
  if (!lock || m_spare.empty()) return false;
  m_filling.splice(m_filling.end(), m_spare, m_spare.begin());
  return true;
}

bool QBSampleSource::queueFilled() {
  const std::unique_lock lock(m_lock, std::try_to_lock);
  if (!lock) return false;
  m_blocks.splice(m_blocks.end(), m_filling);
  if (!m_spare.empty()) m_filling.splice(m_filling.end(), m_spare, m_spare.begin());
  return true;
}

void QBSampleSource::limitPending(int blocks) {
  m_isLimited = true;
  if (m_filling.empty()) m_filling.push_back(std::make_unique<QBSampleBlock>());
  const auto more = static_cast<std::size_t>(blocks - 1);
  while (m_spare.size() + m_blocks.size() < more)
    m_spare.push_back(std::make_unique<QBSampleBlock>());
}

std::unique_ptr<QBSampleBlock> QBSampleSource::readBuffer() {
  if (!m_replacement) m_replacement = std::make_unique<QBSampleBlock>();
  const std::unique_lock lock(m_lock, std::try_to_lock);
  if (!lock || m_blocks.empty()) return nullptr;
  std::swap(m_blocks.front(), m_replacement);
  m_spare.splice(m_spare.end(), m_blocks, m_blocks.begin());
  return std::move(m_replacement);
}

}  // namespace korvel
