// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/ObjectModel.h"

#include <algorithm>
#include <stdexcept>

namespace korvel::platform {
namespace {

template <class List>
auto* named(List& list, std::string_view name) {
  const auto found = std::ranges::find_if(list, [&](auto& entry) { return entry.name == name; });
  if (found == list.end()) throw std::out_of_range("no relationship named " + std::string(name));
  return &*found;
}

}  // namespace

ObjectModel::ObjectModel(std::vector<EntityDescription> entities)
    : m_entities(std::move(entities)) {
  for (std::size_t i = 0; i < m_entities.size(); ++i) m_entities[i].index = i;
  for (EntityDescription& entity : m_entities) link(entity);
}

const EntityDescription& ObjectModel::entity(std::string_view name) const {
  const auto found =
      std::ranges::find_if(m_entities, [&](const auto& entry) { return entry.name == name; });
  if (found == m_entities.end()) throw std::out_of_range("no entity named " + std::string(name));
  return *found;
}

void ObjectModel::link(EntityDescription& entity) {
  for (ToOneDescription& toOne : entity.toOnes) {
    toOne.targetEntity = &this->entity(toOne.target);
    if (!toOne.inverse.empty())
      toOne.inverseMembers = named(toOne.targetEntity->members, toOne.inverse);
  }
  for (MembersDescription& members : entity.members) {
    members.targetEntity = &this->entity(members.target);
    members.inverseToOne = named(members.targetEntity->toOnes, members.inverse);
  }
}

}  // namespace korvel::platform
