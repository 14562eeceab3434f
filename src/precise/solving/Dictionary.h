// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "precise/Scale.h"

namespace korvel::precise {

/// The spectra that a frame is explained by: atoms, each of a pitch, in the order they were added.
class Dictionary {
 public:
  /// Scales the shape to unit norm. The penalty is what one unit of the atom costs beside the error
  /// of the explanation: atoms that cost less are preferred.
  void add(std::size_t pitch, float penalty, const BinRow& shape);
  void add(const Dictionary& others, float penalty);

  std::size_t size() const { return m_atoms.size(); }
  std::size_t pitch(std::size_t atom) const { return m_atoms[atom].pitch; }
  float penalty(std::size_t atom) const { return m_atoms[atom].penalty; }
  const BinRow& shape(std::size_t atom) const { return m_atoms[atom].shape; }

 private:
  struct Atom {
    std::size_t pitch;
    float penalty;
    BinRow shape;
  };

  std::vector<Atom> m_atoms;
};

/// Scales a spectrum to unit norm; one of zeros stays.
void normalise(std::span<float> shape);

}  // namespace korvel::precise
