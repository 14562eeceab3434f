// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/dialogs/guides/GuideDialog.h"
#include "workflow/arranging/guided/Practice.h"

class QCheckBox;
class QSpinBox;

namespace korvel::ui {

/// Asks what of a song is to be practised, and how.
class PractiseDialog final : public GuideDialog {
  Q_OBJECT

 public:
  /// The passage is the song's loop at first. Speeds from the slowest to the fastest.
  PractiseDialog(QBSong& song, const Practice& before, int slowest, int fastest,
                 QWidget* parent = nullptr);

  Practice practice() const;

 protected:
  std::string preview() const override { return previewOf(practice(), song()); }

 private:
  QSpinBox* addNumber(const QString& title, int least, int most, int value);

  QComboBox* m_part;
  QSpinBox* m_first;
  QSpinBox* m_last;
  QSpinBox* m_speed;
  QCheckBox* m_countIn;
  QCheckBox* m_metronome;
};

}  // namespace korvel::ui
