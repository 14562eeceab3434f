// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>

#include "precise/judging/Tables.h"

namespace korvel::precise {

/// The features of one candidate; One is set, the others are 0 at first.
template <class Feature>
class Features {
 public:
  Features() { (*this)[Feature::One] = 1; }

  double& operator[](Feature feature) { return m_values[static_cast<std::size_t>(feature)]; }
  double operator[](Feature feature) const { return m_values[static_cast<std::size_t>(feature)]; }

  /// In the order of the enumerators.
  std::span<const double> values() const { return m_values; }

  /// Every feature within the range that the weights know.
  Features limited() const {
    Features limited = *this;
    const auto ranges = rangesOf(Feature::One);
    for (std::size_t i = 0; i < m_values.size(); ++i)
      limited.m_values[i] = std::clamp(m_values[i], ranges[i].least, ranges[i].most);
    return limited;
  }

 private:
  std::array<double, static_cast<std::size_t>(Feature::Count)> m_values{};
};

/// The weighted sum: the logarithm of the odds.
template <class Feature>
double logOdds(std::span<const Term<Feature>> terms, const Features<Feature>& known) {
  const Features<Feature> features = known.limited();
  double sum = 0;
  for (const Term<Feature>& term : terms)
    sum += term.weight * features[term.first] * features[term.second];
  return sum;
}

/// The probability that has these odds.
template <class Feature>
double logistic(std::span<const Term<Feature>> terms, const Features<Feature>& known) {
  return 1 / (1 + std::exp(-logOdds(terms, known)));
}

}  // namespace korvel::precise
