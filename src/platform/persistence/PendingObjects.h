// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "platform/persistence/ManagedObject.h"

namespace korvel::platform {

/// The objects of one entity that wait for the next save. An object is in one such list at most and
/// knows its place there, so that adding and removing take constant time: a song command creates
/// thousands of objects and deletes most of them before it saves.
class PendingObjects {
 public:
  void add(ManagedObject& object);
  /// The object must have been added.
  void remove(const ManagedObject& object);
  void clear() { m_objects.clear(); }
  /// Null when there is none of that id.
  ManagedObject* find(std::int64_t id) const;

  bool empty() const { return m_objects.empty(); }
  std::vector<ManagedObject*> inCreationOrder() const;

 private:
  std::vector<Ref<ManagedObject>> m_objects;  ///< Null where one was removed; never at the end.
};

}  // namespace korvel::platform
