// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

#include "platform/persistence/EntityDescription.h"

namespace korvel::platform {

/// All entities of a store, with their relationships linked to each other.
class ObjectModel {
 public:
  /// Every relationship's target and inverse must be among the entities.
  explicit ObjectModel(std::vector<EntityDescription> entities);
  ObjectModel(const ObjectModel&) = delete;
  ObjectModel& operator=(const ObjectModel&) = delete;

  const std::vector<EntityDescription>& entities() const { return m_entities; }
  /// Throws std::out_of_range for an unknown name.
  const EntityDescription& entity(std::string_view name) const;

 private:
  void link(EntityDescription& entity);
  std::vector<EntityDescription> m_entities;
};

}  // namespace korvel::platform
