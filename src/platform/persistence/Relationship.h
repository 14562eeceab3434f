// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

#include "platform/persistence/Ref.h"

namespace korvel::platform {

class ManagedObject;

/// The stored side of a to-one relationship.
class ToOneSlot {
 private:
  friend class ChangeLog;
  friend class ManagedObject;
  friend class ManagedContext;
  Ref<ManagedObject> m_target;
};

/// A relationship that the other side stores: to-many, or the far end of a one-to-one.
/// Members are ordered by creation, which is also the order of the rows after a reload.
class MembersSlot {
 private:
  friend class ChangeLog;
  friend class ManagedObject;
  friend class ManagedContext;
  template <class T>
  friend class Members;
  /// While not loaded, only those members that were attached in memory. The context owns them, and
  /// takes out those that are deleted.
  std::vector<ManagedObject*> m_members;
  bool m_loaded = false;
};

template <class T>
class ToOne : public ToOneSlot {};

template <class T>
class ToMany : public MembersSlot {};

/// The far end of a one-to-one relationship, whose column is in the other entity's table.
template <class T>
class ToOneInverse : public MembersSlot {};

/// The members of a to-many relationship in creation order. Valid until the relationship changes;
/// take a snapshot before deleting members.
template <class T>
class Members {
 public:
  explicit Members(const MembersSlot& slot) : m_members(slot.m_members) {}

  class Iterator {
   public:
    using Base = std::vector<ManagedObject*>::const_iterator;
    explicit Iterator(Base at) : m_at(at) {}
    T* operator*() const { return static_cast<T*>(*m_at); }
    Iterator& operator++() {
      ++m_at;
      return *this;
    }
    bool operator==(const Iterator&) const = default;

   private:
    Base m_at;
  };

  Iterator begin() const { return Iterator(m_members.begin()); }
  Iterator end() const { return Iterator(m_members.end()); }
  std::size_t size() const { return m_members.size(); }
  bool empty() const { return m_members.empty(); }
  /// Out of range: std::out_of_range.
  T* at(std::size_t index) const { return static_cast<T*>(m_members.at(index)); }
  std::vector<Ref<T>> snapshot() const {
    std::vector<Ref<T>> copy;
    copy.reserve(size());
    for (T* member : *this) copy.emplace_back(member);
    return copy;
  }

 private:
  const std::vector<ManagedObject*>& m_members;
};

}  // namespace korvel::platform
