// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/UndoManager.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "platform/persistence/ChangeLog.h"
#include "platform/persistence/ManagedContext.h"

namespace korvel::platform {
namespace {

const UserText kNoName;

}  // namespace

UndoManager::UndoManager(ManagedContext& context) : m_context(context) {}

UndoManager::~UndoManager() = default;

UndoManager::Log UndoManager::next() const {
  const auto ended =
      std::find_if(m_done.rbegin(), m_done.rend(), [](const Log& log) { return !log->isOpen(); });
  return ended == m_done.rend() ? nullptr : *ended;
}

/// The action that goes on with what the other one made.
UndoManager::Log UndoManager::userOf(const Log& log) const {
  const auto user = std::ranges::find_if(
      m_done, [&](const Log& each) { return each->isOpen() && (!log || each->uses(*log)); });
  return user == m_done.end() ? nullptr : *user;
}

bool UndoManager::canUndo() const {
  const Log log = next();
  return log && !userOf(log);
}

bool UndoManager::canRedo() const {
  return !m_undone.empty() && !m_undone.back().log->deletesPartsOf(m_undone.back().wentOn);
}

const UserText& UndoManager::undoActionName() const {
  const Log log = next();
  return log ? log->title() : kNoName;
}

const UserText& UndoManager::redoActionName() const {
  return canRedo() ? m_undone.back().log->title() : kNoName;
}

const ActionKind* UndoManager::undoActionKind() const {
  const Log log = next();
  return log ? log->kind() : nullptr;
}

const UserText& UndoManager::undoWaitsFor() const {
  const Log user = userOf(next());
  return user ? user->title() : kNoName;
}

bool UndoManager::undo() {
  requireNoGroup();
  if (!canUndo()) return false;
  const Log log = next();
  log->undo();
  drop(log);
  Undone undone{log, {}};
  for (const Log& each : m_done)
    if (each->isOpen()) undone.wentOn.insert(each->number());
  m_undone.push_back(std::move(undone));
  return true;
}

bool UndoManager::redo() {
  requireNoGroup();
  if (!canRedo()) return false;
  const Log log = m_undone.back().log;
  log->redo();
  m_undone.pop_back();
  m_done.insert(std::ranges::upper_bound(m_done, log->number(), {}, &ChangeLog::number), log);
  return true;
}

void UndoManager::requireNoGroup() const {
  if (m_context.m_log) throw std::logic_error("undo and redo in the middle of an action");
}

UndoManager::Log UndoManager::open(UserText title) {
  m_done.push_back(std::make_shared<ChangeLog>(m_context, std::move(title), ++m_logs));
  return m_done.back();
}

void UndoManager::close(const Log& log) {
  log->close();
  if (log->isEmpty()) return drop(log);
  const auto place = std::ranges::find(m_done, log);
  if (place != m_done.begin() && (*std::prev(place))->takeOn(*log)) m_done.erase(place);
}

void UndoManager::drop(const Log& log) { std::erase(m_done, log); }

/// What was done to objects that are gone for good, and what undone actions would do with them.
void UndoManager::forget(const Log& log) {
  std::erase_if(m_done,
                [&](const Log& each) { return !each->isOpen() && each->isOnlyAbout(*log); });
  const auto user = std::find_if(m_undone.rbegin(), m_undone.rend(),
                                 [&](const Undone& each) { return each.log->uses(*log); });
  m_undone.erase(m_undone.begin(), user.base());
}

// ---- groups

UndoGroup::UndoGroup(UndoManager& manager, UserText title) : m_manager(manager.weak_from_this()) {
  if (manager.m_context.m_log) return;
  m_log = manager.open(std::move(title));
  resume();
}

UndoGroup::~UndoGroup() { end(); }

void UndoGroup::joinAbout(const ManagedObject& subject) {
  if (m_log) m_log->setSubject(&subject);
}

void UndoGroup::setKind(const ActionKind& kind) {
  if (m_log) m_log->setKind(&kind);
}

bool UndoGroup::resume() {
  const auto manager = m_manager.lock();
  if (!manager || !m_log || manager->m_context.m_log == m_log.get()) return false;
  m_outer = std::exchange(manager->m_context.m_log, m_log.get());
  return true;
}

void UndoGroup::suspend() {
  const auto manager = m_manager.lock();
  if (!manager || !m_log || manager->m_context.m_log != m_log.get()) return;
  manager->m_context.m_log = std::exchange(m_outer, nullptr);
  if (m_log->isEmpty() || !std::exchange(m_isNew, false)) return;
  manager->m_undone.clear();
}

void UndoGroup::end() {
  suspend();
  const auto log = std::exchange(m_log, nullptr);
  const auto manager = m_manager.lock();
  if (manager && log) manager->close(log);
}

bool UndoGroup::rollBack() {
  const auto log = m_log;
  m_isNew = false;                    // as if nothing had been changed
  if (log) log->setSubject(nullptr);  // the action before it has no part in this
  end();
  const auto manager = m_manager.lock();
  if (!manager || !log || log->isEmpty()) return false;
  manager->drop(log);
  // What goes on around this one has nothing to do with what was there before it.
  ChangeLog* outer = std::exchange(manager->m_context.m_log, nullptr);
  log->undo();
  manager->forget(log);
  manager->m_context.m_log = outer;
  return true;
}

}  // namespace korvel::platform
