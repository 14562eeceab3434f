// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "rhythm/beats/Onset.h"

namespace korvel::rhythm {

/// How much the cues of some onsets are above those of others: the difference of their means, in
/// comparison with how exactly it is known. About -2..2.
class CueContrast {
 public:
  void add(const Onset& onset, bool marked);
  std::array<double, kCues> result() const;

 private:
  struct Sum {
    double weight = 0;
    std::array<double, kCues> values{};
  };

  Sum m_marked;
  Sum m_others;
};

}  // namespace korvel::rhythm
