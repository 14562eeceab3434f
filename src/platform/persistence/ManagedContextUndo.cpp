// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "platform/persistence/ChangeLog.h"
#include "platform/persistence/ManagedContextTable.h"

namespace korvel::platform {

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

}  // namespace korvel::platform
