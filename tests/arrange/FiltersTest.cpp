// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/chords/QBApplyMetric.h"
#include "arrange/chords/QBToneGroupBuilder.h"
#include "arrange/hands/QBApplyRightHands.h"
#include "arrange/hands/QBLeftHandExtractor.h"
#include "arrange/hands/QBLeftHandExtractorPello.h"
#include "arrange/hands/QBPlectrumExtractor.h"
#include "arrange/hands/QBRightHandExtractor.h"
#include "arrange/hands/QBToneToNextString.h"
#include "arrange/harmony/QBChordCleaner.h"
#include "arrange/harmony/QBChordTransposer.h"
#include "arrange/harmony/QBContraPoint.h"
#include "arrange/harmony/QBNonChordToneRemover.h"
#include "arrange/harmony/QBOptionRemover.h"
#include "arrange/shelf/QBChordFilter.h"
#include "arrange/shelf/QBFromGroupRemover.h"
#include "arrange/shelf/QBGroup.h"
#include "arrange/shelf/QBGroupBuilder.h"
#include "arrange/shelf/QBGroupRemover.h"
#include "arrange/shelf/QBGroupToString.h"
#include "arrange/shelf/QBRemoveSilent.h"
#include "arrange/shelf/QBToneToNextStringAlternated.h"
#include "arrange/shelf/QBUnderAmpRemover.h"
#include "arrange/shelf/QBUnderGroupRemover.h"
#include "arrange/voices/QBApplyLoudest.h"
#include "arrange/voices/QBExtractBrass.h"
#include "arrange/voices/QBExtractMelody.h"
#include "model/book/QBLeftHandPattern.h"
#include "model/book/QBRightHandPattern.h"
#include "model/instruments/QBString.h"
#include "support/Script.h"
#include "support/Testing.h"
#include "support/songs/ChordLines.h"
#include "support/store/StandardStore.h"
#include "tab/filters/QBExtractVoicings.h"

namespace korvel {
namespace {

using test::drawn;
using test::Words;

/// Numbers for a filter stand in front of a colon, chords behind it.
std::vector<int> numbersOf(const Words& words) {
  std::vector<int> numbers;
  for (std::size_t i = 0; i < words.size() && words[i] != ":"; ++i)
    numbers.push_back(words.number(i));
  return numbers;
}

struct FiltersTest : testing::Test {
  using Apply = std::function<void(QBSong& source, const Words&)>;

  FiltersTest() {
    declare("m", 3, {0, 3, 4});
    declare("7", 5, {0, 4, 3, 3});
    declare("9", 9, {0, 4, 3, 3, 4});
    m_db.loadHarmonies();
  }
  void declare(const std::string& type, int order, const std::vector<int>& steps) {
    QBHarmony* harmony = m_db.createHarmony(type, order);
    for (int place = 0; const int step : steps) harmony->addStep(place++, step);
  }
  /// Has the filter work on the chords: answers them, if it changed them, and the songs that it
  /// made.
  auto command(const Apply& apply) {
    return [this, apply](const Words& words) {
      for (const auto& old : m_album->songs().snapshot()) m_album->deleteSong(old);
      m_source = m_album->createSong("Song");
      const auto colon = std::ranges::find(words, ":");
      for (auto written = std::next(colon); written != words.end(); ++written)
        test::addWritten(m_source, *written);
      const std::string before = drawn(*m_source);
      apply(*m_source, words);
      std::string text = drawn(*m_source) == before ? "" : drawn(*m_source);
      for (const QBSong* song : m_album->songs())
        if (song != m_source) text += song->title() + ": " + drawn(*song);
      return text.empty() ? "as it was" : text;
    };
  }
  template <class Visitor>
  auto inPlace() {
    return command([](QBSong& song, const Words& words) {
      const auto numbers = numbersOf(words);
      if constexpr (std::is_default_constructible_v<Visitor>) {
        Visitor visitor;
        song.iterate(visitor);
      } else {
        Visitor visitor(numbers.at(0));
        song.iterate(visitor);
      }
    });
  }
  /// Layers the tones by loudness first.
  template <class Visitor>
  auto layered() {
    return command([](QBSong& song, const Words& words) {
      for (const auto& chord : song.allChords()) QBToneGroupBuilder(chord).build();
      Visitor visitor(numbersOf(words).at(0));
      song.iterate(visitor);
    });
  }
  template <class Visitor>
  auto intoAnother() {
    return command([this](QBSong& song, const Words&) {
      Visitor visitor(m_album->createSong("New"));
      song.iterate(visitor);
    });
  }
  /// What a finished script of such songs is answered with.
  auto answer(const std::function<std::string(QBSong&, const Words&)>& ask) {
    return [this, ask](const Words& words) {
      std::string text;
      command([&](QBSong& song, const Words& all) { text = ask(song, all); })(words);
      return text;
    };
  }

