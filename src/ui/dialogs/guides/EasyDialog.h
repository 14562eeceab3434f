// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/dialogs/guides/GuideDialog.h"
#include "workflow/arranging/guided/EasyVersion.h"

namespace korvel::ui {

/// Asks what makes a song easy.
class EasyDialog final : public GuideDialog {
  Q_OBJECT

 public:
  explicit EasyDialog(QBSong& song, QWidget* parent = nullptr);

  EasyChoices choices() const;
  /// Where the capo goes.
  QString remark() const override;

 protected:
  std::string preview() const override { return easyVersion(choices()).preview(song()); }

 private:
  QComboBox* m_tones;
  QComboBox* m_key;
  QComboBox* m_fret;
};

}  // namespace korvel::ui
