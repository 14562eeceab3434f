// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/sqlite/Sqlite.h"

namespace korvel::test {

/// Every row of every table, a line for each with all its columns, by table and id.
std::string contentsOf(platform::SqliteDatabase& store);

}  // namespace korvel::test
