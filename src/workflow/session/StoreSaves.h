// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>

namespace korvel {

namespace platform {
class StoreError;
}
class QBTabMgr;

/// Saves the store now and then while long work fills it with chords: saving all of a long
/// recording's at once would keep the user waiting.
class StoreSaves {
 public:
  using Tell = std::function<void(const platform::StoreError&)>;

  /// A chord has come that is not saved yet.
  void count() { ++m_unsaved; }
  /// So many have come that they are to be saved.
  bool isDue() const;
  /// Whether the store has it all. Where the work can wait, a store that has no room is told of and
  /// tried again a little later, and false is answered meanwhile; StoreError otherwise.
  bool save(QBTabMgr& db, bool canWait, const Tell& tell);

 private:
  using Clock = std::chrono::steady_clock;

  std::size_t m_unsaved = 0;
  Clock::time_point m_nextTry{};
};

}  // namespace korvel
