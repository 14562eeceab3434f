// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/dialogs/guides/GuideDialog.h"
#include "workflow/arranging/guided/SingAlong.h"

namespace korvel::ui {

/// Asks how a song is to accompany a singer.
class SingAlongDialog final : public GuideDialog {
  Q_OBJECT

 public:
  explicit SingAlongDialog(QBSong& song, QWidget* parent = nullptr);

  SingChoices choices() const;

 protected:
  std::string preview() const override { return singAlong(choices()).preview(song()); }

 private:
  QComboBox* m_chords;
  QComboBox* m_key;  ///< The half tones are its data.
};

}  // namespace korvel::ui
