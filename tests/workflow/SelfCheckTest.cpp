// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/SelfCheck.h"

#include <future>

#include "platform/persistence/ManagedContext.h"
#include "platform/sound/AudioSystem.h"
#include "platform/sound/WaveFiles.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

/// What each check says; what it complains about stands behind "WRONG: ".
std::map<std::string, std::string> outcomes() {
  std::map<std::string, std::string> said;
  for (const SelfCheck& check : selfChecks()) {
    try {
      said[check.title.english] = check.run().english();
    } catch (const std::exception& error) {
      said[check.title.english] = std::string("WRONG: ") + error.what();
    }
  }
  return said;
}

struct SelfCheckTest : testing::Test {
  SelfCheckTest() { platform::AudioSystem::install(&m_devices); }
  ~SelfCheckTest() override { platform::AudioSystem::install(nullptr); }

  test::StandardStore m_store;
  platform::WaveFiles m_devices{m_store.folder().file("in.wav")};
};

TEST_F(SelfCheckTest, passesOnASoundMachine) {
  for (const auto& [title, said] : outcomes())
    EXPECT_FALSE(said.starts_with("WRONG")) << title << ": " << said;
}

TEST_F(SelfCheckTest, saysTheSameInAnotherThread) {
  for (const SelfCheck& check : selfChecks()) {
    if (!check.runBeside) continue;
    EXPECT_EQ(std::async(std::launch::async, check.runBeside).get().english(),
              check.run().english());
  }
}

TEST_F(SelfCheckTest, findsRowsThatPointNowhere) {
  platform::SqliteDatabase& store = QBTabMgr::db().context().store();
  store.execute("PRAGMA foreign_keys = OFF");
  store.execute("INSERT INTO QBTone(hold) VALUES (4711)");
  EXPECT_TRUE(outcomes()["Store"].starts_with("WRONG: " + store.file())) << outcomes()["Store"];
}

}  // namespace
}  // namespace korvel
