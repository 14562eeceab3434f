// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Approved.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/store/ScratchFolder.h"

namespace korvel::test {

void expectApproved(const std::string& text, const std::string& name) {
  const std::filesystem::path approved = std::filesystem::path(KORVEL_TEST_DATA) / name;
  const std::string received = "received-" + approved.filename().string();
  if (text == readFile(approved)) return;
  writeFile(received, text);
  EXPECT_EQ(readFile(approved), text) << received << " differs from " << approved;
}

}  // namespace korvel::test
