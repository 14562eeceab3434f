// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Script.h"
#include "support/Testing.h"
#include "support/songs/ChordLines.h"
#include "support/store/StandardStore.h"
#include "tab/filters/BestFingering.h"
#include "tab/filters/QBTabFilter.h"
#include "tab/text/QBTabBuilder.h"

namespace korvel {
namespace {

using test::Words;

/// Each chord's duration, and string:duration of each of its tones.
std::string durationsOf(const QBSong& song) {
  std::string text;
  for (const QBChord* chord : song.chords()) {
    text += std::to_string(chord->duration());
    for (const QBTone* tone : chord->hold()->tones())
      text += '/' + std::to_string(tone->string()) + ':' + std::to_string(tone->duration());
    text += ' ';
  }
  return text;
}

struct TabFiltersTest : testing::Test {
  /// Answers about a song of the written chords.
  auto of(const std::function<std::string(QBSong&)>& ask) {
    return [this, ask](const Words& words) {
      QBSong* song = m_store.song("song");
      for (const auto& written : words) test::addWritten(song, written);
      return ask(*song);
    };
  }
  /// The fingerings found for a chord, "<" before the best.
  auto found(void (QBTabBuilder::*narrow)()) {
    return of([this, narrow](QBSong& song) {
      QBTabBuilder builder(song.chords().at(0), m_guitar, 0, 0);
      const QBChord* best = builder.build();
      if (narrow) (builder.*narrow)();
      std::string text;
      for (const auto& candidate : builder.m_chords())
        text += (candidate == best ? "<" : "") + test::fretsOf(*candidate) + ' ';
      return text;
    });
  }

  test::StandardStore m_store;
  QBInstrument* m_guitar =
      QBTabMgr::db().createInstrument(m_store.standard(), "guitar", true, true, 0.5F, 1);
};

TEST_F(TabFiltersTest, doAsWritten) {
  test::expectScript("tab/fingerings.txt",
                     {{"picked", of([](QBSong& song) {
                         return durationsOf(*QBTabFilter(&song, &song).filter());
                       })},
                      {"found", found(nullptr)},
                      {"complete", found(&QBTabBuilder::keepComplete)},
                      {"cleanedUp", found(&QBTabBuilder::cleanUp)},
                      {"fingered", of([](QBSong& song) {
                         BestFingering best;
                         song.iterate(best);
                         return test::fretsOf(song);
                       })},
                      {"pattern", [](const Words& words) {
                         QBTabMgr::db().addPattern(words[0], words.number(1));
                         QBTabMgr::db().loadPatterns();
                         return "";
                       }}});
}

}  // namespace
}  // namespace korvel
