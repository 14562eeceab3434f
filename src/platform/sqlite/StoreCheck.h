// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <future>
#include <string>

#include "platform/sqlite/Sqlite.h"

namespace korvel::platform {

/// Looks for damage in a store that this process has open and locked, while it goes on reading: in
/// a thread and with a connection of its own, since a large store takes seconds. Nothing may be
/// written before it is over.
class StoreCheck {
 public:
  /// Begins at once. Throws StoreError when the file cannot be opened.
  explicit StoreCheck(const std::string& file);
  StoreCheck(const StoreCheck&) = delete;
  StoreCheck& operator=(const StoreCheck&) = delete;
  /// Gives up when it is not over.
  ~StoreCheck();

  bool isOver() const { return isOver({}); }
  /// Waits until it is over. Throws StoreError for a store that is damaged or cannot be read.
  void requireSound();

 private:
  bool isOver(std::chrono::milliseconds patience) const;

  SqliteDatabase m_store;
  std::future<void> m_result;
};

}  // namespace korvel::platform
