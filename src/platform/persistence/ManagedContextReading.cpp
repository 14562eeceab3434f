// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "platform/persistence/ManagedContextTable.h"

namespace korvel::platform {

ManagedObject* ManagedContext::byId(const EntityDescription& entity, std::int64_t id) {
  Table& table = tableOf(entity);
  const auto known = table.objects.find(id);
  if (known != table.objects.end()) return known->second.get();
  if (table.deleted.contains(id)) return nullptr;
  if (id >= table.firstNewId)
    if (ManagedObject* object = table.inserted.find(id)) return object;
  const Ref<ManagedObject> object = make(entity, id);
  object->m_fault = true;
  object->m_demanded = false;
  table.highestReferred = std::max(table.highestReferred, id);
  return table.objects.emplace(id, object).first->second.get();
}

ManagedObject* ManagedContext::materialise(const EntityDescription& entity,
                                           const SqliteStatement& row) {
  ManagedObject* object = byId(entity, row.integer(0));
  if (object && object->m_fault) readRow(*object, row);
  return object;
}

void ManagedContext::readRow(ManagedObject& object, const SqliteStatement& row) {
  int column = 1;
  bool whole = true;
  for (const AttributeDescription& attribute : object.entity().attributes) {
    if (attribute.fetch == Fetch::withRow)
      attribute.read(object, row, column++);
    else
      whole = false;
  }
  for (const ToOneDescription& toOne : object.entity().toOnes) {
    if (!row.isNull(column))
      toOne.slot(object).m_target = byId(*toOne.targetEntity, row.integer(column));
    ++column;
  }
  object.m_fault = false;
  object.m_demanded = whole;
}

void ManagedContext::fire(ManagedObject& object) {
  SqliteStatement& select = statement(tableOf(object.entity()).select + " WHERE id = ?");
  select.bind(0, object.m_id);
  if (select.step()) readRow(object, select);
  object.m_fault = false;
  select.reset();
}

void ManagedContext::demand(ManagedObject& object) {
  object.m_demanded = true;
  for (const AttributeDescription& attribute : object.entity().attributes) {
    if (attribute.fetch == Fetch::withRow) continue;
    SqliteStatement& select = statement("SELECT " + sqlName(attribute.name) + " FROM " +
                                        sqlName(object.entity().name) + " WHERE id = ?");
    select.bind(0, object.m_id);
    if (select.step()) attribute.read(object, select, 0);
    select.reset();
  }
}

ManagedContext::Owners ManagedContext::readRows(const EntityDescription& entity,
                                                const std::string& where,
                                                const std::int64_t* parameter) {
  Owners rows;
  SqliteStatement& select = statement(tableOf(entity).select + where + " ORDER BY id");
  if (parameter) select.bind(0, *parameter);
  while (select.step())
    if (ManagedObject* object = materialise(entity, select)) rows.push_back(object);
  select.reset();
  return rows;
}

// Members of members, such as the tones of the holds of a song's chords, come in one statement for
// each level instead of one for each object.
void ManagedContext::readAlong(const EntityDescription& entity, const std::string& where,
                               const std::int64_t* parameter, const Owners& owners) {
  for (const MembersDescription& members : entity.members) {
    if (!members.eager) continue;
    const std::string below = " WHERE " + sqlName(members.inverse) + " IN (SELECT id FROM " +
                              sqlName(entity.name) + where + ")";
    const Owners children = readRows(*members.targetEntity, below, parameter);
    adopt(members, owners, children);
    readAlong(*members.targetEntity, below, parameter, children);
  }
}

void ManagedContext::load(ManagedObject& owner, const MembersDescription& members) {
  if (members.slot(owner).m_loaded) return;
  if (members.loading == Loading::allOwners) {
    Owners owners;
    for (const auto& [id, object] : tableOf(owner.entity()).objects) owners.push_back(object.get());
    adopt(members, owners, readRows(*members.targetEntity, "", nullptr));
    return;
  }
  const std::string where = " WHERE " + sqlName(members.inverse) + " = ?";
  const Owners children = readRows(*members.targetEntity, where, &owner.m_id);
  adopt(members, {&owner}, children);
  readAlong(*members.targetEntity, where, &owner.m_id, children);
}

// A row says what was saved; the object says what holds now. Only members that still point at their
// owner are taken, next to those that were attached in memory before.
void ManagedContext::adopt(const MembersDescription& members, const Owners& owners,
                           const Owners& children) {
  for (ManagedObject* child : children) {
    ManagedObject* owner = members.inverseToOne->slot(*child).m_target;
    if (owner && !members.slot(*owner).m_loaded) attach(members.slot(*owner), *child);
  }
  for (ManagedObject* owner : owners) members.slot(*owner).m_loaded = true;
}

std::vector<Ref<ManagedObject>> ManagedContext::fetch(std::string_view entityName) {
  const EntityDescription& entity = m_model.entity(entityName);
  std::vector<Ref<ManagedObject>> objects;
  for (ManagedObject* object : readRows(entity, "", nullptr)) objects.emplace_back(object);
  for (ManagedObject* object : tableOf(entity).inserted.inCreationOrder())
    objects.emplace_back(object);
  // An object whose deletion was undone has lost its row, but not its age.
  std::ranges::sort(objects, {}, [](const auto& object) { return object->objectId(); });
  return objects;
}

}  // namespace korvel::platform
