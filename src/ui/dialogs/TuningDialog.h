// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <array>

#include "music/Neck.h"
#include "workflow/library/TuningEdits.h"

class QComboBox;

namespace korvel::ui {

/// The six strings of a tuning, each with the notes that it can be tuned to.
class TuningDialog final : public QDialog {
  Q_OBJECT

 public:
  TuningDialog(QBTuning& tuning, QWidget* parent);

  OpenPitches pitches() const;

 private:
  std::array<QComboBox*, kStrings> m_notes{};
};

}  // namespace korvel::ui
