// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include "precise/Settings.h"

class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QSlider;
class QSpinBox;

namespace korvel::ui {

/// What its user may say of the notes of a recording before they are heard, and of the hand that
/// played them: rows of a dialog's form.
class HearingChoice final : public QObject {
  Q_OBJECT

 public:
  /// Adds its rows to the form, and belongs to the form's widget.
  HearingChoice(QFormLayout& form, const precise::Settings& settings);

  /// A row for where the A of recordings is expected, as a whole one is heard.
  void addConcertPitch(QFormLayout& form, double hertz);

  precise::Settings settings() const;

 private:
  QSlider* m_sensitivity;
  QComboBox* m_position;
  QSpinBox* m_positionFret;
  QSpinBox* m_frets;
  QSpinBox* m_capo;
  QDoubleSpinBox* m_concertA = nullptr;  ///< None without its row.
};

}  // namespace korvel::ui
