// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/Dictionary.h"

#include <cmath>

namespace korvel::precise {

void normalise(std::span<float> shape) {
  double energy = 0;
  for (const float value : shape) energy += static_cast<double>(value) * value;
  if (energy <= 0) return;
  const auto factor = static_cast<float>(1 / std::sqrt(energy));
  for (float& value : shape) value *= factor;
}

void Dictionary::add(std::size_t pitch, float penalty, const BinRow& shape) {
  m_atoms.push_back({pitch, penalty, shape});
  normalise(m_atoms.back().shape);
}

void Dictionary::add(const Dictionary& others, float penalty) {
  for (const Atom& atom : others.m_atoms) m_atoms.push_back({atom.pitch, penalty, atom.shape});
}

}  // namespace korvel::precise
