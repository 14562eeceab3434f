// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/PendingObjects.h"

#include <algorithm>
#include <iterator>

namespace korvel::platform {

void PendingObjects::add(ManagedObject& object) {
  object.m_place = m_objects.size();
  m_objects.emplace_back(&object);
}

void PendingObjects::remove(const ManagedObject& object) {
  m_objects.at(object.m_place) = nullptr;
  while (!m_objects.empty() && !m_objects.back()) m_objects.pop_back();
}

ManagedObject* PendingObjects::find(std::int64_t id) const {
  const auto found = std::ranges::find_if(
      m_objects, [id](const ManagedObject* object) { return object && object->objectId() == id; });
  return found == m_objects.end() ? nullptr : found->get();
}

std::vector<ManagedObject*> PendingObjects::inCreationOrder() const {
  std::vector<ManagedObject*> sorted;
  std::ranges::copy_if(m_objects, std::back_inserter(sorted),
                       [](const ManagedObject* object) { return object != nullptr; });
  std::ranges::sort(sorted, {}, &ManagedObject::objectId);
  return sorted;
}

}  // namespace korvel::platform
