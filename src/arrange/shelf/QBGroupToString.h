// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "model/songs/QBChordVisitor.h"

namespace korvel {

/// Writes the group numbers of a song as a line: "||-1-" where a group begins, "----" where it goes
/// on.
class QBGroupToString final : public QBChordVisitor {
 public:
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;
  const std::string& m_output() const { return m_text; }

 private:
  std::string m_text;
};

}  // namespace korvel
