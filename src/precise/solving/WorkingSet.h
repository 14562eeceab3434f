// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvel::precise {

/// A few of a dictionary's atoms, with what coordinate descent needs of them side by side: where
/// only these change, a step costs so much less than over all.
class WorkingSet {
 public:
  /// products: the inner products of all atoms, `stride` rows and columns, which must outlive this.
  /// The stride is a multiple of kLanes.
  WorkingSet(const std::vector<float>& products, std::size_t stride);

  /// Atoms come in vectors of so many, filled up with zeros.
  static constexpr std::size_t kLanes = 16;

  void clear();
  void add(std::size_t atom, float coefficient);

  std::size_t size() const { return m_atoms.size(); }
  bool contains(std::size_t atom) const { return m_contained[atom] != 0; }
  /// In the order they were added.
  std::span<const std::uint32_t> atoms() const { return m_atoms; }
  /// One for each of the atoms.
  std::span<const float> coefficients() const { return {m_coefficients.data(), size()}; }

  /// Goes round the atoms, and takes each coefficient to where the error is least, until none would
  /// change by more than the tolerance, or a limit is reached. gradient: of all atoms, how the
  /// error falls as the coefficient grows; it stays as it was.
  void descend(std::span<const float> gradient, float tolerance);

 private:
  const std::vector<float>& m_allProducts;
  std::size_t m_stride;
  std::vector<std::uint32_t> m_atoms;
  /// Whether each atom of the dictionary is in the set.
  std::vector<char> m_contained;
  std::vector<float> m_coefficients;
  std::vector<float> m_gradient;
  /// Rows of m_stride values, as many as there are atoms.
  std::vector<float> m_products;
};

}  // namespace korvel::precise
