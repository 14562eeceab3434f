// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace korvel::platform {

class ObjectModel;
class SqliteDatabase;

/// The tables that a store has for the entities of a model: a row for each object, with a column
/// for each attribute and for each object that it points at, which has an index. Changes nothing
/// itself but says what is to be executed.
class StoreTables {
 public:
  /// Both outlive this.
  StoreTables(SqliteDatabase& store, const ObjectModel& model) : m_store(store), m_model(model) {}

  /// What adds the tables, columns and indexes that the store does not have yet.
  std::vector<std::string> missingParts() const;
  /// What removes the rows that nothing reaches. When it is done, what only those reached is for
  /// the next call; empty when there is nothing left.
  std::vector<std::string> removals() const;

 private:
  SqliteDatabase& m_store;
  const ObjectModel& m_model;
};

}  // namespace korvel::platform
