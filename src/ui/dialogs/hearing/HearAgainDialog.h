// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <optional>
#include <vector>

#include "music/Neck.h"
#include "ui/dialogs/hearing/HearingChoice.h"

class QComboBox;

namespace korvel {
class QBSong;
}

namespace korvel::ui {

/// How a part of a recording is to be heard again.
class HearAgainDialog final : public QDialog {
  Q_OBJECT

 public:
  /// It begins with these settings and with the tuning of the song.
  HearAgainDialog(const precise::Settings& settings, const QBSong& song, QWidget* parent = nullptr);

  precise::Settings settings() const { return m_choice->settings(); }
  /// What the open strings sounded there; none where they are the song's.
  std::optional<OpenPitches> playedOn() const;

 private:
  HearingChoice* m_choice;
  QComboBox* m_tuning;
  std::vector<OpenPitches> m_pitches;  ///< Of the tunings to choose from, the song's first.
};

}  // namespace korvel::ui
