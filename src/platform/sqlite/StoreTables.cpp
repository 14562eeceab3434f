// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/StoreTables.h"

#include <algorithm>

#include "platform/persistence/ObjectModel.h"
#include "platform/sqlite/Sqlite.h"

namespace korvel::platform {
namespace {

std::string columnDefinition(const AttributeDescription& attribute) {
  return sqlName(attribute.name) + " " + attribute.columnType;
}

std::string columnDefinition(const ToOneDescription& toOne) {
  return sqlName(toOne.name) + " INTEGER REFERENCES " + sqlName(toOne.target) +
         "(id) ON DELETE SET NULL DEFERRABLE INITIALLY DEFERRED";
}

std::string tableDefinition(const EntityDescription& entity) {
  std::string columns = "id INTEGER PRIMARY KEY";
  for (const AttributeDescription& attribute : entity.attributes)
    columns += ", " + columnDefinition(attribute);
  for (const ToOneDescription& toOne : entity.toOnes) columns += ", " + columnDefinition(toOne);
  return "CREATE TABLE " + sqlName(entity.name) + "(" + columns + ")";
}

std::string indexName(const EntityDescription& entity, const ToOneDescription& toOne) {
  return sqlName(entity.name + "_" + toOne.name);
}

std::string indexDefinition(const EntityDescription& entity, const ToOneDescription& toOne) {
  return "CREATE INDEX IF NOT EXISTS " + indexName(entity, toOne) + " ON " + sqlName(entity.name) +
         "(" + sqlName(toOne.name) + ")";
}

bool contains(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

/// The rows of an entity without owners that none of its members points at.
std::string unshared(const EntityDescription& entity) {
  std::string text = sqlName(entity.name) + " AS shared WHERE ";
  for (const MembersDescription& members : entity.members)
    text += (&members == &entity.members.front() ? "" : " AND ") +
            ("NOT EXISTS (SELECT 1 FROM " + sqlName(members.target) + " WHERE " +
             sqlName(members.inverse) + " = shared.id)");
  return text;
}

/// The rows of an entity that no owner reaches. The first owner's index finds the few candidates.
std::string unreachable(const EntityDescription& entity) {
  std::string condition;
  std::string index;
  for (const ToOneDescription& toOne : entity.toOnes) {
    if (!toOne.inverseMembers) continue;
    if (index.empty()) index = indexName(entity, toOne);
    condition += (condition.empty() ? "" : " AND ") + sqlName(toOne.name) + " IS NULL";
  }
  if (index.empty()) return unshared(entity);
  return sqlName(entity.name) + " INDEXED BY " + index + " WHERE " + condition;
}

}  // namespace

std::vector<std::string> StoreTables::missingParts() const {
  std::vector<std::string> statements;
  const auto tables = m_store.column("SELECT name FROM sqlite_schema WHERE type = 'table'");
  const auto indexes = m_store.column("SELECT name FROM sqlite_schema WHERE type = 'index'");
  for (const EntityDescription& entity : m_model.entities()) {
    if (!contains(tables, entity.name)) {
      statements.push_back(tableDefinition(entity));
    } else {
      const auto columns =
          m_store.column("SELECT name FROM pragma_table_info('" + entity.name + "')");
      const auto add = [&](const auto& part) {
        if (!contains(columns, part.name))
          statements.push_back("ALTER TABLE " + sqlName(entity.name) + " ADD COLUMN " +
                               columnDefinition(part));
      };
      std::ranges::for_each(entity.attributes, add);
      std::ranges::for_each(entity.toOnes, add);
    }
    for (const ToOneDescription& toOne : entity.toOnes)
      if (!contains(indexes, entity.name + "_" + toOne.name))
        statements.push_back(indexDefinition(entity, toOne));
  }
  return statements;
}

std::vector<std::string> StoreTables::removals() const {
  std::vector<std::string> found;
  for (const EntityDescription& entity : m_model.entities())
    if (!entity.root && m_store.integer("SELECT EXISTS(SELECT 1 FROM " + unreachable(entity) + ")"))
      found.push_back("DELETE FROM " + unreachable(entity));
  return found;
}

}  // namespace korvel::platform
