// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/ManagedContext.h"

#include <algorithm>
#include <limits>

#include "platform/persistence/ChangeLog.h"
#include "platform/persistence/ManagedContextTable.h"
#include "platform/persistence/UndoManager.h"
#include "platform/sqlite/StoreCheck.h"
#include "platform/sqlite/StoreError.h"

namespace korvel::platform {
namespace {

constexpr std::int64_t kNoId = 0;

}  // namespace

ManagedContext::ManagedContext(std::unique_ptr<SqliteDatabase> store, const ObjectModel& model)
    : m_store(std::move(store)),
      m_model(model),
      m_undoManager(std::make_shared<UndoManager>(*this)) {
  for (const EntityDescription& entity : model.entities())
    m_tables.push_back(std::make_unique<Table>(entity));
  for (const EntityDescription& entity : model.entities())
    for (const ToOneDescription& toOne : entity.toOnes)
      if (!toOne.inverseMembers) tableOf(*toOne.targetEntity).referrers.push_back({entity, toOne});
}

ManagedContext::~ManagedContext() {
  const auto release = [](ManagedObject& object) {
    forgetRelationships(object);
    object.m_context = nullptr;
  };
  for (const auto& table : m_tables) {
    for (const auto& [id, object] : table->objects) release(*object);
    for (ManagedObject* object : table->inserted.inCreationOrder()) release(*object);
  }
}

ManagedContext::Table& ManagedContext::tableOf(const EntityDescription& entity) {
  return *m_tables[entity.index];
}

SqliteStatement& ManagedContext::statement(const std::string& sql) {
  const auto known = m_statements.find(sql);
  if (known != m_statements.end()) {
    known->second.reset();  // A use that ended in an exception may have left it half-way.
    return known->second;
  }
  return m_statements.emplace(sql, m_store->prepare(sql)).first->second;
}

Ref<ManagedObject> ManagedContext::make(const EntityDescription& entity, std::int64_t id) {
  Ref<ManagedObject> object = entity.make();
  object->m_context = this;
  object->m_entity = &entity;
  object->m_id = id;
  return object;
}

ManagedObject* ManagedContext::insert(std::string_view entityName) {
  const EntityDescription& entity = m_model.entity(entityName);
  Table& table = tableOf(entity);
  const Ref<ManagedObject> object = make(entity, nextId(table));
  object->m_inserted = true;
  for (const MembersDescription& members : entity.members) members.slot(*object).m_loaded = true;
  if (table.inserted.empty()) table.firstNewId = object->m_id;
  table.inserted.add(*object);
  if (m_log) m_log->recordInsertion(*object);
  return object.get();
}

std::int64_t ManagedContext::nextId(Table& table) {
  if (table.lastId < 0)
    table.lastId =
        std::max(kNoId, m_store->integer("SELECT max(id) FROM " + sqlName(table.entity.name)));
  do {
    if (table.lastId == std::numeric_limits<std::int64_t>::max())
      throw StoreError(StoreError::Reason::damaged, m_store->file(),
                       UserText(phrase("Message", "the store is damaged: %1 has no free ids"),
                                table.entity.name));
    ++table.lastId;
    // A damaged store may refer to rows that are missing.
  } while (table.lastId <= table.highestReferred && table.objects.contains(table.lastId));
  return table.lastId;
}

void ManagedContext::remove(ManagedObject& object) {
  if (object.m_deleted) return;
  const Ref<ManagedObject> keep(&object);
  if (object.m_fault) fire(object);
  if (!object.m_demanded) demand(object);
  if (logFor(object)) recordReferrers(object);
  emptyRelationships(object);
  Table& table = tableOf(object.entity());
  object.m_deleted = true;
  if (object.m_changed) table.changed.remove(object);
  object.m_changed = false;
  if (object.m_inserted) {
    table.inserted.remove(object);
  } else {
    table.deleted.insert(object.m_id);
    table.objects.erase(object.m_id);
  }
  if (m_log) m_log->recordRemoval(object);
}

}  // namespace korvel::platform
