// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/UndoManager.h"

#include <stdexcept>
#include <utility>

#include "platform/persistence/ChangeLog.h"
#include "platform/persistence/ManagedContext.h"

namespace korvel::platform {
namespace {

const std::string kNoName;

}  // namespace

UndoManager::UndoManager(ManagedContext& context) : m_context(context) {}

UndoManager::~UndoManager() = default;

bool UndoManager::canUndo() const { return !m_done.empty() && !m_done.back()->isOpen(); }

bool UndoManager::canRedo() const { return !m_undone.empty(); }

const std::string& UndoManager::undoActionName() const {
  return canUndo() ? m_done.back()->title() : kNoName;
}

const std::string& UndoManager::redoActionName() const {
  return canRedo() ? m_undone.back()->title() : kNoName;
}

bool UndoManager::undo() {
  requireNoGroup();
  if (!canUndo()) return false;
  const Log log = m_done.back();
  log->undo();
  m_done.pop_back();
  m_undone.push_back(log);
  return true;
}

bool UndoManager::redo() {
  requireNoGroup();
  if (!canRedo()) return false;
  const Log log = m_undone.back();
  log->redo();
  m_undone.pop_back();
  m_done.push_back(log);
  return true;
}

void UndoManager::requireNoGroup() const {
  if (m_context.m_log) throw std::logic_error("undo and redo in the middle of an action");
}

UndoManager::Log UndoManager::open(std::string title) {
  m_done.push_back(std::make_shared<ChangeLog>(m_context, std::move(title), ++m_logs));
  return m_done.back();
}

void UndoManager::close(const Log& log) {
  log->close();
  if (log->isEmpty()) drop(log);
}

void UndoManager::drop(const Log& log) { std::erase(m_done, log); }

// ---- groups

UndoGroup::UndoGroup(UndoManager& manager, std::string title)
    : m_manager(manager.weak_from_this()) {
  if (manager.m_context.m_log) return;
  m_log = manager.open(std::move(title));
  resume();
}

UndoGroup::~UndoGroup() { end(); }

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
  if (!m_log->isEmpty()) manager->m_undone.clear();
}

void UndoGroup::end() {
  suspend();
  const auto log = std::exchange(m_log, nullptr);
  const auto manager = m_manager.lock();
  if (manager && log) manager->close(log);
}

void UndoGroup::rollBack() {
  const auto log = m_log;
  end();
  const auto manager = m_manager.lock();
  if (!manager || !log) return;
  manager->drop(log);
  // What goes on around this one has nothing to do with what was there before it.
  ChangeLog* outer = std::exchange(manager->m_context.m_log, nullptr);
  log->undo();
  manager->m_context.m_log = outer;
}

}  // namespace korvel::platform
