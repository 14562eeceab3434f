// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/QBSession.h"

#include <cxxabi.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <typeinfo>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/UndoManager.h"
#include "platform/sqlite/StoreError.h"
#include "platform/text/UserError.h"
#include "workflow/editing/SongEdits.h"
#include "workflow/session/ProgramEnd.h"
#include "workflow/session/QBCommand.h"
#include "workflow/session/TreeNode.h"

namespace korvel {
namespace {

using platform::phrase;
using platform::UserText;

constexpr std::string_view kLine = "\r\n------------------------\r\n";
constexpr int kTimesLogged = 4;

std::string className(const std::exception& exception) {
  const auto* worded = dynamic_cast<const platform::Worded*>(&exception);
  const char* mangled = (worded ? worded->reportedAs() : typeid(exception)).name();
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> readable(
      abi::__cxa_demangle(mangled, nullptr, nullptr, &status), &std::free);
  return readable ? readable.get() : mangled;
}

std::string exceptionText(std::string_view context, const std::exception& exception) {
  const std::string name = className(exception);
  std::string text = "EXCEPTION OCCURED IN CONTEXT: ";
  text.append(context).append(kLine);
  text.append("EXCEPTION NAME: ").append(name).append(kLine);
  text.append("DESCRIPTION: ").append(exception.what()).append(kLine);
  return text.append("DEBUG DESCRIPTION: ").append(name + ": " + exception.what());
}

platform::UndoManager& undoManager() { return QBTabMgr::db().context().undoManager(); }

UserText fatalText(const UserText& context, const UserText& error) {
  constexpr platform::Phrase kReport{"", "%1\r\n%2\r\n\r\n%3"};  // nothing to translate
  return {kReport, UserText(phrase("Message", "AN ERROR OCCURED IN CONTEXT: %1"), context),
          UserText(phrase("Message", "DESCRIPTION: %1"), error),
          UserText(phrase("Message", "Korvel will be closed"))};
}

}  // namespace

QBSession& QBSession::session() {
  // Never destroyed: the lower layers may report through it until the very end.
  static QBSession* session = new QBSession;
  return *session;
}

QBSession::QBSession() { SessionServices::install(this); }

// ---- jobs

void QBSession::addJob(std::shared_ptr<QBCommand> command) {
  m_jobs.push_back(std::move(command));
  if (m_views.batch) m_views.batch->reload();
}

void QBSession::removeJob(const QBCommand& command) {
  std::erase_if(m_jobs, [&](const auto& job) { return job.get() == &command; });
  if (m_views.batch) m_views.batch->reload();
}

bool QBSession::hasRunningJobs() const {
  return std::ranges::any_of(m_jobs, [](const auto& job) { return job->isRunning(); });
}

bool QBSession::isScratch(const QBSong& song) const {
  return std::ranges::any_of(m_jobs, [&](const auto& job) { return job->usesAsScratch(song); });
}

// ---- log and reports

void QBSession::addToLog(const UserText& text) {
  if (m_views.output) m_views.output->addLogText(text);
}

void QBSession::logError(const UserText& text) { addToLog(text); }

void QBSession::handleException(std::string_view context, const std::exception& exception) {
  const std::string text = exceptionText(context, exception);
  if (m_views.tab) m_views.tab->drawProblem(text, platform::textOf(exception));
  addToLog(UserText::verbatim(text));
}

void QBSession::handleError(std::string_view context, std::string_view) {
  for (int i = 0; i < kTimesLogged; ++i) addToLog(UserText::verbatim(std::string(context)));
}

void QBSession::exitWithError(const UserText& context, const UserText& error) {
  exitWithStatus(context, error, m_views.alert ? m_views.alert->exitStatus() : EXIT_FAILURE);
}

void QBSession::exitWithStatus(const UserText& context, const UserText& error, int status) {
  const UserText text = fatalText(context, error);
  if (m_views.alert)
    m_views.alert->show(text);
  else
    std::cerr << text.english() << '\n';
  throw ProgramEnd{status};
}

void QBSession::sayGoodBye() {
  if (m_views.tab) m_views.tab->sayGoodBye();
}

// ---- saving and undoing

void QBSession::saveIfAtOnce() {
  if (m_savesAtOnce) QBTabMgr::db().save();
}

/// What could not be saved is as it was, so that the views show what is stored.
void QBSession::saveIfAtOnce(platform::UndoGroup& group) {
  try {
    saveIfAtOnce();
  } catch (const platform::StoreError&) {
    group.rollBack();
    showLoop();
    throw;
  }
}

void QBSession::finish(const UserText& sentence) {
  saveIfAtOnce();
  addToLog(sentence);
}

bool QBSession::undo() {
  const UserText action = undoManager().undoActionName();
  if (!QBTabMgr::db().undo()) return false;
  renewViews();
  addToLog({phrase("Log", "Undo %1"), action});
  return true;
}

bool QBSession::redo() {
  const UserText action = undoManager().redoActionName();
  if (!QBTabMgr::db().redo()) return false;
  renewViews();
  addToLog({phrase("Log", "Redo %1"), action});
  return true;
}

void QBSession::renewViews() {
  // One that an undo has taken out of its album is gone like one that it has deleted.
  const auto isThere = [](const QBSong& song) { return !song.isDeleted() && song.album(); };
  const platform::Ref<QBSong> shown = m_song;
  if (m_activeTreeNode && m_activeTreeNode->isGone()) setActiveTreeNode(nullptr);
  refreshTree();
  // The tree has turned to a neighbour of one that is in another album now.
  const platform::Ref<QBSong> song = shown && isThere(*shown) ? shown : m_song;
  if (song) setActiveSong(isThere(*song) ? song.get() : nullptr);
  for (std::size_t job = 0; job < m_jobs.size(); ++job) m_jobs[job]->storeRenewed();
  if (m_views.batch) m_views.batch->reload();
}

// ---- what the user works on

void QBSession::refreshTree() {
  if (m_views.tree) m_views.tree->refreshAllContents();
}

void QBSession::setActiveTreeNode(TreeNode* node) {
  m_activeTreeNode = node;
  if (m_views.songMenu) m_views.songMenu->enable(activeSongNode() != nullptr);
  if (m_views.albumMenu) m_views.albumMenu->enable(activeAlbumNode() != nullptr);
}

QBSongNode* QBSession::activeSongNode() const {
  return m_activeTreeNode ? m_activeTreeNode->songNode() : nullptr;
}

AlbumNode* QBSession::activeAlbumNode() const {
  return m_activeTreeNode ? m_activeTreeNode->albumNode() : nullptr;
}

void QBSession::errorNoSongSelected() {
  addToLog(phrase("Log", "There is currently no Song selected."));
}

void QBSession::setActiveSong(QBSong* song) {
  m_song = song;
  if (m_views.tab) m_views.tab->setActiveSong(song);
  if (m_views.song) m_views.song->setActiveSong(song);
  updateLoop();
  lockTab(m_views.player && m_views.player->plays(song));
}

void QBSession::setTabPosition(float fraction) {
  m_percent = fraction;
  if (m_views.tab) m_views.tab->drawPlayMode(m_percent);
}

void QBSession::resetLoop() {
  if (m_song)
    clearLoop(*m_song);
  else
    showLoop();
}

void QBSession::showLoop() {
  updateLoop();
  if (!m_views.tab) return;
  m_views.tab->drawPlayMode(m_percent);
  m_views.tab->refresh();
}

void QBSession::selectChord(double x, double y) {
  const auto group = m_song ? std::make_unique<platform::UndoGroup>(
                                  undoManager(), phrase("UndoAction", "Set Loop"))
                            : nullptr;
  if (group) group->joinAbout(*m_song);
  if (m_views.tab) m_views.tab->handleClick(x, y);
  if (group) saveIfAtOnce(*group);
  updateLoop();
}

void QBSession::lockTab(bool locked) {
  if (m_views.tab) m_views.tab->lock(locked);
}

void QBSession::drawTuning(QBTuning* tuning) {
  if (m_views.tab) m_views.tab->drawTuning(tuning);
}

void QBSession::drawHelp(const std::string& content) {
  if (m_views.help) m_views.help->setContent(content);
}

void QBSession::updateLoop() {
  if (m_views.player) m_views.player->updateLoop();
}

}  // namespace korvel
