// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>

#include "platform/persistence/Ref.h"
#include "workflow/SessionViews.h"

namespace korvel::ui {

/// The text of the active song, or whatever else the session has to show in its place.
class TabPanel final : public QPlainTextEdit, public TabView {
  Q_OBJECT

 public:
  explicit TabPanel(QWidget* parent = nullptr);
  ~TabPanel() override;

  void setActiveSong(QBSong* song) override;
  void drawPlayMode(float fraction) override;
  void refresh() override;
  void handleClick(double x, double y) override;
  void lock(bool locked) override;
  void drawTuning(QBTuning* tuning) override;
  void drawContent(const std::string& text) override;
  void sayGoodBye() override;

 private:
  platform::Ref<QBSong> m_song;
};

}  // namespace korvel::ui
