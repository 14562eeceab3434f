// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;

/// Sorts the tones of one chord into loudness layers, their `group` attribute, 1 the quietest.
class QBToneGroupBuilder {
 public:
  explicit QBToneGroupBuilder(QBChord* chord);
  ~QBToneGroupBuilder();

  /// A tone that is more than 200000 louder than the reference ends its layer: it still belongs to
  /// it and becomes the reference; the next tone opens a new one. The group filters count on this
  /// shift.
  void build();

 private:
  platform::Ref<QBChord> m_chord;
};

}  // namespace korvel
