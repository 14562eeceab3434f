// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/ManagedContext.h"

#include <algorithm>
#include <limits>

#include "platform/persistence/ChangeLog.h"
#include "platform/persistence/PendingObjects.h"
#include "platform/persistence/StoreError.h"
#include "platform/persistence/StoreFile.h"
#include "platform/persistence/UndoManager.h"

namespace korvel::platform {
namespace {

constexpr std::int64_t kNoId = 0;
constexpr std::int64_t kNoNewId = std::numeric_limits<std::int64_t>::max();

bool olderThan(const ManagedObject* member, std::int64_t id) { return member->objectId() < id; }

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

int bindRow(ManagedObject& object, SqliteStatement& statement, int parameter) {
  for (const AttributeDescription& attribute : object.entity().attributes)
    attribute.bind(object, statement, parameter++);
  return parameter;
}

}  // namespace

/// A relationship that no inverse tells of.
struct ManagedContext::Referrer {
  const EntityDescription& entity;
  const ToOneDescription& toOne;
};

/// What the context knows of one entity's rows.
struct ManagedContext::Table {
  explicit Table(const EntityDescription& description)
      : entity(description),
        select("SELECT " + columnList(description) + " FROM " + sqlName(description.name)),
        insert(insertSql(description)),
        update(updateSql(description)),
        remove("DELETE FROM " + sqlName(description.name) + " WHERE id = ?") {}

  const EntityDescription& entity;
  const std::string select, insert, update, remove;
  /// The objects that have a row. New ones are in `inserted` alone, since most never get one.
  std::unordered_map<std::int64_t, Ref<ManagedObject>> objects;
  PendingObjects inserted, changed;
  std::vector<Referrer> referrers;  ///< That point at this entity.
  std::unordered_set<std::int64_t> deleted;
  std::int64_t lastId = -1;
  std::int64_t firstNewId = kNoNewId;    ///< No id in `inserted` is lower.
  std::int64_t highestReferred = kNoId;  ///< Of the ids that rows name.
};

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

// ---- creating and deleting

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
                       "the store is damaged: " + table.entity.name + " has no free ids");
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

void ManagedContext::emptyRelationships(ManagedObject& object) {
  for (const ToOneDescription& toOne : object.entity().toOnes)
    if (toOne.inverseMembers) relate(object, toOne, nullptr);
  for (const MembersDescription& members : object.entity().members) {
    load(object, members);
    const auto snapshot = members.slot(object).m_members;
    for (ManagedObject* member : snapshot) relate(*member, *members.inverseToOne, nullptr);
  }
}

void ManagedContext::forgetRelationships(ManagedObject& object) {
  for (const ToOneDescription& toOne : object.entity().toOnes)
    toOne.slot(object).m_target = nullptr;
  for (const MembersDescription& members : object.entity().members)
    members.slot(object).m_members.clear();
}

// ---- relating

void ManagedContext::changed(ManagedObject& object) {
  if (object.m_inserted || object.m_changed || object.m_deleted) return;
  object.m_changed = true;
  tableOf(object.entity()).changed.add(object);
}

void ManagedContext::relate(ManagedObject& owner, const ToOneDescription& toOne,
                            ManagedObject* target) {
  if (owner.m_fault) fire(owner);
  ToOneSlot& slot = toOne.slot(owner);
  const Ref<ManagedObject> before = slot.m_target;
  if (before.get() == target) return;
  if (ChangeLog* log = owner.willChange()) log->recordTarget(owner, toOne);
  const MembersDescription* inverse = toOne.inverseMembers;
  if (before && inverse) detach(inverse->slot(*before), owner);
  if (target && inverse && !inverse->toMany && !target->m_deleted)
    relateInverse(*target, *inverse, nullptr);
  slot.m_target = target;
  if (target && inverse && !target->m_deleted) attach(inverse->slot(*target), owner);
}

void ManagedContext::relateInverse(ManagedObject& owner, const MembersDescription& members,
                                   ManagedObject* target) {
  load(owner, members);
  const auto before = members.slot(owner).m_members;
  for (ManagedObject* member : before)
    if (member != target) relate(*member, *members.inverseToOne, nullptr);
  if (target && !target->m_deleted) relate(*target, *members.inverseToOne, &owner);
}

