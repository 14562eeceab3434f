// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/ManagedObject.h"

#include <algorithm>

#include "platform/persistence/EntityDescription.h"
#include "platform/persistence/ManagedContext.h"

namespace korvel::platform {
namespace {

// Reading a row on first use does not change what the object means, so it is allowed on const ones.
ManagedObject& writable(const ManagedObject& object) { return const_cast<ManagedObject&>(object); }

template <class Descriptions, class Slot>
const auto& descriptionOf(const Descriptions& descriptions, const ManagedObject& object,
                          const Slot& slot) {
  return *std::ranges::find_if(descriptions, [&](const auto& description) {
    return &description.slot(writable(object)) == &slot;
  });
}

}  // namespace

ManagedObject* ManagedObject::firstOf(const MembersSlot& slot) {
  return slot.m_members.empty() ? nullptr : slot.m_members.front();
}

void ManagedObject::fire() const {
  if (m_context) m_context->fire(writable(*this));
}

void ManagedObject::demand() const {
  if (m_context) m_context->demand(writable(*this));
}

ChangeLog* ManagedObject::willChange() {
  if (!m_context || m_deleted) return nullptr;
  if (m_fault) fire();
  if (!m_demanded) demand();
  m_context->changed(*this);
  return m_context->logFor(*this);
}

const MembersSlot& ManagedObject::loaded(const MembersSlot& slot) const {
  if (!slot.m_loaded && m_context && !m_deleted)
    m_context->load(writable(*this), descriptionOf(m_entity->members, *this, slot));
  return slot;
}

void ManagedObject::setTarget(ToOneSlot& slot, ManagedObject* target) {
  if (!m_context || m_deleted) return;
  m_context->relate(*this, descriptionOf(m_entity->toOnes, *this, slot), target);
}

void ManagedObject::setTarget(MembersSlot& slot, ManagedObject* target) {
  if (!m_context || m_deleted) return;
  m_context->relateInverse(*this, descriptionOf(m_entity->members, *this, slot), target);
}

}  // namespace korvel::platform
