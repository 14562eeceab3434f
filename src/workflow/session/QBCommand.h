// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "platform/loop/RunLoop.h"
#include "platform/text/UserText.h"

namespace korvel {

class QBSession;
class QBSong;

/// A piece of work that the session lists as a job: run at once, or step by step on the run loop's
/// timer so that the program stays alive meanwhile. Main thread.
class QBCommand {
 public:
  QBCommand();
  QBCommand(const QBCommand&) = delete;
  QBCommand& operator=(const QBCommand&) = delete;
  virtual ~QBCommand();

  virtual void prepare() {}
  virtual void execute() {}
  virtual void nextStep() {}
  virtual void tearDown() {}

  /// prepare, execute, tearDown.
  void run();
  /// prepare, then a nextStep for every tick of the timer until the command stops itself. It must
  /// stay alive until then. A step that throws is the last one. Of several commands all step in one
  /// tick when their steps are short, and otherwise by turns.
  void runInBackground();
  /// Ends the steps and tears down.
  void stop();
  bool isRunning() const { return m_timer != nullptr; }
  /// Whether it has ended its steps for now, and may go on with them later.
  virtual bool isPaused() const { return false; }
  /// What the job list offers while the command runs: to end it early with what it has so far, or
  /// without a trace.
  virtual void stopAndKeep() { stop(); }
  virtual void cancelAndDrop() { stop(); }
  /// The program is to end: ends a running command before it returns, and keeps what is worth it.
  virtual void endNow() { cancelAndDrop(); }
  /// Something was undone or done again, which may have brought back what the command works on.
  virtual void storeRenewed() {}

  void printOut(const platform::UserText& text) { appendOut(text); }
  void appendOut(const platform::UserText& text);
  void concatAndPrintOut(const platform::UserText& a, const platform::UserText& b);
  virtual platform::UserText fullTitle() const { return {}; }
  /// Whether the song is only there for the command to try things on.
  virtual bool usesAsScratch(const QBSong&) const { return false; }

  platform::Phrase m_type;  ///< Kind of command, as the job list shows it.
  std::string m_name;
  int m_percent = 0;
  static constexpr int kAll = 100;  ///< `m_percent` of a command that is done.

 protected:
  /// That the command is a job of.
  static QBSession& session();
  /// One directly after the other.
  platform::UserText typeAndName() const;
  /// Whether the steps are those of `runInBackground`; known when it calls prepare.
  bool isStepped() const { return m_stepped; }
  /// Ends the steps without tearing down.
  void abandonSteps() { m_timer.reset(); }
  void beginSteps();

 private:
  bool m_stepped = false;
  std::unique_ptr<platform::RunLoop::Timer> m_timer;
};

}  // namespace korvel
