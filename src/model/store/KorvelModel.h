// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/persistence/ObjectModel.h"
#include "platform/sqlite/StoreFile.h"

namespace korvel {

/// The nineteen entities of a Korvel store.
const platform::ObjectModel& korvelModel();

/// The store file of that path. Raise the version in KorvelModel.cpp whenever an entity changes.
platform::StoreFile storeFile(const std::string& path);

}  // namespace korvel
