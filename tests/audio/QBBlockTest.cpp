// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/recorded/QBBlock.h"

#include "model/recorded/QBSample.h"
#include "model/store/QBTabMgr.h"
#include "support/Testing.h"
#include "support/store/ScratchStore.h"

namespace korvel {
namespace {

using Values = std::vector<std::int16_t>;

struct QBBlockTest : testing::Test {
  QBBlock* block(std::initializer_list<int> bytes = {}) {
    QBBlock* made = QBTabMgr::db().createBlock(nullptr);
    platform::Bytes data;
    for (const int byte : bytes) data.push_back(static_cast<std::byte>(byte));
    made->addData(data);
    return made;
  }
  QBBlock* withSamples(const Values& values) {
    QBBlock* made = block();
    for (const std::int16_t value : values) made->addSample(value);
    return made;
  }

  test::ScratchStore m_store;
};

TEST_F(QBBlockTest, samplesAreSignedAndLowByteFirst) {
  QBBlock* read = block({0x34, 0x12, 0xFF, 0xFF});
  EXPECT_EQ(read->toSamples(), (Values{4660, -1}));
  EXPECT_EQ(read->m_sum, 4659);
  EXPECT_EQ(read->m_nmbOfSamples, 2);
  EXPECT_EQ(read->average(), 4659U / 2);
  EXPECT_EQ(block({0x00, 0x80, 0xFF, 0x7F, 0x01})->toSamples(), (Values{-32768, 32767}))
      << "half a sample at the end is dropped";
  EXPECT_EQ(block()->toSamples(), Values());
}

TEST_F(QBBlockTest, averageDividesTheRunningSumAsAnUnsignedPattern) {
  QBBlock* read = block({4, 0, 8, 0});
  read->toSamples();
  read->toSamples();
  EXPECT_EQ(read->m_sum, 24) << "counters go on with every reading";
  EXPECT_EQ(read->m_nmbOfSamples, 4);
  EXPECT_EQ(read->average(), 12U) << "over the samples of the block, not over those counted";
  QBBlock* negative = block({0xFE, 0xFF, 0xFF, 0xFF});
  negative->toSamples();
  EXPECT_EQ(negative->average(), 0x7FFFFFFFFFFFFFFEU);
  EXPECT_THROW(block()->average(), std::domain_error);
  EXPECT_THROW(block({1})->average(), std::domain_error);
}

TEST_F(QBBlockTest, samplesAreNumberedFromOneAndComparedByValue) {
  QBBlock* stored = withSamples({7, -7, 7});
  const auto samples = stored->allSamples();
  EXPECT_EQ(samples.at(0)->position(), 1);
  EXPECT_EQ(samples.at(1)->position(), 2);
  EXPECT_TRUE(samples.at(0)->equals(*samples.at(2))) << "positions do not count";
  EXPECT_FALSE(samples.at(0)->equals(*samples.at(1)));
  EXPECT_TRUE(stored->equals(*withSamples({7, -7, 7})));
  EXPECT_FALSE(stored->equals(*withSamples({7, -7})));
  EXPECT_FALSE(stored->equals(*withSamples({7, 7, -7})));
  EXPECT_TRUE(block({1, 2})->equals(*block({3}))) << "bytes are not compared";
  samples.at(0)->setPosition(9);
  EXPECT_EQ(stored->allSamples().back(), samples.at(0));
}

TEST_F(QBBlockTest, deletingABlockTakesItsSamplesAlong) {
  QBTabMgr::db().deleteBlock(withSamples({1, 2}));
  EXPECT_TRUE(QBTabMgr::db().context().fetch("QBSample").empty());
  EXPECT_TRUE(QBTabMgr::db().context().fetch("QBBlock").empty());
}

}  // namespace
}  // namespace korvel
