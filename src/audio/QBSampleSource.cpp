// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/QBSampleSource.h"

namespace korvel {

void QBSampleSource::pushBuffer(const platform::AudioTimeStamp& time,
                                const platform::QueueBuffer& buffer) {
  if (buffer.dataByteSize != QBBlock::kBytes || buffer.data.size() < QBBlock::kBytes) return;
  if (QBSampleBlock* block = m_blocks.room()) {
    block->m_time = static_cast<std::int64_t>(time.sampleTime);
    block->fill(buffer);
    m_blocks.push();
  } else {
    m_nmbOfDroppedBlocks.fetch_add(1, std::memory_order_relaxed);
  }
}

std::unique_ptr<QBSampleBlock> QBSampleSource::readBuffer() {
  const std::unique_lock lock(m_lock, std::try_to_lock);
  return lock ? m_blocks.pop() : nullptr;
}

}  // namespace korvel
