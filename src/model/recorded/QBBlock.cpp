// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/recorded/QBBlock.h"

#include <algorithm>
#include <stdexcept>

#include "model/recorded/QBSample.h"
#include "model/songs/QBChord.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBBlock::describe() {
  return platform::EntityBuilder<QBBlock>("QBBlock")
      .attribute<&QBBlock::m_position>("position")
      .attribute<&QBBlock::m_data>("data", platform::Fetch::onDemand)
      .toOne<&QBBlock::m_chord>("chord", "QBChord", "block")
      .toMany<&QBBlock::m_samples>("samples", "QBSample", "block")
      .build();
}

QBChord* QBBlock::chord() const { return target(m_chord); }

void QBBlock::setChord(QBChord* value) { relate(m_chord, value); }

platform::Members<QBSample> QBBlock::samples() const { return members(m_samples); }

QBSample* QBBlock::addSample(std::int16_t value) {
  return QBTabMgr::of(*this).createSample(this, value);
}

std::vector<platform::Ref<QBSample>> QBBlock::allSamples() const {
  auto sorted = samples().snapshot();
  std::ranges::stable_sort(sorted, {}, [](const auto& sample) { return sample->position(); });
  return sorted;
}

bool QBBlock::equals(const QBBlock& other) const {
  return std::ranges::equal(allSamples(), other.allSamples(),
                            [](const auto& a, const auto& b) { return a->equals(*b); });
}

void QBBlock::addData(std::span<const std::byte> bytes) {
  platform::Bytes& stored = mutate(m_data);
  if (stored.empty()) stored.reserve(kBytes);
  stored.insert(stored.end(), bytes.begin(), bytes.end());
}

std::uint32_t QBBlock::space() const { return static_cast<std::uint32_t>(kBytes - data().size()); }

std::vector<std::int16_t> QBBlock::toSamples() {
  const platform::Bytes& bytes = data();
  std::vector<std::int16_t> values(bytes.size() / 2);
  std::int64_t sum = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = bytesToShort(bytes[2 * i], bytes[2 * i + 1]);
    sum += values[i];
  }
  m_sum += sum;
  m_nmbOfSamples += static_cast<std::int64_t>(values.size());
  return values;
}

// A negative sum divides as its unsigned pattern; callers rely on that reading.
std::uint64_t QBBlock::average() const {
  const std::uint64_t count = data().size() / 2;
  if (count == 0) throw std::domain_error("an empty block has no average");
  return static_cast<std::uint64_t>(m_sum) / count;
}

}  // namespace korvel
