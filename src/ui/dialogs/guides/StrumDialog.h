// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/dialogs/guides/GuideDialog.h"

namespace korvel {
struct StrumPattern;
}

namespace korvel::ui {

/// Asks in which pattern the chords of a song are strummed.
class StrumDialog final : public GuideDialog {
  Q_OBJECT

 public:
  explicit StrumDialog(QBSong& song, QWidget* parent = nullptr);

  const StrumPattern& pattern() const;

 protected:
  std::string preview() const override;

 private:
  QComboBox* m_pattern;
};

}  // namespace korvel::ui