  test::StandardStore m_store;
  QBTabMgr& m_db = QBTabMgr::db();
  QBInstrument* m_guitar = m_db.createInstrument(m_store.standard(), "guitar", true, true, 0.5F, 1);
  QBAlbum* m_album = m_db.createAlbum("Album", false);
  QBSong* m_source = nullptr;
};

std::string measuresOf(QBSong& song, const Words& words) {
  const auto meter = numbersOf(words);
  QBApplyMetric metric(meter.at(0), meter.at(1), &song);
  song.iterate(metric);
  std::string text;
  for (const auto& measure : song.allMeasures()) {
    for (const auto& chord : measure->allChords()) text += std::to_string(chord->duration()) + ' ';
    text += "| ";
  }
  return text;
}

/// Of all layers of one grip.
std::string scoreOf(QBSong& song, const Words& words) {
  const auto& chords = song.allChords();
  for (const auto& layer : chords) chords[0]->mergeWith(*layer);
  std::ostringstream score;
  score << QBLeftHandExtractor::matches(*QBTabMgr::db().addLeftPattern(words[0], 1),
                                        *chords[0]->hold());
  return score.str();
}

std::string handOf(QBSong& song, const Words&) {
  const QBLeftHandPattern* found =
      QBLeftHandExtractor(nullptr).findPatternByChord(*song.allChords()[0]);
  return found ? std::to_string(found->order()) : "none";
}

/// A chord for each letter, with a harmony of its own; "-" for one without. Answers the groups, by
/// number and positions, and the chords that begin one.
std::string groupsOf(QBSong& song, const std::string& harmonies) {
  for (const char letter : harmonies) {
    QBChord* chord = test::addChord(&song, "x02210");
    if (letter == '-') continue;
    chord->setBaseTone(letter - 'A');
    chord->setHarmony(QBTabMgr::db().findHarmonyByIndex(0));
  }
  QBGroupBuilder builder(nullptr, &song);
  builder.build();
  std::string text;
  for (const auto& group : builder.m_groups()) {
    text += '[' + std::to_string(group->m_counter) + ':';
    for (const auto& chord : group->m_chords()) text += ' ' + std::to_string(chord->position());
    text += "] ";
  }
  for (const auto& chord : song.allChords())
    if (chord->hasGroupNumber())
      text += std::to_string(chord->position()) + '=' + std::to_string(chord->groupNumber()) + ' ';
  return text;
}

TEST_F(FiltersTest, doAsWritten) {
  test::expectScript(
      "arrange/filters.txt",
      {{"melody", inPlace<QBExtractMelody>()},
       {"brass", inPlace<QBExtractBrass>()},
       {"loudest", inPlace<QBApplyLoudest>()},
       {"above", command([](QBSong& song, const Words& words) {
          QBRemoveSilent visitor(static_cast<float>(words.real(0)));
          song.iterate(visitor);
        })},
       {"millions", inPlace<QBUnderAmpRemover>()},
       {"layer", layered<QBGroupRemover>()},
       {"layersFrom", layered<QBFromGroupRemover>()},
       {"layersTo", layered<QBUnderGroupRemover>()},
       {"plectrum", inPlace<QBPlectrumExtractor>()},
       {"withoutOptions", command([](QBSong& song, const Words& words) {
          QBOptionRemover visitor(numbersOf(words));
          song.iterate(visitor);
        })},
       {"add9",
        [this](const Words&) {
          declare("add9", 4, {0, 4, 3, 7});
          m_db.loadHarmonies();
          return std::string("known");
        }},
       {"withoutIntervals", command([](QBSong& song, const Words& words) {
          QBOptionRemover visitor(numbersOf(words), QBOptionRemover::Counted::byInterval);
          song.iterate(visitor);
        })},
       {"harmonic", inPlace<QBNonChordToneRemover>()},
       {"contra", inPlace<QBContraPoint>()},
       {"struckInPlace", inPlace<QBApplyRightHands>()},
       {"struck", intoAnother<QBRightHandExtractor>()},
       {"pushed", intoAnother<QBToneToNextString>()},
       {"pushedByTurns", intoAnother<QBToneToNextStringAlternated>()},
       {"upperTones", intoAnother<QBLeftHandExtractorPello>()},
       {"clean", answer([](QBSong& song, const Words&) {
          const QBSong& cleaned = *QBChordCleaner::clean(song);
          EXPECT_EQ(cleaned.tuning(), QBTabMgr::db().selectedTuning());
          EXPECT_EQ(cleaned.album(), nullptr);
          return cleaned.title() + ": " + drawn(cleaned);
        })},
       {"merged", command([this](QBSong& song, const Words&) {
          QBChordFilter filter(&song);
          filter.setM_song(m_album->createSong("New"));
          filter.filter();
        })},
       {"voicings", command([this](QBSong& song, const Words& words) {
          m_album->createSong("Song(voic)");
          QBExtractVoicings visitor(&song, words.number(0));
          song.iterate(visitor);
          visitor.cleanUp();
        })},
       {"transposed", answer([this](QBSong& song, const Words& words) {
          QBChordTransposer transposer(song.allChords()[0], m_guitar, 0, words.number(0));
          return drawn(*transposer.transpose());
        })},
       {"measures", answer(&measuresOf)},
       {"layers",  // of the first chord's tones, by loudness
        answer([](QBSong& song, const Words&) {
          QBToneGroupBuilder(song.allChords()[0]).build();
          std::string groups;
          for (const QBTone* tone : song.allChords()[0]->hold()->tones())
            groups += std::to_string(tone->group());
          return groups;
        })},
       {"groups", answer([](QBSong& song, const Words& words) {
          return groupsOf(song, words[0] == ":" ? "" : words[0]);
        })},
       {"groupLine", answer([](QBSong& song, const Words& words) {
          for (const int number : numbersOf(words)) {
            QBChord* chord = test::addChord(&song, "x02210");
            if (number) chord->setGroupNumber(number);
          }
          QBGroupToString line;
          song.iterate(line);
          return line.m_output();
        })},
       {"score", answer(&scoreOf)},
       {"hand", answer(&handOf)},
       {"leftPattern",
        [this](const Words& words) {
          m_db.addLeftPattern(words[0], words.number(1));
          m_db.loadLeftPatterns();
          return "";
        }},
       {"rightPattern",
        [this](const Words& words) {
          m_db.addPattern(words[0], words.number(1));
          m_db.loadPatterns();
          return "";
        }},
       // The patterns of the chords before, from the highest string down.
       {"patterns", [this](const Words&) {
          std::string text;
          for (const auto& chord : m_source->allChords()) {
            std::string struck = chord->pattern() ? "------ " : "none ";
            if (chord->pattern())
              for (const QBString* row : chord->pattern()->strings())
                struck.at(5 - static_cast<std::size_t>(row->order())) = 'x';
            text += struck;
          }
          return text;
        }}});
}

TEST_F(FiltersTest, transposedChordKeepsItsTimeAndMovesItsRootAndNothingIsLeftOver) {
  QBChord* source = test::addChord(m_store.song("song"), "0x2xx1", 6);
  source->setBaseTone(2);
  source->hold()->findToneByString(5)->setActive(false);
  source->hold()->findToneByString(0)->setAmp(1.0);
  source->hold()->findToneByString(0)->setDuration(3);
  {
    QBChordTransposer transposer(source, m_guitar, 0, -6);
    const QBChord* down = transposer.transpose();
    EXPECT_EQ(down->song()->album(), m_db.findAlbumByName("Transpose Album"));
    EXPECT_EQ(down->baseTone(), 8);
    EXPECT_EQ(drawn(*down), "x1xxxx*6@1e-06") << "one for two that meet, none for silent ones";
    EXPECT_EQ(down->hold()->tones().at(0)->duration(), 3);
  }
  EXPECT_EQ(QBChordTransposer(source, m_guitar, 0, 3).transpose()->baseTone(), 5);
  EXPECT_EQ(m_db.albums().size(), 1U);
  EXPECT_EQ(m_db.context().fetch("QBSong").size(), 1U);
  EXPECT_EQ(m_db.context().fetch("QBTone").size(), 3U);
}

}  // namespace
}  // namespace korvel
