// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/StoreSaves.h"

#include "model/store/QBTabMgr.h"
#include "platform/sqlite/StoreError.h"

namespace korvel {
namespace {

constexpr std::size_t kChordsOfSave = 100;
/// Before a store that took nothing is tried again.
constexpr std::chrono::seconds kPauseOfSaving{2};

}  // namespace

bool StoreSaves::isDue() const { return m_unsaved >= kChordsOfSave; }

bool StoreSaves::save(QBTabMgr& db, bool canWait, const Tell& tell) {
  if (canWait && Clock::now() < m_nextTry) return false;
  try {
    db.save();
  } catch (const platform::StoreError& error) {
    if (!canWait || error.reason() != platform::StoreError::Reason::failed) throw;
    m_nextTry = Clock::now() + kPauseOfSaving;
    tell(error);
    return false;
  }
  m_unsaved = 0;
  return true;
}

}  // namespace korvel
