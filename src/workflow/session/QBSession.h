// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/store/SessionServices.h"
#include "platform/persistence/Ref.h"
#include "workflow/session/SessionViews.h"

namespace korvel {

namespace platform {
class UndoGroup;
}

class AlbumNode;
class QBCommand;
class QBSong;
class QBSongNode;
class TreeNode;
class QBTuning;

/// The running program: keeps the list of jobs, writes the log, reports exceptions and errors, and
/// relays the active song and the play position to the views. One for each process; main thread.
class QBSession final : public SessionServices {
 public:
  /// The shared session; made on first use, when it also becomes the lower layers' services.
  static QBSession& session();

  /// The views must stay alive while they are attached.
  void attach(const SessionViews& views) { m_views = views; }
  const SessionViews& views() const { return m_views; }

  // Jobs. A job stays in the list after it has ended.
  void addJob(std::shared_ptr<QBCommand> command);
  void removeJob(const QBCommand& command);
  /// std::out_of_range beyond the list.
  QBCommand& findJobByIndex(std::size_t index) const { return *m_jobs.at(index); }
  std::size_t numberOfCurrentJobs() const { return m_jobs.size(); }
  bool hasRunningJobs() const;
  /// Whether a job only tries things on that song, so that nobody should see it.
  bool isScratch(const QBSong& song) const;

  // Log and reports.
  void addToLog(const platform::UserText& text) override;
  void logText(const platform::UserText& text) { addToLog(text); }
  void logError(const platform::UserText& text) override;
  /// Writes what happened, and where, into the log, and has the tab view show it: a report for who
  /// looks into it, so that it is English for everybody. The program goes on.
  void handleException(std::string_view context, const std::exception& exception);
  /// Logs the context four times; users recognise an error in the log by that.
  void handleError(std::string_view context, std::string_view error);
  /// Shows an error after which the program cannot go on, and throws ProgramEnd with the front
  /// end's status for that. For front ends only: what is below them throws what it has met.
  [[noreturn]] void exitWithError(const platform::UserText& context,
                                  const platform::UserText& error);
  /// As exitWithError, with the status given.
  [[noreturn]] void exitWithStatus(const platform::UserText& context,
                                   const platform::UserText& error, int status);
  /// The main window closes.
  void sayGoodBye();

  // Saving and undoing.
  /// Whether what a command changes is saved by the time its sentence is logged, and the loop
  /// that `selectChord` sets. Unless told so, commands that only clone or delete leave it to the
  /// caller, and so does `selectChord`.
  void setSavesAtOnce(bool saves) { m_savesAtOnce = saves; }
  bool savesAtOnce() const { return m_savesAtOnce; }
  /// Logs the sentence of something that is done.
  void finish(const platform::UserText& sentence);
  /// Takes the latest action back, or does it again: saved, logged as "Undo" or "Redo" and its
  /// name, tree and views renewed. An active song that is gone then is active no more. False, and
  /// nothing happens, when there is no such action. Throws StoreError when it cannot be saved.
  bool undo();
  bool redo();

  // What the user works on.
  void refreshTree();
  /// Enables the menu that fits the node. The node must stay alive while it is active.
  void setActiveTreeNode(TreeNode* node);
  QBSongNode* activeSongNode() const;
  AlbumNode* activeAlbumNode() const;
  /// Logs that a command has no song to work on.
  void errorNoSongSelected();
  /// Unlocks the tablature, unless it is that of the song that plays.
  void setActiveSong(QBSong* song);
  QBSong* activeSong() const { return m_song; }
  /// fraction: place in the song, 0..1.
  void setTabPosition(float fraction);
  /// Takes the loop of the active song away, as `clearLoop` does.
  void resetLoop();
  /// Has the views show the loop as it is.
  void showLoop();
  void selectChord(double x, double y);
  void lockTab(bool locked);
  void drawTuning(QBTuning* tuning);
  void drawHelp(const std::string& content);

 private:
  QBSession();
  void updateLoop();
  void saveIfAtOnce();
  void saveIfAtOnce(platform::UndoGroup& group);
  void renewViews();

  SessionViews m_views;
  std::vector<std::shared_ptr<QBCommand>> m_jobs;
  platform::Ref<QBSong> m_song;
  float m_percent = 0.0F;
  TreeNode* m_activeTreeNode = nullptr;
  bool m_savesAtOnce = false;
};

}  // namespace korvel
