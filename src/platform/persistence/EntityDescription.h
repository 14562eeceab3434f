// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/persistence/Attribute.h"
#include "platform/persistence/ManagedObject.h"
#include "platform/persistence/Relationship.h"
#include "platform/sqlite/Sqlite.h"

namespace korvel::platform {

struct EntityDescription;
struct MembersDescription;

/// How one attribute is kept in its column.
struct AttributeDescription {
  std::string name;
  std::string columnType;
  Fetch fetch = Fetch::withRow;
  void (*bind)(const ManagedObject&, SqliteStatement&, int parameter) = nullptr;
  void (*read)(ManagedObject&, const SqliteStatement&, int column) = nullptr;
};

/// How members are read when a relationship is first asked for.
enum class Loading {
  ownerOnly,  ///< The members of that one owner.
  allOwners   ///< The members of every owner at once: small reference tables.
};

/// A to-one relationship with a column of its own. `inverse` is empty when there is none.
struct ToOneDescription {
  std::string name;
  std::string target;
  std::string inverse;
  ToOneSlot& (*slot)(ManagedObject&) = nullptr;
  // Set when the model is linked.
  const EntityDescription* targetEntity = nullptr;
  const MembersDescription* inverseMembers = nullptr;
};

/// A relationship whose column is the inverse to-one of the target entity.
struct MembersDescription {
  std::string name;
  std::string target;
  std::string inverse;
  bool toMany = true;
  Loading loading = Loading::ownerOnly;
  /// Read along when rows of this entity are read as members of another owner.
  bool eager = false;
  MembersSlot& (*slot)(ManagedObject&) = nullptr;
  // Set when the model is linked.
  const EntityDescription* targetEntity = nullptr;
  const ToOneDescription* inverseToOne = nullptr;
};

/// One stored entity: its table, its attributes and its relationships.
struct EntityDescription {
  std::string name;
  Ref<ManagedObject> (*make)() = nullptr;
  std::size_t index = 0;  ///< Place in the model, set when the model is linked.
  /// Rows of a root are never swept; of others, those that no owner reaches any more, and of those
  /// that are shared by their members, those without members.
  bool root = false;
  std::vector<AttributeDescription> attributes;
  std::vector<ToOneDescription> toOnes;
  std::vector<MembersDescription> members;
};

/// Reads and writes the attribute that a member pointer names.
template <auto Member>
struct AttributeAccess;

template <class Entity, class T, Attribute<T> Entity::*Member>
struct AttributeAccess<Member> {
  static std::string columnType() {
    if constexpr (std::is_same_v<T, std::string>) return "TEXT";
    if constexpr (std::is_same_v<T, Bytes>) return "BLOB";
    return std::is_floating_point_v<T> ? "REAL" : "INTEGER";
  }
  static void bind(const ManagedObject& object, SqliteStatement& statement, int parameter) {
    const Attribute<T>& attribute = static_cast<const Entity&>(object).*Member;
    if (!attribute.m_set) {
      statement.bindNull(parameter);
    } else if constexpr (std::is_same_v<T, std::string>) {
      statement.bind(parameter, std::string_view(attribute.m_value));
    } else if constexpr (std::is_same_v<T, Bytes>) {
      statement.bind(parameter, std::span<const std::byte>(attribute.m_value));
    } else if constexpr (std::is_floating_point_v<T>) {
      statement.bind(parameter, static_cast<double>(attribute.m_value));
    } else {
      statement.bind(parameter, static_cast<std::int64_t>(attribute.m_value));
    }
  }
  static void read(ManagedObject& object, const SqliteStatement& statement, int column) {
    Attribute<T>& attribute = static_cast<Entity&>(object).*Member;
    attribute.m_set = !statement.isNull(column);
    if (!attribute.m_set) {
      attribute.m_value = T{};
    } else if constexpr (std::is_same_v<T, std::string>) {
      attribute.m_value = std::string(statement.text(column));
    } else if constexpr (std::is_same_v<T, Bytes>) {
      const auto bytes = statement.blob(column);
      attribute.m_value.assign(bytes.begin(), bytes.end());
    } else if constexpr (std::is_same_v<T, bool>) {
      attribute.m_value = statement.integer(column) != 0;
    } else if constexpr (std::is_floating_point_v<T>) {
      attribute.m_value = static_cast<T>(statement.real(column));
    } else {
      attribute.m_value = static_cast<T>(statement.integer(column));
    }
  }
};

template <auto Member>
struct SlotAccess;

template <class Entity, class Slot, Slot Entity::*Member>
struct SlotAccess<Member> {
  static Slot& slot(ManagedObject& object) { return static_cast<Entity&>(object).*Member; }
  static ToOneSlot& toOne(ManagedObject& object) { return slot(object); }
  static MembersSlot& members(ManagedObject& object) { return slot(object); }
};

/// Describes an entity by its members: the vocabulary of the model classes' `describe`.
template <class Entity>
class EntityBuilder {
 public:
  explicit EntityBuilder(std::string name) {
    m_description.name = std::move(name);
    m_description.make = [] { return Ref<ManagedObject>(new Entity); };
  }
  EntityBuilder& root() {
    m_description.root = true;
    return *this;
  }
  template <auto Member>
  EntityBuilder& attribute(std::string name, Fetch fetch = Fetch::withRow) {
    using Access = AttributeAccess<Member>;
    m_description.attributes.push_back(
        {std::move(name), Access::columnType(), fetch, &Access::bind, &Access::read});
    return *this;
  }
  template <auto Member>
  EntityBuilder& toOne(std::string name, std::string target, std::string inverse = "") {
    m_description.toOnes.push_back({std::move(name), std::move(target), std::move(inverse),
                                    &SlotAccess<Member>::toOne, nullptr, nullptr});
    return *this;
  }
  template <auto Member>
  EntityBuilder& toMany(std::string name, std::string target, std::string inverse,
                        Loading loading = Loading::ownerOnly, bool eager = false) {
    m_description.members.push_back({std::move(name), std::move(target), std::move(inverse), true,
                                     loading, eager, &SlotAccess<Member>::members, nullptr,
                                     nullptr});
    return *this;
  }
  template <auto Member>
  EntityBuilder& toOneInverse(std::string name, std::string target, std::string inverse,
                              bool eager = false) {
    m_description.members.push_back({std::move(name), std::move(target), std::move(inverse), false,
                                     Loading::ownerOnly, eager, &SlotAccess<Member>::members,
                                     nullptr, nullptr});
    return *this;
  }
  EntityDescription build() { return std::move(m_description); }

 private:
  EntityDescription m_description;
};

}  // namespace korvel::platform
