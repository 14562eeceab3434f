// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/CoefficientTable.h"

#include <algorithm>

namespace korvel::precise {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 16U;

}  // namespace

void CoefficientTable::add(std::span<const float> coefficients) {
  if (m_pieces.empty() || m_pieces.back().size() + coefficients.size() > m_pieces.back().capacity())
    m_pieces.emplace_back().reserve(std::max(kPiece, coefficients.size()));
  std::vector<Entry>& piece = m_pieces.back();
  const std::size_t first = piece.size();
  for (std::size_t a = 0; a < coefficients.size(); ++a)
    if (coefficients[a] > 0) piece.push_back({static_cast<std::uint32_t>(a), coefficients[a]});
  m_rows.push_back(std::span<const Entry>(piece).subspan(first));
}

}  // namespace korvel::precise
