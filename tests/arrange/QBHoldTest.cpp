// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBHold.h"

#include "support/Script.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

using test::Words;

struct QBHoldTest : testing::Test {
  QBHold& hold(std::string_view frets) { return *test::addChord(m_song, frets)->hold(); }
  /// What a command acts on, and which tone of it was answered: its place in the hold.
  std::string told(const QBTone* tone) const {
    const auto& tones = m_hold->tones().snapshot();
    const auto at = std::ranges::find_if(tones, [&](const auto& t) { return t.get() == tone; });
    return at == tones.end() ? "none" : std::to_string(at - tones.begin()) + ": " + drawn(*tone);
  }
  static std::string drawn(const QBTone& tone) {
    std::ostringstream text;
    text << tone.string() << '/' << tone.fret();
    if (tone.amp() != 1e6) text << '@' << tone.amp();
    return text.str();
  }
  /// The tones, the frets that they span, and the size of that.
  std::string state() const {
    std::string text;
    for (const QBTone* tone : m_hold->tones()) text += drawn(*tone) + ' ';
    return text + "| " + std::to_string(m_hold->m_minFret) + '-' +
           std::to_string(m_hold->m_maxFret) + ' ' + std::to_string(m_hold->sizeOfHold());
  }
  auto finding(QBTone* (QBHold::*find)(int, int)) {
    return [this, find](const Words& words) {
      return told((m_hold->*find)(words.number(0), words.number(1)));
    };
  }
  auto adding(QBTone* (QBHold::*add)(int, int, double)) {
    return [this, add](const Words& words) {
      const QBTone* tone = (m_hold->*add)(words.number(0), words.number(1), words.real(2));
      return told(tone) + '\n' + state();
    };
  }
  std::string durations() const {
    return std::to_string(m_hold->minimumDuration()) + '-' +
           std::to_string(m_hold->maximumDuration()) + (m_hold->isEmpty() ? " empty" : "");
  }

  test::StandardStore m_store;
  QBSong* m_song = m_store.song("song");
  QBHold* m_hold = nullptr;
};

TEST_F(QBHoldTest, answersAsWritten) {
  const auto yes = [](bool is) { return is ? "yes " : "no "; };
  test::expectScript(
      "arrange/holds.txt",
      {{"hold", [&](const Words& words) { return m_hold = &hold(words[0]), state(); }},
       {"add", adding(&QBHold::addTone)},
       {"apply", adding(&QBHold::applyTone)},
       {"find", finding(&QBHold::findTone)},
       {"findFrom", finding(&QBHold::findToneFrom)},
       {"setFret", finding(&QBHold::setFretOfString)},
       {"ofString",
        [&](const Words& words) { return told(m_hold->findToneByString(words.number(0))); }},
       {"note", [&](const Words& words) { return yes(m_hold->findNote(words.number(0))); }},
       {"largeNote",
        [&](const Words& words) { return told(m_hold->findLargeNote(words.number(0))); }},
       {"melody", [&](const Words&) { return told(m_hold->findMelodyTone()); }},
       {"brass", [&](const Words&) { return told(m_hold->findBrassTone()); }},
       {"deleteString",
        [&](const Words& words) {
          m_hold->deleteToneOfString(words.number(0));
          return state();
        }},
       {"removeNote",
        [&](const Words& words) {
          const bool removed = m_hold->removeTonesByNote(words.number(0));
          return yes(removed) + state();
        }},
       {"isIn", [&](const Words& words) { return yes(m_hold->equals(hold(words[0]))); }},
       {"lasts",
        [&](const Words& words) {
          m_hold->findToneByString(words.number(0))->setDuration(words.number(1));
          return durations();
        }},
       {"silence",
        [&](const Words& words) {
          m_hold->findToneByString(words.number(0))->setActive(false);
          return durations();
        }},
       {"barre",  // is asked twice, and then on another hold whether that can be played, twice
        [&](const Words& words) {
          std::string text;
          for (const std::string& frets : words) {
            text += frets + ": ";
            QBHold& asked = hold(frets);
            for (int time = 0; time < 2; ++time) text += yes(asked.isBarre());
            text += "| ";
            QBHold& held = hold(frets);
            for (int time = 0; time < 2; ++time) text += yes(held.isPlayable());
            text += '\n';
          }
          return text;
        }},
       {"texts", [&](const Words&) {
          std::string rows = m_hold->toString();
          for (std::size_t end; (end = rows.find("\r\n")) != std::string::npos;)
            rows.replace(end, 2, "~");
          return rows + ' ' + m_hold->toStringClean() + ' ' + m_hold->tonesAsString();
        }}});
}

TEST_F(QBHoldTest, deletedTonesStayReadable) {
  QBHold& grip = hold("x02210");
  const platform::Ref<QBTone> gone = grip.findTone(4, 1);
  grip.deleteToneOfString(4);
  EXPECT_TRUE(gone->isDeleted());
  EXPECT_EQ(gone->fret(), 1);
}

TEST_F(QBHoldTest, copyHasEveryToneAndTakesThePlaceOfTheEmptyOne) {
  QBHold& grip = hold("x02210");
  QBTone* tone = grip.findToneByString(3);
  tone->setDuration(8);
  tone->setGroup(3);
  tone->setActive(false);
  QBChord* other = m_song->createChord();
  const platform::Ref<QBHold> empty = other->hold();
  m_hold = grip.clone(other);
  EXPECT_EQ(other->hold(), m_hold);
  EXPECT_TRUE(empty->isDeleted());
  EXPECT_EQ(state(), "1/0 2/2 3/2 4/1 5/0 | 1-2 1");
  const QBTone* toneCopy = m_hold->findToneByString(3);
  EXPECT_TRUE(toneCopy->equals(*tone));
  EXPECT_EQ(toneCopy->dur(), 8);
  EXPECT_EQ(toneCopy->group(), 3);
  EXPECT_TRUE(toneCopy->isActive()) << "a copied tone sounds again";
  EXPECT_FALSE(m_hold->findToneByString(4)->hasGroup());
}

}  // namespace
}  // namespace korvel
