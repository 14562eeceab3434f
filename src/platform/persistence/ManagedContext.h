// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/persistence/EntityDescription.h"
#include "platform/persistence/ManagedObject.h"
#include "platform/persistence/ObjectModel.h"
#include "platform/sqlite/Sqlite.h"

namespace korvel::platform {

class ChangeLog;
class StoreCheck;
class UndoManager;

/// Who keeps a context, for its objects to find.
class ContextOwner {
 protected:
  ContextOwner() = default;
  ~ContextOwner() = default;
  ContextOwner(const ContextOwner&) = default;
  ContextOwner& operator=(const ContextOwner&) = default;
};

/// The graph of objects over one open store: reads rows when they are asked for, keeps one object
/// per row, keeps both ends of every relationship in step, and writes all changes when told to.
///
/// Nothing reaches the file before `save`. Main thread only. Objects that outlive the context keep
/// their attributes and lose their relationships.
class ManagedContext {
 public:
  /// The model must outlive the context.
  ManagedContext(std::unique_ptr<SqliteDatabase> store, const ObjectModel& model);
  ManagedContext(const ManagedContext&) = delete;
  ManagedContext& operator=(const ManagedContext&) = delete;
  ~ManagedContext();

  /// A new object with nothing set. Throws std::out_of_range for an unknown entity.
  ManagedObject* insert(std::string_view entityName);
  /// Deletes an object and empties its relationships on both sides. Objects that it owns stay.
  void remove(ManagedObject& object);
  /// Every object of an entity in creation order.
  std::vector<Ref<ManagedObject>> fetch(std::string_view entityName);
  template <class T>
  std::vector<Ref<T>> fetchAll(std::string_view entityName) {
    std::vector<Ref<T>> typed;
    for (const Ref<ManagedObject>& object : fetch(entityName))
      typed.emplace_back(static_cast<T*>(object.get()));
    return typed;
  }

  /// Begins the check that the first `save` needs, in a thread, so that it need not do it. Nothing
  /// happens when it has begun or is over.
  void checkAhead();
  /// Whether `save` would have to wait for that check.
  bool isBeingChecked() const;

  /// Whether the store can be read only, so that `save` would fail.
  bool isReadOnly() const { return m_store->isReadOnly(); }
  bool hasChanges() const;
  /// Writes all changes in one transaction, the first time after a check of the store, so that a
  /// damaged one is not written into. Throws StoreError; the file is then as it was and the
  /// changes are kept for another try.
  void save();

  /// The owner must outlive the context.
  void setOwner(ContextOwner& owner) { m_owner = &owner; }
  /// Null unless it was set.
  ContextOwner* owner() const { return m_owner; }

  /// Lives as long as the context.
  UndoManager& undoManager() { return *m_undoManager; }
  SqliteDatabase& store() { return *m_store; }

 private:
  friend class ChangeLog;
  friend class ManagedObject;
  friend class UndoGroup;
  friend class UndoManager;
  struct Table;
  struct Referrer;
  using Owners = std::vector<ManagedObject*>;

  // What objects ask for.
  void fire(ManagedObject& object);
  void demand(ManagedObject& object);
  void changed(ManagedObject& object);
  ChangeLog* logFor(const ManagedObject& object) const;
  void load(ManagedObject& owner, const MembersDescription& members);
  void relate(ManagedObject& owner, const ToOneDescription& toOne, ManagedObject* target);
  void relateInverse(ManagedObject& owner, const MembersDescription& members,
                     ManagedObject* target);

  // What undoing asks for.
  void revive(ManagedObject& object);
  void retarget(ManagedObject& owner, const ToOneDescription& toOne, ManagedObject* target);
  void recordReferrers(ManagedObject& object);
  void recordReferrersOfRow(const ManagedObject& object, const Referrer& referrer);
  void recordUnsavedReferrers(const ManagedObject& object, const Referrer& referrer);

  // Reading.
  Table& tableOf(const EntityDescription& entity);
  SqliteStatement& statement(const std::string& sql);
  Ref<ManagedObject> make(const EntityDescription& entity, std::int64_t id);
  ManagedObject* byId(const EntityDescription& entity, std::int64_t id);
  ManagedObject* materialise(const EntityDescription& entity, const SqliteStatement& row);
  void readRow(ManagedObject& object, const SqliteStatement& row);
  Owners readRows(const EntityDescription& entity, const std::string& where,
                  const std::int64_t* parameter);
  void readAlong(const EntityDescription& entity, const std::string& where,
                 const std::int64_t* parameter, const Owners& owners);
  void adopt(const MembersDescription& members, const Owners& owners, const Owners& children);

  // Relating.
  void attach(MembersSlot& slot, ManagedObject& member);
  void detach(MembersSlot& slot, ManagedObject& member);
  void emptyRelationships(ManagedObject& object);
  static void forgetRelationships(ManagedObject& object);

  // Writing.
  void requireSound();
  std::int64_t nextId(Table& table);
  static void bindTarget(const ToOneSlot& slot, SqliteStatement& statement, int parameter);
  void writeInserted(Table& table);
  void writeChanged(Table& table);
  void writeDeleted(Table& table);
  void markSaved(Table& table);

  ContextOwner* m_owner = nullptr;
  std::unique_ptr<SqliteDatabase> m_store;
  const ObjectModel& m_model;
  std::vector<std::unique_ptr<Table>> m_tables;
  std::unordered_map<std::string, SqliteStatement> m_statements;
  std::unique_ptr<StoreCheck> m_check;
  bool m_checked = false;
  ChangeLog* m_log = nullptr;  ///< Of the action under way.
  std::shared_ptr<UndoManager> m_undoManager;
};

}  // namespace korvel::platform
