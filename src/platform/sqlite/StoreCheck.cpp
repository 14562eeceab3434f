// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/StoreCheck.h"

#include "platform/sqlite/StoreFile.h"

namespace korvel::platform {
namespace {

constexpr std::chrono::milliseconds kPatience{1};

}  // namespace

StoreCheck::StoreCheck(const std::string& file)
    : m_store(file, SqliteDatabase::Mode::lockedByUs),
      m_result(std::async(std::launch::async, [this] { StoreFile::requireSound(m_store); })) {}

StoreCheck::~StoreCheck() {
  if (!m_result.valid()) return;
  // One that has not begun yet does not notice.
  do m_store.interrupt();
  while (!isOver(kPatience));
}

bool StoreCheck::isOver(std::chrono::milliseconds patience) const {
  return m_result.wait_for(patience) == std::future_status::ready;
}

void StoreCheck::requireSound() { m_result.get(); }

}  // namespace korvel::platform
