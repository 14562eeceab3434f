// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace korvel {

namespace exchange {
struct Piece;
}

/// When what a piece says is played.
class PieceTime {
 public:
  /// Faster than so many quarters a minute is played as fast as that.
  static constexpr double kFastest = 900;

  explicit PieceTime(const exchange::Piece& piece, double fastest = kFastest);

  /// From the beginning of the piece; rises with the grains.
  double secondsOf(double grains) const;
  /// Quarters a minute, as a song can be played.
  double tempoAt(double grains) const;
  /// All of it has one tempo, but for what nobody hears.
  bool isSteady() const;

 private:
  struct Part {
    double from;
    double seconds;
    double tempo;
  };

  const Part& partAt(double grains) const;

  std::vector<Part> m_parts;  ///< By place; the first one begins at 0.
};

}  // namespace korvel
