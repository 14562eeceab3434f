// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/SongTime.h"

#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

/// A bar of three quarters behind a pick-up of one, and another one.
constexpr const char* kSong = "3/4 x02210 q | e e3 e3 e3 e q | h q |";

/// At about 100 beats a minute, a little faster and slower.
double playedAt(double tick) { return 1.5 + 0.05 * tick + 0.1 * std::sin(tick / 10); }

void expectInverse(const SongTime& time) {
  for (double tick = time.begin() - 40; tick < time.end() + 40; tick += 0.37) {
    EXPECT_NEAR(time.tickOfSeconds(time.secondsOf(tick)), tick, 1e-6);
    EXPECT_LT(time.secondsOf(tick), time.secondsOf(tick + 0.37));
  }
}

TEST(SongTime, goesBothWays) {
  const test::StandardStore store;
  for (const std::string swing : {"", "swing=0.67 "}) {
    SCOPED_TRACE(swing);
    QBSong* song = test::beatSong(store.song("S" + swing), "tempo=96 " + swing + kSong);
    test::setBeatTimes(song, -12, playedAt);
    const SongTime strict(*song, SongTime::Tempo::strict), recorded(*song);
    for (const SongTime* time : {&strict, &recorded}) {
      expectInverse(*time);
      EXPECT_EQ(time->begin(), -12) << "a pick-up lies before the first bar line";
      EXPECT_EQ(time->end(), 72);
      const std::size_t count = song->allChords().size();
      for (std::size_t i = 0; i < count; ++i) EXPECT_EQ(time->chordAt(time->tickOf(i)), i);
      EXPECT_EQ(time->chordAt(-13), 0U);
      EXPECT_EQ(time->chordAt(72), count - 1);
    }
    EXPECT_FALSE(strict.isAsRecorded());
    EXPECT_NEAR(strict.secondsOf(-12), -60.0 / 96, 1e-9);
    EXPECT_NEAR(strict.secondsOf(6), (swing.empty() ? 0.5 : 0.67) * 60 / 96, 1e-9);
    EXPECT_NEAR(strict.beatsPerMinuteAt(20), 96, 1e-9);
    EXPECT_TRUE(recorded.isAsRecorded());
    for (const double tick : {-12, 0, 36, 60})
      EXPECT_NEAR(recorded.secondsOf(tick), playedAt(tick), 1e-4);
  }
}

TEST(SongTime, keepsStrictTimeUnlessOneRecordingGoesThrough) {
  const test::StandardStore store;
  QBSong* song = test::beatSong(store.song("S"), std::string("tempo=96 ") + kSong);
  const auto isStrict = [&] {
    const SongTime time(*song);
    return !time.isAsRecorded() && std::abs(time.secondsOf(12) - 60.0 / 96) < 1e-9;
  };
  EXPECT_TRUE(isStrict()) << "nothing was recorded";
  test::setBeatTimes(song, -12, [](double tick) { return playedAt(tick < 36 ? tick : tick - 36); });
  EXPECT_TRUE(isStrict()) << "a part comes again";
  test::setBeatTimes(song, -12,
                     [](double tick) { return playedAt(tick < 36 ? tick : tick + 900); });
  EXPECT_TRUE(isStrict()) << "a part is left out";
  for (const auto& chord : song->allChords()) chord->clearBeatTime();
  song->allChords()[2]->setBeatTime(99999);
  EXPECT_TRUE(isStrict()) << "one beat is no pace";
}

}  // namespace
}  // namespace korvel
