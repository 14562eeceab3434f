// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <variant>
#include <vector>

#include "platform/persistence/AttributeChange.h"
#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"

namespace korvel::platform {

class ManagedContext;
class ManagedObject;
struct ActionKind;
struct ToOneDescription;

/// What one undoable action changed in a context, so that it can be taken back and done again, any
/// number of times and with saves in between.
///
/// Changes stand in the order in which they happened. An object that the action made takes one
/// entry, whatever happens to it afterwards, and none once the action itself deleted it: what it
/// points at is only kept while the action is undone.
///
/// Logs of actions that overlap know of one another by the objects that they make.
class ChangeLog {
 public:
  /// number: different for each log of a context, and not 0.
  ChangeLog(ManagedContext& context, UserText title, std::uint32_t number);
  ~ChangeLog();

  const UserText& title() const { return m_title; }
  /// Null unless it was given one.
  const ActionKind* kind() const { return m_kind; }
  void setKind(const ActionKind* kind) { m_kind = kind; }
  /// Rises from log to log.
  std::uint32_t number() const { return m_number; }
  bool isEmpty() const { return m_made.empty() && m_changes.empty(); }
  bool isOpen() const { return m_open; }
  /// Releases what only recording needs.
  void close();
  /// Changes of one subject, such as a song's loop, may become one action.
  void setSubject(const ManagedObject* subject) { m_subject = subject; }
  /// Takes on the changes of the action that followed, with its title and kind, if both are closed,
  /// are about one subject and have made no objects; answers whether it did.
  bool takeOn(ChangeLog& next);

  // Recording, which the context does.
  void recordInsertion(ManagedObject& object);
  /// To be called when the object's relationships are empty already.
  void recordRemoval(ManagedObject& object);
  /// To be called before the relationship changes.
  void recordTarget(ManagedObject& owner, const ToOneDescription& toOne);
  /// To be called before the value changes; of several changes of one attribute only the first
  /// counts.
  template <class T>
  void recordAttribute(ManagedObject& object, Attribute<T>& attribute) {
    if (!m_attributes.insert(&attribute).second) return;
    recordUse(object);
    m_changes.emplace_back(std::make_unique<ChangeOf<T>>(&object, attribute));
  }
  bool hasMade(const ManagedObject& object) const;
  /// To be called before one of its own objects points at this one, and before this one changes.
  void recordUse(const ManagedObject& object);

  // How this action depends on another one.
  /// Whether this one points at, has changed or has deleted an object that the other one made.
  bool uses(const ChangeLog& other) const { return m_uses.contains(other.m_number); }
  /// Whether nothing is left of this one without the other's objects.
  bool isOnlyAbout(const ChangeLog& other) const;
  /// Once undone, whether what it deletes again has become part of one of these meanwhile.
  bool deletesPartsOf(const std::unordered_set<std::uint32_t>& others) const;

  // To be called only while nothing is recorded, and by turns.
  void undo();
  void redo();

 private:
  struct Retargeting {
    Ref<ManagedObject> owner;
    const ToOneDescription* toOne;
    Ref<ManagedObject> other;
  };
  struct Removal {
    Ref<ManagedObject> object;
  };
  using Change = std::variant<Retargeting, Removal, std::unique_ptr<AttributeChange>>;
  using Touched = std::unordered_set<ManagedObject*>;

  static const ManagedObject& objectOf(const Change& change);
  template <class Act>
  static void forEachTarget(ManagedObject& object, Act act);
  void exchange(Retargeting& change, Touched& touched);
  void exchange(AttributeChange& change, Touched& touched);
  void takeBackMade(Touched& touched);
  void bringBackMade(Touched& touched);
  static void renew(const Touched& touched);

  ManagedContext& m_context;
  UserText m_title;
  const ActionKind* m_kind = nullptr;
  std::uint32_t m_number;
  bool m_open = true;
  const ManagedObject* m_subject = nullptr;
  std::vector<Ref<ManagedObject>> m_made;
  std::vector<Change> m_changes;
  std::unordered_set<std::uint32_t> m_uses;  ///< Numbers of other logs.
  /// Of the objects made, in turn, those with another end; only while undone.
  std::vector<Ref<ManagedObject>> m_targetsOfMade;
  std::unordered_set<const void*> m_attributes;  ///< Those recorded; only while open.
};

}  // namespace korvel::platform