void ManagedContext::attach(MembersSlot& slot, ManagedObject& member) {
  auto& all = slot.m_members;
  const auto place = std::lower_bound(all.begin(), all.end(), member.m_id, olderThan);
  if (place != all.end() && *place == &member) return;
  all.insert(place, &member);
}

void ManagedContext::detach(MembersSlot& slot, ManagedObject& member) {
  auto& all = slot.m_members;
  const auto place = std::lower_bound(all.begin(), all.end(), member.m_id, olderThan);
  if (place != all.end() && *place == &member) all.erase(place);
}

// ---- undoing

ChangeLog* ManagedContext::logFor(const ManagedObject& object) const {
  return m_log && !m_log->hasMade(object) ? m_log : nullptr;
}

/// A deleted object gets its row back, at the next save if the file has lost it already.
void ManagedContext::revive(ManagedObject& object) {
  if (!object.m_deleted) return;
  object.m_deleted = false;
  Table& table = tableOf(object.entity());
  if (table.deleted.erase(object.m_id) > 0) {
    object.m_inserted = false;
    table.objects.emplace(object.m_id, &object);
    changed(object);
    return;
  }
  object.m_inserted = true;
  table.firstNewId = table.inserted.empty() ? object.m_id : std::min(table.firstNewId, object.m_id);
  table.inserted.add(object);
}

/// Unlike `relate` without consequences for others: those have entries of their own.
void ManagedContext::retarget(ManagedObject& owner, const ToOneDescription& toOne,
                              ManagedObject* target) {
  if (owner.m_deleted) return;
  ToOneSlot& slot = toOne.slot(owner);
  const MembersDescription* inverse = toOne.inverseMembers;
  if (target && target->m_deleted && inverse) target = nullptr;
  if (slot.m_target && inverse) detach(inverse->slot(*slot.m_target), owner);
  slot.m_target = target;
  if (target && inverse) attach(inverse->slot(*target), owner);
  changed(owner);
}

// Rows that point at a deleted one lose that in the file, though nothing is told them in memory. So
// that they are written again when it comes back, they are recorded as if they had changed.
void ManagedContext::recordReferrers(ManagedObject& object) {
  for (const Referrer& referrer : tableOf(object.entity()).referrers) {
    if (!object.m_inserted) recordReferrersOfRow(object, referrer);
    recordUnsavedReferrers(object, referrer);
  }
}

void ManagedContext::recordReferrersOfRow(const ManagedObject& object, const Referrer& referrer) {
  std::vector<std::int64_t> ids;
  SqliteStatement& select = statement("SELECT id FROM " + sqlName(referrer.entity.name) +
                                      " WHERE " + sqlName(referrer.toOne.name) + " = ?");
  select.bind(0, object.m_id);
  while (select.step()) ids.push_back(select.integer(0));
  select.reset();
  for (const std::int64_t id : ids) {
    ManagedObject* owner = byId(referrer.entity, id);
    if (!owner) continue;
    if (owner->m_fault) fire(*owner);
    if (logFor(*owner)) m_log->recordTarget(*owner, referrer.toOne);
  }
}

void ManagedContext::recordUnsavedReferrers(const ManagedObject& object, const Referrer& referrer) {
  const Table& table = tableOf(referrer.entity);
  for (const PendingObjects* pending : {&table.inserted, &table.changed})
    for (ManagedObject* owner : pending->inCreationOrder())
      if (referrer.toOne.slot(*owner).m_target.get() == &object && logFor(*owner))
        m_log->recordTarget(*owner, referrer.toOne);
}

// ---- reading

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

// ---- writing

bool ManagedContext::hasChanges() const {
  return std::ranges::any_of(m_tables, [](const auto& table) {
    return !table->inserted.empty() || !table->changed.empty() || !table->deleted.empty();
  });
}

void ManagedContext::save() {
  if (!hasChanges()) return;
  if (!m_checked) StoreFile::requireSound(*m_store);
  m_checked = true;
  SqliteTransaction change(*m_store);
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
  table.firstNewId = kNoNewId;
  table.changed.clear();
  table.deleted.clear();
}

}  // namespace korvel::platform
