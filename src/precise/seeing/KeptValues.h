// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace korvel::precise {

/// Some of the values that the earlier windows of a long recording had, for quantiles of all of it.
class KeptValues {
 public:
  /// The values alone if they are the first; otherwise some of them beside those that were kept.
  /// Keeps some for later.
  std::vector<float> join(std::span<const float> values) {
    const bool areFirst = m_kept.empty();
    for (std::size_t i = 0; i < values.size(); i += kStep) m_kept.push_back(values[i]);
    return areFirst ? std::vector<float>(values.begin(), values.end()) : m_kept;
  }

 private:
  static constexpr std::size_t kStep = 8;

  std::vector<float> m_kept;
};

}  // namespace korvel::precise
