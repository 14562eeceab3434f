// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "platform/persistence/Attribute.h"
#include "platform/persistence/Ref.h"

namespace korvel::platform {

class ManagedObject;

/// The other value of one attribute of an object: the one before a change, or, when that was taken
/// back, the one after it.
class AttributeChange {
 public:
  explicit AttributeChange(ManagedObject* object);
  AttributeChange(const AttributeChange&) = delete;
  AttributeChange& operator=(const AttributeChange&) = delete;
  virtual ~AttributeChange();

  ManagedObject& object() const { return *m_object; }
  virtual void exchange() = 0;

 private:
  Ref<ManagedObject> m_object;
};

template <class T>
class ChangeOf final : public AttributeChange {
 public:
  ChangeOf(ManagedObject* object, Attribute<T>& attribute)
      : AttributeChange(object), m_attribute(attribute), m_other(attribute) {}

  void exchange() override { std::swap(m_attribute, m_other); }

 private:
  Attribute<T>& m_attribute;
  Attribute<T> m_other;
};

}  // namespace korvel::platform
