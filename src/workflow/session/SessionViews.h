// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "platform/text/UserText.h"

namespace korvel {

class QBSong;
class QBTuning;

// What the session drives. A front end implements those that it has; a program without a screen
// leaves the others out.

class OutputView {
 public:
  virtual ~OutputView() = default;
  virtual void addLogText(const platform::UserText& text) = 0;
};

class TabView {
 public:
  virtual ~TabView() = default;
  virtual void setActiveSong(QBSong* song) = 0;
  /// fraction: place in the song, 0..1.
  virtual void drawPlayMode(float fraction) = 0;
  virtual void refresh() = 0;
  virtual void handleClick(double x, double y) = 0;
  virtual void lock(bool locked) = 0;
  virtual void drawTuning(QBTuning* tuning) = 0;
  virtual void drawContent(const std::string& text) = 0;
  /// Something went wrong: the whole report of it, and what a user is told.
  virtual void drawProblem(const std::string& report, const platform::UserText& /*told*/) {
    drawContent(report);
  }
  virtual void sayGoodBye() = 0;
};

class SongView {
 public:
  virtual ~SongView() = default;
  virtual void setActiveSong(QBSong* song) = 0;
};

class PlayerView {
 public:
  virtual ~PlayerView() = default;
  virtual void updateLoop() = 0;
  /// Whether it is this song that is heard at the moment; its tablature stays locked then.
  virtual bool plays(const QBSong* /*song*/) const { return false; }
};

class BatchView {
 public:
  virtual ~BatchView() = default;
  virtual void reload() = 0;
};

class TreeView {
 public:
  virtual ~TreeView() = default;
  virtual void refreshAllContents() = 0;
};

class HelpView {
 public:
  virtual ~HelpView() = default;
  virtual void setContent(const std::string& content) = 0;
};

class NodeMenu {
 public:
  virtual ~NodeMenu() = default;
  virtual void enable(bool enabled) = 0;
};

/// Asks the user where to write a file.
class SavePanel {
 public:
  virtual ~SavePanel() = default;
  /// The path that was chosen; none when the user would rather not.
  virtual std::optional<std::string> chooseFile(const std::string& proposedName) = 0;
  /// Where the user's exports go; empty where that is not known.
  virtual std::string exportFolder() const { return {}; }
};

/// Shows a fatal error, after which the program ends.
class FatalAlert {
 public:
  virtual ~FatalAlert() = default;
  /// Returns once the user has seen the text.
  virtual void show(const platform::UserText& text) = 0;
  /// With which status the program ends after a fatal error.
  virtual int exitStatus() const = 0;
};

/// The front end's parts; each may be missing.
struct SessionViews {
  OutputView* output = nullptr;
  TabView* tab = nullptr;
  SongView* song = nullptr;
  PlayerView* player = nullptr;
  BatchView* batch = nullptr;
  TreeView* tree = nullptr;
  HelpView* help = nullptr;
  NodeMenu* songMenu = nullptr;
  NodeMenu* albumMenu = nullptr;
  NodeMenu* tuningMenu = nullptr;
  SavePanel* savePanel = nullptr;
  FatalAlert* alert = nullptr;
};

}  // namespace korvel
