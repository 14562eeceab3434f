// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/persistence/ManagedContext.h"
#include "platform/persistence/PendingObjects.h"

namespace korvel::platform {

/// A relationship without an inverse, so that the objects it points at do not know of it.
struct ManagedContext::Referrer {
  const EntityDescription& entity;
  const ToOneDescription& toOne;
};

/// What the context knows of one entity's rows. Only the context's own source files see it.
struct ManagedContext::Table {
  explicit Table(const EntityDescription& description);
  /// Stands for "no new object": it is above the ids of all objects.
  static constexpr std::int64_t kNoNewId = std::numeric_limits<std::int64_t>::max();

  const EntityDescription& entity;
  const std::string select, insert, update, remove;
  /// The objects that have a row. New ones are in `inserted` alone, since most never get one.
  std::unordered_map<std::int64_t, Ref<ManagedObject>> objects;
  PendingObjects inserted, changed;
  std::vector<Referrer> referrers;  ///< Relationships without an inverse that point at this entity.
  std::unordered_set<std::int64_t> deleted;
  std::int64_t lastId = -1;
  std::int64_t firstNewId = kNoNewId;  ///< No id in `inserted` is lower.
  std::int64_t highestReferred = 0;    ///< The highest id that a row names.
};

}  // namespace korvel::platform
