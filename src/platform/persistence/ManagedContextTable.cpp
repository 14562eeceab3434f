// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/ManagedContextTable.h"

namespace korvel::platform {
namespace {

std::string columnList(const EntityDescription& entity) {
  std::string columns = "id";
  for (const AttributeDescription& attribute : entity.attributes)
    if (attribute.fetch == Fetch::withRow) columns += ", " + sqlName(attribute.name);
  for (const ToOneDescription& toOne : entity.toOnes) columns += ", " + sqlName(toOne.name);
  return columns;
}

std::string insertSql(const EntityDescription& entity) {
  std::string columns = "id";
  std::string places = "?";
  for (const AttributeDescription& attribute : entity.attributes) {
    columns += ", " + sqlName(attribute.name);
    places += ", ?";
  }
  for (const ToOneDescription& toOne : entity.toOnes) {
    columns += ", " + sqlName(toOne.name);
    places += ", ?";
  }
  return "INSERT INTO " + sqlName(entity.name) + "(" + columns + ") VALUES(" + places + ")";
}

std::string updateSql(const EntityDescription& entity) {
  std::string changes;
  for (const AttributeDescription& attribute : entity.attributes)
    changes += (changes.empty() ? "" : ", ") + sqlName(attribute.name) + " = ?";
  for (const ToOneDescription& toOne : entity.toOnes)
    changes += (changes.empty() ? "" : ", ") + sqlName(toOne.name) + " = ?";
  return "UPDATE " + sqlName(entity.name) + " SET " + changes + " WHERE id = ?";
}

}  // namespace

ManagedContext::Table::Table(const EntityDescription& description)
    : entity(description),
      select("SELECT " + columnList(description) + " FROM " + sqlName(description.name)),
      insert(insertSql(description)),
      update(updateSql(description)),
      remove("DELETE FROM " + sqlName(description.name) + " WHERE id = ?") {}

}  // namespace korvel::platform
