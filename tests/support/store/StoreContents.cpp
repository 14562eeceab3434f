// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/store/StoreContents.h"

namespace korvel::test {
namespace {

std::string columnsOf(platform::SqliteDatabase& store, const std::string& table) {
  std::string columns;
  for (const std::string& name :
       store.column("SELECT name FROM pragma_table_info('" + table + "')"))
    columns += (columns.empty() ? "quote(" : " || ' ' || quote(") + platform::sqlName(name) + ')';
  return columns;
}

}  // namespace

std::string contentsOf(platform::SqliteDatabase& store) {
  std::string text;
  for (const std::string& table :
       store.column("SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name"))
    for (const std::string& row : store.column("SELECT " + columnsOf(store, table) + " FROM " +
                                               platform::sqlName(table) + " ORDER BY id"))
      text += table + ' ' + row + '\n';
  return text;
}

}  // namespace korvel::test
