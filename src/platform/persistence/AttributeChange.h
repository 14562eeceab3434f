// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

#include "platform/persistence/Attribute.h"
#include "platform/persistence/Ref.h"
#include "platform/text/PackedText.h"

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

/// Each edit of a song changes its tablature, which may be the length of a book.
template <>
class ChangeOf<std::string> final : public AttributeChange {
 public:
  ChangeOf(ManagedObject* object, Attribute<std::string>& attribute)
      : AttributeChange(object), m_attribute(attribute), m_other(attribute) {}

  void exchange() override {
    const Kept now(m_attribute);
    m_attribute.m_value = m_other.value.text();
    m_attribute.m_set = m_other.set;
    m_other = now;
  }

 private:
  struct Kept {
    explicit Kept(const Attribute<std::string>& attribute)
        : value(attribute.m_value), set(attribute.m_set) {}
    PackedText value;
    bool set;
  };

  Attribute<std::string>& m_attribute;
  Kept m_other;
};

}  // namespace korvel::platform
