// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/RecordPanel.h"

#include <QComboBox>
#include <QPlainTextEdit>

#include "support/sound/HandFedMicrophone.h"
#include "support/store/StoreContents.h"
#include "ui/MainWindowTest.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

struct RecordPanelTest : MainWindowTest {
  QPushButton& button(const QString& text) {
    for (auto* each : panel().findChildren<QPushButton*>())
      if (each->text() == text) return *each;
    throw std::runtime_error(text.toStdString());
  }
  RecordPanel& panel() { return *m_window->findChild<RecordPanel*>(); }
  QString chords() { return panel().findChild<QPlainTextEdit*>()->toPlainText(); }
  static std::string contents() { return test::contentsOf(QBTabMgr::db().context().store()); }

  /// On both channels, as fast as it is taken.
  static void play(test::HandFedMicrophone& microphone, const std::vector<std::int16_t>& sound) {
    constexpr std::size_t kFrames = 8192;
    for (std::size_t at = 0; at + kFrames <= sound.size(); at += kFrames) {
      std::vector<std::int16_t> block;
      for (std::size_t i = at; i < at + kFrames; ++i) block.insert(block.end(), 2, sound[i]);
      ASSERT_TRUE(QTest::qWaitFor([&] { return microphone.hear(block); }, 20000));
      QTest::qWait(1);
    }
  }
  void end() {
    ASSERT_TRUE(QTest::qWaitFor([this] { return !panel().isBusy(); }, 20000));
  }
};

TEST_F(RecordPanelTest, silenceLeavesNothingBehind) {
  const std::string before = contents();
  test::HandFedMicrophone microphone;
  button("Record").click();
  EXPECT_TRUE(panel().isRecording());
  EXPECT_FALSE(button("Record").isEnabled());
  play(microphone, std::vector<std::int16_t>(60000));
  button("Stop").click();
  end();
  EXPECT_EQ(m_window->statusMessage(), "No tones were heard; nothing was stored");
  EXPECT_EQ(contents(), before);
  EXPECT_EQ(m_window->tablature().song(), nullptr);
  EXPECT_TRUE(button("Record").isEnabled());
}

TEST_F(RecordPanelTest, whatWasPlayedBeforeTheDeviceWentIsKept) {
  test::HandFedMicrophone microphone;
  button("Record").click();
  play(microphone, test::fewChords());
  ASSERT_TRUE(QTest::qWaitFor([this] { return !chords().isEmpty(); }, 20000));
  microphone.end(true);
  end();
  EXPECT_TRUE(m_window->statusMessage().startsWith("The sound device is gone"))
      << m_window->statusMessage().toStdString();
  ASSERT_NE(m_window->tablature().song(), nullptr) << log().toStdString();
  EXPECT_FALSE(m_window->tablature().song()->chords().empty());
  EXPECT_TRUE(m_window->tablature().song()->isWhole());
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
}

/// Once it is played to its end the panel hears it note by note; who does not want to wait has what
/// was heard while it was played.
TEST_F(RecordPanelTest, liveChordsAreKeptByWhoDoesNotWait) {
  test::HandFedMicrophone microphone;
  button("Record").click();
  play(microphone, test::fewChords());
  ASSERT_TRUE(QTest::qWaitFor([this] { return !chords().isEmpty(); }, 20000));
  const qsizetype heard = chords().count('\n');
  button("Stop").click();
  ASSERT_TRUE(QTest::qWaitFor([this] { return !panel().isRecording(); }, 20000));
  if (panel().isBusy()) button("Keep Live Chords").click();
  end();
  ASSERT_NE(m_window->tablature().song(), nullptr) << log().toStdString();
  EXPECT_GT(m_window->tablature().song()->chords().size(), static_cast<std::size_t>(heard) / 2);
  EXPECT_TRUE(m_window->tablature().song()->isWhole());
}

TEST_F(RecordPanelTest, withoutADeviceItSaysSoAndStaysReady) {
  struct Deaf final : platform::AudioSystem {
    Deaf() { install(this); }
    ~Deaf() override { install(nullptr); }
    std::vector<std::string> inputs() override { throw refusal(); }
    std::vector<std::string> outputs() override { throw refusal(); }
    std::unique_ptr<platform::AudioQueue> newInput(const std::string&,
                                                   const platform::StreamDescription&,
                                                   platform::AudioQueue::InputCallback) override {
      throw refusal();
    }
    std::unique_ptr<platform::AudioQueue> newOutput(const std::string&,
                                                    const platform::StreamDescription&,
                                                    platform::AudioQueue::OutputCallback) override {
      throw refusal();
    }
    static platform::AudioError refusal() {
      return platform::AudioError(platform::UserText::verbatim("nobody listens"));
    }
  };
  const Deaf deaf;
  const std::string before = contents();
  panel().showChosenDevice();
  EXPECT_EQ(panel().findChild<QComboBox*>()->currentText(), "System default");
  button("Record").click();
  EXPECT_EQ(m_window->statusMessage(), "nobody listens");
  EXPECT_FALSE(panel().isBusy());
  EXPECT_TRUE(button("Record").isEnabled());
  EXPECT_EQ(contents(), before);
}

}  // namespace
}  // namespace korvel::ui
