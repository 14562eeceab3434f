// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/Recording.h"

namespace korvel::precise {

void Recording::add(std::span<const float> samples) {
  m_full.append(samples);
  for (const float sample : samples) m_energy += static_cast<double>(sample) * sample;
  m_low.append(m_quarterer.add(m_halver.add(samples)));
}

void Recording::finish() {
  m_low.append(m_quarterer.add(m_halver.finish()));
  m_low.append(m_quarterer.finish());
}

double Recording::power() const {
  return m_full.size() == 0 ? 0 : m_energy / static_cast<double>(m_full.size());
}

void Recording::release(std::ptrdiff_t end) {
  m_full.release(end);
  m_low.release(end / kLowRateStep);
}

}  // namespace korvel::precise
