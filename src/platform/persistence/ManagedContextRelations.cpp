// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "platform/persistence/ChangeLog.h"
#include "platform/persistence/ManagedContextTable.h"

namespace korvel::platform {
namespace {

bool olderThan(const ManagedObject* member, std::int64_t id) { return member->objectId() < id; }

}  // namespace

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
  if (m_log && target) m_log->recordUse(*target);
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

}  // namespace korvel::platform
