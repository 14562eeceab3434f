// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "workflow/session/QBSession.h"

namespace korvel::test {

/// Attached to the session for one test: keeps what the session says.
class RecordingViews final : public OutputView, public TabView, public NodeMenu, public FatalAlert {
 public:
  RecordingViews() {
    SessionViews views;
    views.output = this;
    views.tab = this;
    views.albumMenu = this;
    views.alert = this;
    QBSession::session().attach(views);
  }
  RecordingViews(const RecordingViews&) = delete;
  RecordingViews& operator=(const RecordingViews&) = delete;
  ~RecordingViews() override { QBSession::session().attach({}); }

  void addLogText(const platform::UserText& text) override { log.push_back(text.english()); }
  void drawContent(const std::string& text) override { content = text; }
  void enable(bool enabled) override { albumMenuEnabled = enabled; }
  void show(const platform::UserText& text) override { alert = text.english(); }
  int exitStatus() const override { return 0; }

  void setActiveSong(QBSong*) override {}
  void drawPlayMode(float fraction) override { playPosition = fraction; }
  void refresh() override {}
  void handleClick(double, double) override {}
  void lock(bool locked) override { tabLocked = locked; }
  void drawTuning(QBTuning*) override {}
  void sayGoodBye() override {}

  std::vector<std::string> log;
  std::string content, alert;
  bool albumMenuEnabled = true;
  bool tabLocked = false;
  float playPosition = 0;
};

}  // namespace korvel::test
