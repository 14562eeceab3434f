// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Removes tones of each chord by their place in its harmony: 3 is the seventh, 4 the ninth, 5 the
/// eleventh. Chords without a harmony stay as they are.
class QBOptionRemover final : public QBChordVisitor {
 public:
  /// Which tone of a harmony an option is: that of the place, also where a step is missing, as in
  /// add9, whose fourth tone is the ninth; or the one that lies so far above the root.
  enum class Counted { byPlace, byInterval };

  explicit QBOptionRemover(std::vector<int> options, Counted counted = Counted::byPlace);

  /// A chord that lost a tone is named anew. One that no harmony explains keeps its old name.
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  bool removeOptions(const QBChord& chord) const;

  std::vector<int> m_options;  ///< Ascending.
  Counted m_counted;
};

}  // namespace korvel
