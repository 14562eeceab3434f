// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/PendingObjects.h"

#include <algorithm>
#include <iterator>

namespace korvel::platform {

void PendingObjects::add(ManagedObject& object) {
  object.m_place = m_objects.size();
  m_objects.push_back(&object);
}

void PendingObjects::remove(const ManagedObject& object) {
  m_objects.at(object.m_place) = nullptr;
  while (!m_objects.empty() && !m_objects.back()) m_objects.pop_back();
}

std::vector<ManagedObject*> PendingObjects::inCreationOrder() const {
  std::vector<ManagedObject*> sorted;
  std::ranges::copy_if(m_objects, std::back_inserter(sorted),
                       [](const ManagedObject* object) { return object != nullptr; });
  std::ranges::sort(sorted, {}, &ManagedObject::objectId);
  return sorted;
}

}  // namespace korvel::platform
