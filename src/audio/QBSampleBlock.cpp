// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/QBSampleBlock.h"

#include <algorithm>

namespace korvel {

void QBSampleBlock::fill(const platform::QueueBuffer& buffer) {
  const auto sound = buffer.sound();
  std::ranges::copy(sound.first(std::min(sound.size(), m_buffer.size())), m_buffer.begin());
}

std::vector<std::int16_t> QBSampleBlock::toSamples() const {
  std::vector<std::int16_t> values;
  values.reserve(QBBlock::kSamples);
  for (std::size_t i = 0; i < m_buffer.size(); i += 2)
    values.push_back(bytesToShort(m_buffer[i], m_buffer[i + 1]));
  return values;
}

}  // namespace korvel
