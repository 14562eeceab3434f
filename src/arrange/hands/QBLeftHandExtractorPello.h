// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "arrange/hands/QBLeftHandExtractor.h"

namespace korvel {

class QBTone;

/// Writes every chord of three or more tones into another song with only those of its upper tones,
/// by string, whose grip weighs least.
class QBLeftHandExtractorPello final : public QBLeftHandExtractor {
 public:
  explicit QBLeftHandExtractorPello(QBSong* target);
  ~QBLeftHandExtractorPello() override;

  /// Chords of two tones or fewer are copied as they are.
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;

 private:
  class Worker;
  void applyTone(const QBTone& tone);
  void createChord(const QBTone& tone);
  QBChord* evaluate();

  /// Scratch song of the candidates, while one chord is looked at.
  platform::Ref<QBSong> m_worker;
  std::vector<platform::Ref<QBChord>> m_list;
};

}  // namespace korvel
