// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/Recording.h"

namespace korvel::precise {

void Recording::add(std::span<const float> samples) {
  m_full.append(samples);
  for (HalfRate& halver : m_halvers) samples = halver.add(samples);
  m_low.append(samples);
}

void Recording::finish() {
  // What one gives at its end still goes through those after it.
  for (std::size_t i = 0; i < m_halvers.size(); ++i) {
    auto samples = m_halvers[i].finish();
    for (std::size_t j = i + 1; j < m_halvers.size(); ++j) samples = m_halvers[j].add(samples);
    m_low.append(samples);
  }
}

void Recording::release(std::ptrdiff_t end) {
  m_full.release(end);
  m_low.release(end / kLowRateStep);
}

}  // namespace korvel::precise
