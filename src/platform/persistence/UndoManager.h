// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/text/UserText.h"

namespace korvel::platform {

class ChangeLog;
class ManagedContext;
class ManagedObject;

/// What sort of action one is, for who has to recognise it: one object for each sort.
struct ActionKind {};

/// Takes back what was done in a context, action by action, and does it again, for as long as the
/// context lives; saves do not matter to it. Objects come back as they were: with their ids,
/// attributes and relationships, so that references to them are good again.
///
/// Changes made outside of an UndoGroup cannot be undone; they should not be mixed with those that
/// can. Main thread only.
class UndoManager : public std::enable_shared_from_this<UndoManager> {
 public:
  explicit UndoManager(ManagedContext& context);
  UndoManager(const UndoManager&) = delete;
  UndoManager& operator=(const UndoManager&) = delete;
  ~UndoManager();

  /// Of actions that have ended, the latest is next; those that still go on, as an import does that
  /// is stepped, are passed over unless they use what the next one made.
  bool canUndo() const;
  bool canRedo() const;
  /// Of the action that is next, though it may have to wait; empty when there is none.
  const UserText& undoActionName() const;
  const UserText& redoActionName() const;
  /// Of the action that undo would take back; null when it was given none.
  const ActionKind* undoActionKind() const;
  /// The action whose end undo waits for: one that uses what the next one made, or the only one
  /// that there is. Empty when it need not wait.
  const UserText& undoWaitsFor() const;
  /// Answers whether there was something to undo. std::logic_error inside of a group.
  bool undo();
  bool redo();

 private:
  friend class UndoGroup;
  using Log = std::shared_ptr<ChangeLog>;
  struct Undone {
    Log log;
    std::unordered_set<std::uint32_t> wentOn;  ///< Numbers of the logs that were open.
  };

  Log open(UserText title);
  void close(const Log& log);
  void drop(const Log& log);
  void forget(const Log& log);
  Log next() const;
  Log userOf(const Log& log) const;
  void requireNoGroup() const;

  ManagedContext& m_context;
  std::uint32_t m_logs = 0;
  std::vector<Log> m_done;       ///< In the order of their beginnings.
  std::vector<Undone> m_undone;  ///< The next one last.
};

/// One undoable action: while it is in scope, all changes of the context belong to it. Inside of
/// another group it becomes part of that one. A group without changes leaves nothing; one with
/// changes ends what could be redone.
///
/// An action in steps suspends its group between them. Others may come in between, and can be
/// undone while it goes on; itself it can when it has ended and those that began later are undone.
/// It makes objects and changes only these; of what others made it may use what was there when it
/// began.
class UndoGroup {
 public:
  UndoGroup(UndoManager& manager, UserText title);
  UndoGroup(const UndoGroup&) = delete;
  UndoGroup& operator=(const UndoGroup&) = delete;
  ~UndoGroup();

  /// Should the action before it be about the same subject, as successive changes of one song's
  /// loop are, both are one in the end; unless one of them makes objects.
  void joinAbout(const ManagedObject& subject);
  /// The kind must outlive the manager.
  void setKind(const ActionKind& kind);

  void suspend();
  /// Answers whether it was suspended.
  bool resume();
  /// Ends the group and leaves everything as it was before, and answers whether there was anything
  /// to take back. What could be redone when it began still can. A part of another group only ends:
  /// that one has to know what becomes of the whole.
  bool rollBack();

 private:
  void end();

  std::weak_ptr<UndoManager> m_manager;
  std::shared_ptr<ChangeLog> m_log;  ///< None when part of another group, and at the end.
  bool m_isNew = true;               ///< Has changed nothing yet.
  ChangeLog* m_outer = nullptr;      ///< The log that recorded when this was resumed.
};

/// A step of a group that is suspended: what happens in its scope belongs to the group, if there is
/// one. Steps within a step are part of that.
class UndoStep {
 public:
  explicit UndoStep(std::shared_ptr<UndoGroup> group)
      : m_group(group && group->resume() ? std::move(group) : nullptr) {}
  UndoStep(const UndoStep&) = delete;
  UndoStep& operator=(const UndoStep&) = delete;
  ~UndoStep() {
    if (m_group) m_group->suspend();
  }

 private:
  std::shared_ptr<UndoGroup> m_group;
};

}  // namespace korvel::platform
