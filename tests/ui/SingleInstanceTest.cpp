// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/SingleInstance.h"

#include "support/Testing.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

namespace korvel::ui {
namespace {

TEST(SingleInstance, secondStartHandsItsFilesToTheFirst) {
  SingleInstance first("store");
  ASSERT_TRUE(first.becomeFirst());
  const QSignalSpy heard(&first, &SingleInstance::startedAgain);
  bool handedOver = false;
  std::thread second([&] {
    SingleInstance again("store");
    handedOver = !again.becomeFirst() && again.handOver({"/tmp/a song.mp3", "/tmp/ü.wav"});
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return heard.count() == 1; }));
  second.join();
  EXPECT_TRUE(handedOver);
  ASSERT_EQ(heard.count(), 1);
  EXPECT_EQ(heard[0][0].toStringList(), (QStringList{"/tmp/a song.mp3", "/tmp/ü.wav"}));
  EXPECT_TRUE(SingleInstance("another store").becomeFirst());
}

TEST(SingleInstance, oneThatEndsTakesNothingAndGivesWay) {
  auto first = std::make_unique<SingleInstance>("ending");
  ASSERT_TRUE(first->becomeFirst());
  first->setEnding(true);
  const QSignalSpy heard(first.get(), &SingleInstance::startedAgain);
  std::atomic<bool> answered = false;
  bool taken = true;
  std::thread second([&] {
    taken = SingleInstance("ending").handOver({"/tmp/a.wav"});
    answered = true;
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return answered.load(); }));
  second.join();
  EXPECT_FALSE(taken);
  EXPECT_EQ(heard.count(), 0);
  SingleInstance next("ending");
  EXPECT_FALSE(next.becomeFirst());
  first.reset();
  EXPECT_TRUE(next.becomeFirst());
}

TEST(SingleInstance, whatADeadProcessLeftIsReplaced) {
  const QDir folder(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
  QString socket;
  {
    SingleInstance gone("crashed");
    ASSERT_TRUE(gone.becomeFirst());
    socket = folder.entryList({"korvel-*"}, QDir::System).value(0);
    ASSERT_FALSE(socket.isEmpty());
  }
  QFile left(folder.filePath(socket));
  ASSERT_TRUE(left.open(QIODevice::WriteOnly));
  SingleInstance next("crashed");
  ASSERT_TRUE(next.becomeFirst());
  const QSignalSpy heard(&next, &SingleInstance::startedAgain);
  std::thread second([] { SingleInstance("crashed").handOver({}); });
  EXPECT_TRUE(QTest::qWaitFor([&] { return heard.count() == 1; }));
  second.join();
}

}  // namespace
}  // namespace korvel::ui
