// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/ChangeLog.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/persistence/EntityDescription.h"
#include "platform/persistence/ManagedContext.h"
#include "platform/persistence/ManagedObject.h"

namespace korvel::platform {

AttributeChange::AttributeChange(ManagedObject* object) : m_object(object) {}

AttributeChange::~AttributeChange() = default;

ChangeLog::ChangeLog(ManagedContext& context, UserText title, std::uint32_t number)
    : m_context(context), m_title(std::move(title)), m_number(number) {}

ChangeLog::~ChangeLog() = default;

void ChangeLog::close() {
  m_open = false;
  m_attributes = {};
  m_made.shrink_to_fit();
  m_changes.shrink_to_fit();
}

bool ChangeLog::takeOn(ChangeLog& next) {
  if (m_open || next.m_open || !m_subject || m_subject != next.m_subject) return false;
  if (!m_made.empty() || !next.m_made.empty()) return false;
  m_title = std::move(next.m_title);
  m_kind = next.m_kind;
  m_changes.insert(m_changes.end(), std::make_move_iterator(next.m_changes.begin()),
                   std::make_move_iterator(next.m_changes.end()));
  m_uses.merge(next.m_uses);
  return true;
}

// ---- recording

bool ChangeLog::hasMade(const ManagedObject& object) const { return object.m_madeBy == m_number; }

void ChangeLog::recordInsertion(ManagedObject& object) {
  object.m_madeBy = m_number;
  object.m_placeAmongMade = static_cast<std::uint32_t>(m_made.size());
  m_made.emplace_back(&object);
}

// Filters make thousands of objects only to try things on. The order of those made does not matter,
// so that the last one can take the place of one that goes.
void ChangeLog::recordRemoval(ManagedObject& object) {
  if (!hasMade(object)) {
    recordUse(object);
    m_changes.emplace_back(Removal{&object});
    return;
  }
  const std::uint32_t place = object.m_placeAmongMade;
  object.m_madeBy = 0;
  std::swap(m_made[place], m_made.back());
  m_made[place]->m_placeAmongMade = place;
  m_made.pop_back();
}

void ChangeLog::recordTarget(ManagedObject& owner, const ToOneDescription& toOne) {
  recordUse(owner);
  m_changes.emplace_back(Retargeting{&owner, &toOne, toOne.slot(owner).m_target});
}

void ChangeLog::recordUse(const ManagedObject& object) {
  constexpr std::uint32_t kNobody = 0;
  if (object.m_madeBy != kNobody && object.m_madeBy != m_number) m_uses.insert(object.m_madeBy);
}

// ---- what others have to do with it

const ManagedObject& ChangeLog::objectOf(const Change& change) {
  if (const auto* target = std::get_if<Retargeting>(&change)) return *target->owner;
  if (const auto* removal = std::get_if<Removal>(&change)) return *removal->object;
  return std::get<std::unique_ptr<AttributeChange>>(change)->object();
}

bool ChangeLog::isOnlyAbout(const ChangeLog& other) const {
  return m_made.empty() && std::ranges::all_of(m_changes, [&](const Change& change) {
           return other.hasMade(objectOf(change));
         });
}

bool ChangeLog::deletesPartsOf(const std::unordered_set<std::uint32_t>& others) const {
  const auto isTheirs = [&](const ManagedObject* object) {
    return others.contains(object->m_madeBy);
  };
  return std::ranges::any_of(m_changes, [&](const Change& change) {
    const auto* removal = std::get_if<Removal>(&change);
    if (!removal) return false;
    ManagedObject& object = *removal->object;
    return isTheirs(&object) ||
           std::ranges::any_of(object.entity().members, [&](const MembersDescription& members) {
             return std::ranges::any_of(members.slot(object).m_members, isTheirs);
           });
  });
}

// ---- taking back and doing again

void ChangeLog::undo() {
  Touched touched;
  for (auto change = m_changes.rbegin(); change != m_changes.rend(); ++change) {
    if (auto* target = std::get_if<Retargeting>(&*change)) {
      exchange(*target, touched);
    } else if (auto* removal = std::get_if<Removal>(&*change)) {
      m_context.revive(*removal->object);
      touched.insert(removal->object);
    } else {
      exchange(*std::get<std::unique_ptr<AttributeChange>>(*change), touched);
    }
  }
  takeBackMade(touched);
  renew(touched);
}

void ChangeLog::redo() {
  Touched touched;
  bringBackMade(touched);
  for (Change& change : m_changes) {
    if (auto* target = std::get_if<Retargeting>(&change))
      exchange(*target, touched);
    else if (auto* removal = std::get_if<Removal>(&change))
      m_context.remove(*removal->object);
    else
      exchange(*std::get<std::unique_ptr<AttributeChange>>(change), touched);
  }
  renew(touched);
}

void ChangeLog::exchange(Retargeting& change, Touched& touched) {
  Ref<ManagedObject> before = change.toOne->slot(*change.owner).m_target;
  m_context.retarget(*change.owner, *change.toOne, change.other);
  for (ManagedObject* object : {change.owner.get(), before.get(), change.other.get()})
    if (object) touched.insert(object);
  change.other = std::move(before);
}

void ChangeLog::exchange(AttributeChange& change, Touched& touched) {
  change.exchange();
  m_context.changed(change.object());
  touched.insert(&change.object());
}

template <class Act>
void ChangeLog::forEachTarget(ManagedObject& object, Act act) {
  for (const ToOneDescription& toOne : object.entity().toOnes)
    if (toOne.inverseMembers) act(toOne);
}

// All targets are noted before the first object goes, since objects that go take each other's
// along.
void ChangeLog::takeBackMade(Touched& touched) {
  std::erase_if(m_made, [](const auto& object) { return object->isDeleted(); });
  for (const auto& object : m_made)
    forEachTarget(*object, [&](const ToOneDescription& toOne) {
      m_targetsOfMade.push_back(toOne.slot(*object).m_target);
      if (m_targetsOfMade.back()) touched.insert(m_targetsOfMade.back());
    });
  for (auto object = m_made.rbegin(); object != m_made.rend(); ++object) m_context.remove(**object);
}

void ChangeLog::bringBackMade(Touched& touched) {
  for (const auto& object : m_made) m_context.revive(*object);
  auto target = m_targetsOfMade.begin();
  for (const auto& object : m_made) {
    touched.insert(object);
    forEachTarget(*object, [&](const ToOneDescription& toOne) {
      if (*target) touched.insert(*target);
      m_context.retarget(*object, toOne, *target++);
    });
  }
  m_targetsOfMade = {};
}

void ChangeLog::renew(const Touched& touched) {
  for (ManagedObject* object : touched)
    if (!object->isDeleted()) object->forgetCaches();
}

}  // namespace korvel::platform
