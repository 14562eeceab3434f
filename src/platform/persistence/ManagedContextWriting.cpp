// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "platform/persistence/ManagedContextTable.h"
#include "platform/sqlite/StoreCheck.h"
#include "platform/sqlite/StoreFile.h"

namespace korvel::platform {
namespace {

int bindRow(ManagedObject& object, SqliteStatement& statement, int parameter) {
  for (const AttributeDescription& attribute : object.entity().attributes)
    attribute.bind(object, statement, parameter++);
  return parameter;
}

}  // namespace

bool ManagedContext::hasChanges() const {
  return std::ranges::any_of(m_tables, [](const auto& table) {
    return !table->inserted.empty() || !table->changed.empty() || !table->deleted.empty();
  });
}

void ManagedContext::checkAhead() {
  if (!m_checked && !m_check) m_check = std::make_unique<StoreCheck>(m_store->file());
}

bool ManagedContext::isBeingChecked() const { return m_check && !m_check->isOver(); }

/// A store in which damage was found is looked at again by the next try.
void ManagedContext::requireSound() {
  if (m_checked) return;
  if (const auto check = std::move(m_check))
    check->requireSound();
  else
    StoreFile::requireSound(*m_store);
  StoreFile::renewSums(*m_store);
  m_checked = true;
}

void ManagedContext::save() {
  if (!hasChanges()) return;
  requireSound();
  SqliteTransaction change(*m_store);
  // Has the first page in the journal, which tells whose journal it is (`StoreJournal`).
  m_store->execute("PRAGMA user_version = " +
                   std::to_string(m_store->integer("PRAGMA user_version")));
  for (const auto& table : m_tables) {
    writeInserted(*table);
    writeChanged(*table);
  }
  // The model names owners before what they own. A row goes easier when none points at it any more.
  for (auto table = m_tables.rbegin(); table != m_tables.rend(); ++table) writeDeleted(**table);
  change.commit();
  for (const auto& table : m_tables) markSaved(*table);
}

void ManagedContext::writeInserted(Table& table) {
  if (table.inserted.empty()) return;
  SqliteStatement& insert = statement(table.insert);
  for (ManagedObject* object : table.inserted.inCreationOrder()) {
    insert.bind(0, object->m_id);
    int parameter = bindRow(*object, insert, 1);
    for (const ToOneDescription& toOne : table.entity.toOnes)
      bindTarget(toOne.slot(*object), insert, parameter++);
    insert.run();
  }
}

void ManagedContext::writeChanged(Table& table) {
  if (table.changed.empty()) return;
  SqliteStatement& update = statement(table.update);
  for (ManagedObject* object : table.changed.inCreationOrder()) {
    int parameter = bindRow(*object, update, 0);
    for (const ToOneDescription& toOne : table.entity.toOnes)
      bindTarget(toOne.slot(*object), update, parameter++);
    update.bind(parameter, object->m_id);
    update.run();
  }
}

// A reference to a deleted object stays readable in memory; the store holds none.
void ManagedContext::bindTarget(const ToOneSlot& slot, SqliteStatement& statement, int parameter) {
  const ManagedObject* target = slot.m_target.get();
  if (target && !target->m_deleted)
    statement.bind(parameter, target->m_id);
  else
    statement.bindNull(parameter);
}

void ManagedContext::writeDeleted(Table& table) {
  if (table.deleted.empty()) return;
  SqliteStatement& remove = statement(table.remove);
  for (const std::int64_t id : table.deleted) {
    remove.bind(0, id);
    remove.run();
  }
}

void ManagedContext::markSaved(Table& table) {
  for (ManagedObject* object : table.inserted.inCreationOrder()) {
    object->m_inserted = false;
    table.objects.emplace(object->m_id, object);
  }
  for (ManagedObject* object : table.changed.inCreationOrder()) object->m_changed = false;
  table.inserted.clear();
  table.firstNewId = Table::kNoNewId;
  table.changed.clear();
  table.deleted.clear();
}

}  // namespace korvel::platform
