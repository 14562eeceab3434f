// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "platform/persistence/Attribute.h"
#include "platform/persistence/ChangeLog.h"
#include "platform/persistence/Ref.h"
#include "platform/persistence/Relationship.h"

namespace korvel::platform {

class ManagedContext;
struct EntityDescription;

/// An object of the stored graph: one row of its entity's table, and one object per row.
///
/// The context owns it. Others hold a Ref where they must outlive a deletion: a deleted object's
/// attributes stay readable, its relationships are empty. Rows are read on first use, so every
/// access goes through the operations below. Main thread only.
class ManagedObject : public Counted {
 public:
  /// Unique among the objects of its entity and rising with every creation.
  std::int64_t objectId() const { return m_id; }
  const EntityDescription& entity() const { return *m_entity; }
  bool isDeleted() const { return m_deleted; }
  /// Null once the context is gone. Of a deleted object, not to be asked for after that.
  ManagedContext* context() const { return m_context; }

  /// Drops what was computed from the values and the members, here and in the owners: they changed
  /// other than by the operations that keep it in step.
  virtual void forgetCaches() {}

 protected:
  template <class T>
  const T& read(const Attribute<T>& attribute) const {
    if (m_fault) fire();
    return attribute.m_value;
  }
  /// For attributes that are not part of the row's first read.
  template <class T>
  const T& readOnDemand(const Attribute<T>& attribute) const {
    if (!m_demanded) demand();
    return attribute.m_value;
  }
  template <class T>
  bool has(const Attribute<T>& attribute) const {
    if (m_fault) fire();
    return attribute.m_set;
  }
  template <class T>
  bool hasOnDemand(const Attribute<T>& attribute) const {
    if (!m_demanded) demand();
    return attribute.m_set;
  }
  template <class T>
  void assign(Attribute<T>& attribute, std::type_identity_t<T> value) {
    willChange(attribute);
    attribute.m_value = std::move(value);
    attribute.m_set = true;
  }
  /// Changes a value in place.
  template <class T>
  T& mutate(Attribute<T>& attribute) {
    willChange(attribute);
    attribute.m_set = true;
    return attribute.m_value;
  }
  template <class T>
  void unset(Attribute<T>& attribute) {
    willChange(attribute);
    attribute.m_value = T{};
    attribute.m_set = false;
  }

  template <class T>
  T* target(const ToOne<T>& slot) const {
    if (m_fault) fire();
    return static_cast<T*>(targetOf(slot));
  }
  template <class T>
  T* target(const ToOneInverse<T>& slot) const {
    return static_cast<T*>(firstOf(loaded(slot)));
  }
  template <class T>
  void relate(ToOne<T>& slot, T* target) {
    setTarget(slot, target);
  }
  template <class T>
  void relate(ToOneInverse<T>& slot, T* target) {
    setTarget(slot, target);
  }
  template <class T>
  Members<T> members(const ToMany<T>& slot) const {
    return Members<T>(loaded(slot));
  }

 private:
  friend class ChangeLog;
  friend class ManagedContext;
  friend class PendingObjects;

  static ManagedObject* targetOf(const ToOneSlot& slot) { return slot.m_target; }
  static ManagedObject* firstOf(const MembersSlot& slot);
  void fire() const;
  void demand() const;
  /// Answers the log that has to know of the change, if any.
  ChangeLog* willChange();
  template <class T>
  void willChange(Attribute<T>& attribute) {
    if (ChangeLog* log = willChange()) log->recordAttribute(*this, attribute);
  }
  const MembersSlot& loaded(const MembersSlot& slot) const;
  void setTarget(ToOneSlot& slot, ManagedObject* target);
  void setTarget(MembersSlot& slot, ManagedObject* target);

  ManagedContext* m_context = nullptr;
  const EntityDescription* m_entity = nullptr;
  std::int64_t m_id = 0;
  std::size_t m_place = 0;             ///< Among the objects that wait for the next save.
  std::uint32_t m_madeBy = 0;          ///< The number of the log of the action that made it.
  std::uint32_t m_placeAmongMade = 0;  ///< In that log, until it is closed.
  bool m_fault = false;                ///< Known by its id only; the row is not read yet.
  bool m_demanded = true;              ///< The attributes fetched on demand are read.
  bool m_inserted = false;             ///< Has no row yet.
  bool m_changed = false;
  bool m_deleted = false;
};

}  // namespace korvel::platform
