// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/SampleStore.h"

#include <algorithm>

namespace korvel::precise {

void SampleStore::append(std::span<const float> samples) {
  while (!samples.empty()) {
    const std::size_t filled = m_size % kPiece;
    if (filled == 0) m_pieces.emplace_back(kPiece * sizeof(float));
    const std::size_t count = std::min(samples.size(), kPiece - filled);
    std::ranges::copy(samples.first(count), samplesOf(m_pieces.size() - 1) + filled);
    samples = samples.subspan(count);
    m_size += count;
  }
}

void SampleStore::read(std::ptrdiff_t first, std::span<float> values) const {
  const auto before = std::min(values.size(), static_cast<std::size_t>(std::max(-first, 0L)));
  std::ranges::fill(values.first(before), 0.0F);
  values = values.subspan(before);
  auto at = static_cast<std::size_t>(std::max(first, 0L));
  while (!values.empty() && at < m_size) {
    const std::size_t count = std::min({values.size(), m_size - at, kPiece - at % kPiece});
    const float* piece = samplesOf(at / kPiece);
    if (piece != nullptr) {
      std::copy_n(piece + at % kPiece, count, values.begin());
    } else {
      std::ranges::fill(values.first(count), 0.0F);
    }
    values = values.subspan(count);
    at += count;
  }
  std::ranges::fill(values, 0.0F);
}

void SampleStore::release(std::ptrdiff_t end) {
  const auto whole = static_cast<std::size_t>(std::max(end, 0L)) / kPiece;
  for (std::size_t i = std::min(whole, m_pieces.size()); i > 0 && samplesOf(i - 1); --i)
    m_pieces[i - 1] = {};
}

}  // namespace korvel::precise
