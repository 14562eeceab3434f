// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/HandShapes.h"
#include "arrange/strumming/StrumPatterns.h"
#include "model/songs/SongLyrics.h"
#include "model/songs/SongTime.h"
#include "model/songs/ToneOrder.h"
#include "music/Neck.h"
#include "music/Ticks.h"
#include "platform/persistence/UndoManager.h"
#include "platform/sqlite/StoreFile.h"
#include "rhythm/Reading.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/songs/DoubtedSong.h"
#include "support/songs/SongDesk.h"
#include "support/store/StandardStore.h"
#include "support/store/StoreContents.h"
#include "tab/layout/LoopRange.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/CombinedSongs.h"
#include "workflow/arranging/guided/EasyVersion.h"
#include "workflow/arranging/guided/PatternStrummed.h"
#include "workflow/arranging/guided/SingAlong.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/CopiedChord.h"
#include "workflow/editing/NamedPassages.h"
#include "workflow/editing/SongEditor.h"
#include "workflow/editing/SongEdits.h"
#include "workflow/editing/doubts/SongCorrections.h"
#include "workflow/editing/doubts/SongNotes.h"
#include "workflow/editing/drawn/DrawnNotes.h"
#include "workflow/editing/fingers/RestrungSong.h"
#include "workflow/editing/fingers/SongFingers.h"
#include "workflow/editing/rhythm/SongRhythm.h"
#include "workflow/editing/rhythm/WishedRhythm.h"
#include "workflow/editing/words/LyricsEdits.h"
#include "workflow/exporting/SongFiles.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/library/SongCopies.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"
#include "workflow/sheets/SongGrips.h"

namespace korvel {
namespace {

constexpr int kHighestFret = 24;

platform::ManagedContext& context() { return QBTabMgr::db().context(); }

std::string stored() { return test::contentsOf(context().store()); }

/// What an action says that refuses; empty when it is done.
std::string refusalOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const platform::UserError& error) {
    return error.what();
  } catch (const std::out_of_range& error) {
    return error.what();
  }
  return {};
}

// ---- what holds of every song

/// What is wrong with the places of chords and bars.
void judgeOrder(QBSong& song, std::ostream& faults) {
  int position = 0;
  for (const auto& chord : song.allChords()) {
    if (chord->position() <= std::exchange(position, chord->position()))
      faults << "chord " << position << " comes twice\n";
    if (chord->measure() && chord->measure()->song() != &song) faults << "foreign bar\n";
  }
  int bar = 0;
  const QBChord* before = nullptr;
  for (const auto& measure : song.allMeasures()) {
    if (measure->position() != ++bar)
      faults << "bar " << bar << " is " << measure->position() << '\n';
    for (const auto& chord : measure->allChords()) {
      if (before && before->position() >= chord->position()) faults << "bars overlap\n";
      before = chord;
    }
  }
}

void judgeTones(QBSong& song, std::ostream& faults) {
  for (const auto& chord : song.allChords()) {
    std::set<int> strings;
    for (const auto& tone : tonesOf(*chord)) {
      if (tone->string() < 0 || tone->string() >= kStrings) faults << "no string\n";
      if (tone->fret() < 0 || tone->fret() > kHighestFret)
        faults << "no fret " << tone->fret() << '\n';
      if (!strings.insert(tone->string()).second) faults << "two tones on a string\n";
    }
  }
}

/// Bars are full, and a tone ends before its string sounds again.
void judgeBeats(QBSong& song, std::ostream& faults) {
  std::map<const QBMeasure*, int> sums;
  std::map<int, int> ends;
  std::int64_t sample = -1;
  int tick = 0;
  for (const auto& chord : song.allChords()) {
    if (!chord->measure() || chord->ticks() <= 0) return static_cast<void>(faults << "no place\n");
    sums[chord->measure()] += chord->ticks();
    for (const auto& tone : tonesOf(*chord)) {
      if (tone->ticks() <= 0) faults << "a tone of no length\n";
      if (tone->isActive() && ends[tone->string()] > tick)
        faults << "rings into the next one: chord " << chord->position() << '\n';
      ends[tone->string()] = tick + tone->ticks();
    }
    if (chord->hasBeatTime() && chord->beatTime() < sample)
      faults << "back in time: chord " << chord->position() << '\n';
    if (chord->hasBeatTime()) sample = chord->beatTime();
    tick += chord->ticks();
  }
  const auto bars = song.allMeasures();
  for (const auto& bar : bars) {
    const int whole = ticksOfBar(bar->beat(), bar->beattype());
    const int sum = sums[bar.get()];
    if (sum > whole || (sum < whole && bar != bars.front()))
      faults << "bar " << bar->position() << " has " << sum << " of " << whole << '\n';
  }
}

void judgeLoop(QBSong& song, std::ostream& faults) {
  const QBChord* from = song.fromChord();
  const QBChord* to = song.toChord();
  for (const QBChord* end : {from, to})
    if (end && end->song() != &song) faults << "the loop ends elsewhere\n";
  if (from && to && from->position() > to->position()) faults << "the loop runs back\n";
}

/// What is wrong with a song; empty when nothing is.
std::string faultsOf(QBSong& song) {
  std::ostringstream faults;
  song.forgetCaches();
  judgeOrder(song, faults);
  judgeTones(song, faults);
  judgeLoop(song, faults);
  if (song.isOnBeats() && !song.chords().empty()) judgeBeats(song, faults);
  if (!song.chords().empty() && song.tabulature() != toString(song)) faults << "not drawn\n";
  return faults.str();
}

// ---- the user

/// Does something to a song, whatever comes of it.
class Player {
 public:
  /// Each of so many seeds in a row makes a song of another kind.
  static constexpr unsigned kKinds = 6;
  Player(test::SongDesk& desk, unsigned seed)
      : m_desk(desk), m_random(seed), m_kind(static_cast<int>(seed % kKinds)) {}

  int below(int limit) {
    return static_cast<int>(m_random() % static_cast<unsigned>(std::max(limit, 1)));
  }
  int within(int from, int to) { return from + below(to - from + 1); }
  bool oneIn(int count) { return below(count) == 0; }

  QBSong& song() {
    static const char* const kWritten[] = {
        ("key=9 3/4 xxxxx0 q | x02210 q_1h. xx2210 e3 e3 e3 rq | 133211 h rq | "
         "320003 q xxxxx5 e xxxxx3 e 320003 q | 320003 q x02210 h | ~q 320003 q rq |"),
        "key=16 6/8 xxxxx0 e | x02210 q_1h. xx2210 e xx0003 q. | 133211 q. rq. |",
        "tempo=96 swing=0.67 Am:x02210 e e e3 e3 e3 h | G:320003 s s e ~q 3x0003 q. e | rw |",
        "5/4 Em:022000 w q | 2/4 C:x32010 e e e e | 4/4 rh G:320003 h |"};
    if (m_kind == 4) return test::doubtedSong(*m_desk.album());
    if (m_kind == 5) {
      QBSong* slices = m_desk.song({"x02210", "133211", "xxxxxx", "320003", "x24432", "xx0232"}, 2);
      if (oneIn(2)) return *slices;
      QBSong* inBars = m_desk.perform(slices, "extract3_4").songs.at(0);
      m_desk.deleteSongs({platform::Ref<QBSong>(slices)});
      return *inBars;
    }
    QBSong* written = test::beatSong(m_desk.album()->createSong("Song"), kWritten[m_kind]);
    if (oneIn(2)) test::setBeatTimes(written, 0, [](int tick) { return 1 + tick / 24.0; });
    buildTab(*written);
    QBTabMgr::db().save();
    return *written;
  }
  void act(QBSong& song) {
    song.forgetCaches();
    m_chords = static_cast<int>(song.allChords().size());
    const Deed& deed = kDeeds.at(static_cast<std::size_t>(below(static_cast<int>(kDeeds.size()))));
    m_name = deed.name;
    (this->*deed.act)(song);
  }
  const std::string& name() const { return m_name; }

 private:
  struct Deed {
    const char* name;
    void (Player::*act)(QBSong&);
  };
  static const std::vector<Deed> kDeeds;

  SongEditor editorOf(QBSong& song) { return SongEditor(QBTabMgr::db(), song); }
  SongFingers fingersOf(QBSong& song) { return SongFingers(QBTabMgr::db(), song); }
  /// Now and then there is no such chord.
  int chord() { return oneIn(30) ? m_chords : below(m_chords); }
  ChordSpan span() {
    const int first = chord();
    return {first, std::min(first + below(4), std::max(first, m_chords - 1))};
  }
  std::vector<ToneIndex> tones(QBSong& song) {
    std::vector<ToneIndex> found;
    for (int i = 0; i < m_chords; ++i)
      for (const auto& tone : tonesOf(*song.allChords()[static_cast<std::size_t>(i)]))
        if (oneIn(m_chords)) found.push_back({i, tone->string()});
    return found;
  }
  DrawnNotes::Grid grid() {
    return oneIn(3) ? DrawnNotes::Grid::free : DrawnNotes::Grid::sixteenths;
  }

  void setFret(QBSong& song) { editorOf(song).setFret(chord(), below(6), below(26), oneIn(4)); }
  void removeTone(QBSong& song) { editorOf(song).removeTone(chord(), below(6)); }
  void silence(QBSong& song) { editorOf(song).setActive(chord(), below(6), oneIn(3)); }
  void moveTone(QBSong& song) { editorOf(song).moveTone(chord(), below(6), below(6)); }
  void setShape(QBSong& song) {
    const ChordSpan at = span();
    editorOf(song).setShape(at.first, at.last, parseChordName(QBTabMgr::db(), "D7"),
                            {kNotPlayed, kNotPlayed, 0, 2, 1, 2});
  }
  void nameChords(QBSong& song) {
    const ChordSpan at = span();
    if (oneIn(3)) return editorOf(song).clearChordNames(at.first, at.last);
    editorOf(song).setChordNames(at.first, at.last,
                                 parseChordName(QBTabMgr::db(), oneIn(2) ? "Am7" : "Bb"));
  }
  void nameAlike(QBSong& song) {
    const NamedPassages passages(QBTabMgr::db(), song);
    if (m_chords == 0) return;
    const auto all = passages.alike(passages.around(below(m_chords)));
    const ChordName name = parseChordName(QBTabMgr::db(), "F");
    editorOf(song).nameAll(all, &name);
  }
  void setDuration(QBSong& song) { editorOf(song).setDuration(chord(), within(0, 20)); }
  void moveChord(QBSong& song) { editorOf(song).moveChord(chord(), within(-4, 4)); }
  void insert(QBSong& song) {
    oneIn(2) ? editorOf(song).insertChordBefore(chord()) : editorOf(song).insertChordAfter(chord());
  }
  void deleteChords(QBSong& song) {
    const ChordSpan at = span();
    editorOf(song).deleteChords(at.first, at.last);
  }
  void deleteBar(QBSong& song) {
    if (m_chords == 0) return;
    const QBMeasure* bar = song.allChords()[static_cast<std::size_t>(below(m_chords))]->measure();
    if (!bar || bar->chords().empty()) return;
    const auto of = bar->allChords();
    editorOf(song).deleteChords(of.front()->position() - 1, of.back()->position() - 1);
  }
  void paste(QBSong& song) {
    if (m_chords == 0) return;
    const ChordSpan at = span();
    editorOf(song).pasteAfter(chord(), CopiedChord::of(song, std::min(at.first, m_chords - 1),
                                                       std::min(at.last, m_chords - 1)));
  }
  void setLoop(QBSong& song) {
    if (m_chords == 0) return;
    const LoopEnds ends = oneIn(2) ? LoopEnds::atBars : LoopEnds::atChords;
    switch (below(5)) {
      case 0:
        return clearLoop(song);
      case 1:
        return beginLoop(song, below(m_chords), ends);
      case 2:
        return endLoop(song, below(m_chords), ends);
      case 3:
        return moveLoopEnd(song, below(m_chords), ends);
      default:
        const int first = below(m_chords);
        return korvel::setLoop(song, first, within(first, m_chords - 1), ends);
    }
  }
  void sing(QBSong& song) {
    changeLyrics(song, {{within(-12, 100), "la"}, {below(200), "Läuft"}, {below(50), "  "}});
  }
  void singOne(QBSong& song) {
    const int at = below(150);
    changeWords(song, at, at + below(24), oneIn(4) ? "" : "und");
  }
  void setHand(QBSong& song) {
    fingersOf(song).setHand(chord(), oneIn(4) ? std::nullopt : std::optional(below(18)));
  }
  void changeShape(QBSong& song) { fingersOf(song).changeShape(chord(), within(-3, 3)); }
  void shiftTone(QBSong& song) { fingersOf(song).moveTone(chord(), below(6), oneIn(2) ? 1 : -1); }
  void movePhrase(QBSong& song) {
    const ChordSpan at = span();
    fingersOf(song).movePhrase(at.first, at.last, oneIn(2) ? 1 : -1);
  }
  void fingerAnew(QBSong& song) {
    const ChordSpan at = span();
    fingersOf(song).fingerAnew(at.first, at.last);
  }
  void retune(QBSong& song) {
    const auto& tunings = QBTabMgr::db().tunings();
    Strings strings;
    if (oneIn(2)) strings.tuning = tunings.at(m_random() % tunings.size());
    if (!strings.tuning || oneIn(2)) strings.capo = below(8);
    fingersOf(song).retune(strings, oneIn(2) ? SongFingers::Kept::sound : SongFingers::Kept::frets);
  }
  void draw(QBSong& song) {
    DrawnNotes(QBTabMgr::db(), song)
        .add(within(38, 84), within(-4, 200) / 1.5, within(1, 30), grid());
  }
  void drag(QBSong& song) {
    DrawnNotes(QBTabMgr::db(), song)
        .move(tones(song), within(-20, 20), oneIn(2) ? 0 : within(-3, 3), grid());
  }
  void stretch(QBSong& song) {
    DrawnNotes(QBTabMgr::db(), song).lengthen(tones(song), within(-20, 20), grid());
  }
  void erase(QBSong& song) { DrawnNotes(QBTabMgr::db(), song).remove(tones(song)); }
  void correct(QBSong& song) {
    SongCorrections corrections(song);
    const auto count = static_cast<int>(SongNotes(song).size());
    const auto note = static_cast<std::size_t>(below(count));
    switch (below(6)) {
      case 0:
        return corrections.accept(note);
      case 1:
        return corrections.drop(note);
      case 2:
        return corrections.confirm(note);
      case 3:
        return corrections.replace(note, static_cast<std::size_t>(below(count)));
      case 4:
        return corrections.drop(static_cast<std::size_t>(count - 1 - below(2)));
      default:
        corrections.decideAnew(below(41) / 40.0);
    }
  }
  void readRhythm(QBSong& song) {
    SongRhythm rhythm(song);
    if (oneIn(4)) return oneIn(2) ? rhythm.layIntoBars() : rhythm.layIntoSlices();
    rhythm.change(platform::phrase("UndoAction", "Change Rhythm"), [&](WishedRhythm& wished) {
      static constexpr std::array kFactors{2.0, 0.5, 1.5, 2.0 / 3};
      switch (below(7)) {
        case 0:
          return wished.multiplyTempo(kFactors[m_random() % 4]);
        case 1:
          return wished.setMetre({within(2, 5), oneIn(3)});
        case 2:
          return wished.setFeel(static_cast<rhythm::Feel>(below(3)));
        case 3:
          return wished.setBarLine(below(200) / 10.0);
        case 4:
          return wished.moveBarLines(oneIn(2) ? (oneIn(2) ? 1 : -1) : oneIn(2) ? 0.5 : -0.5);
        case 5:
          return wished.dragBeat(below(200) / 10.0, below(200) / 10.0);
        default:
          return wished.forget();
      }
    });
  }
  void holdGrip(QBSong& song) {
    if (m_chords > 0)
      holdChord(song, below(m_chords), {kNotPlayed, 0, 2, 2, 1, 0}, {0, m_chords - 1});
  }
  void guide(QBSong& song) {
    const SongGuide guides[] = {easyVersion({.tones = static_cast<EasyTones>(below(3)),
                                             .key = static_cast<EasyKey>(below(3)),
                                             .highestFret = within(2, 7)}),
                                singAlong({.plain = oneIn(2), .halfTones = within(-11, 11)}),
                                strummedBy(strumPatterns()[m_random() % strumPatterns().size()])};
    const SongGuide& chosen = guides[m_random() % std::size(guides)];
    const std::string before = stored();
    chosen.preview(song);
    EXPECT_EQ(stored(), before) << "a preview leaves nothing";
    EXPECT_EQ(faultsOf(chosen.accept(song)), "");
  }
  void copy(QBSong& song) {
    if (oneIn(3)) return expectWhole(cloneSong(song));
    const auto& songs = m_desk.album()->songs();
    if (oneIn(2)) return static_cast<void>(mergeSongs(song, *songs.at(m_random() % songs.size())));
    const ChordSpan at = span();
    expectWhole(extractPart(song, at.first + 1, at.last + 1));
  }
  void command(QBSong& song) {
    static const std::vector<std::string> commands = test::songCommands();
    const std::string& name = commands[m_random() % (commands.size() - 1)];
    m_name += ' ' + name;
    const auto before = m_desk.album()->songs().size();
    const auto tree = AlbumNode::withSongs(m_desk.album());
    if (name == "copySong" || name == "exportAsFile") return;
    tree->findChild(&song)->perform(*findSongCommand(name), Manner::forPlayers);
    context().save();
    for (std::size_t i = before; i < m_desk.album()->songs().size(); ++i)
      expectWhole(*m_desk.album()->songs().at(i));
  }
  void exportIt(QBSong& song) {
    if (m_chords == 0) return;
    for (int format = 0; format <= static_cast<int>(SongFormat::midi); ++format)
      EXPECT_NO_THROW(songFile(song, static_cast<SongFormat>(format))) << format;
  }
  static void expectWhole(QBSong& song) { EXPECT_EQ(faultsOf(song), "") << song.title(); }

  test::SongDesk& m_desk;
  std::mt19937 m_random;
  const int m_kind;
  std::string m_name;
  int m_chords = 0;
};

const std::vector<Player::Deed> Player::kDeeds{
    {"setFret", &Player::setFret},
    {"removeTone", &Player::removeTone},
    {"silence", &Player::silence},
    {"moveTone", &Player::moveTone},
    {"setShape", &Player::setShape},
    {"nameChords", &Player::nameChords},
    {"nameAlike", &Player::nameAlike},
    {"setDuration", &Player::setDuration},
    {"moveChord", &Player::moveChord},
    {"insert", &Player::insert},
    {"deleteChords", &Player::deleteChords},
    {"deleteBar", &Player::deleteBar},
    {"paste", &Player::paste},
    {"setLoop", &Player::setLoop},
    {"sing", &Player::sing},
    {"singOne", &Player::singOne},
    {"setHand", &Player::setHand},
    {"changeShape", &Player::changeShape},
    {"shiftTone", &Player::shiftTone},
    {"movePhrase", &Player::movePhrase},
    {"fingerAnew", &Player::fingerAnew},
    {"retune", &Player::retune},
    {"draw", &Player::draw},
    {"drag", &Player::drag},
    {"stretch", &Player::stretch},
    {"erase", &Player::erase},
    {"correct", &Player::correct},
    {"readRhythm", &Player::readRhythm},
    {"holdGrip", &Player::holdGrip},
    {"guide", &Player::guide},
    {"copy", &Player::copy},
    {"command", &Player::command},
    {"exportIt", &Player::exportIt},
};

/// What is drawn of a song, and what its chords say that they are.
std::string seen(QBSong& song) {
  std::string text = song.allChords().empty() ? "" : toString(song);
  for (const auto& chord : song.allChords())
    text += chord->toKey().value_or("-") + std::to_string(chord->readAllTones().size()) + ' ';
  return text;
}

struct RestlessEditsTest : testing::Test {
  static constexpr int kSteps = 30;

  QBSong& reopenedSong() {
    m_desk.reopen();
    return *m_desk.album()->songs().at(0);
  }

  test::SongDesk m_desk;
  QBSession& m_session = QBSession::session();
  std::string m_done;
};

TEST_F(RestlessEditsTest, songsStayWholeAndEveryStepIsTakenBackAndDoneAgain) {
  for (unsigned seed = 1; seed <= 2 * Player::kKinds && !HasFailure(); ++seed) {
    Player player(m_desk, seed);
    player.song();
    QBSong& song = reopenedSong();
    m_done = "seed " + std::to_string(seed) + ':';
    std::vector<std::string> states{stored()};
    for (int step = 0; step < kSteps && !HasFailure(); ++step) {
      const std::string refusal = refusalOf([&] { player.act(song); });
      m_done += ' ' + player.name() + (refusal.empty() ? "" : '(' + refusal + ')');
      if (refusal.empty()) {
        EXPECT_FALSE(context().hasChanges()) << m_done;
      }
      EXPECT_EQ(refusal.find("_M_range_check"), std::string::npos) << m_done;
      context().save();
      const std::string now = stored();
      if (now == states.back()) continue;
      EXPECT_EQ(refusal, "") << m_done;
      EXPECT_EQ(faultsOf(song), "") << m_done;
      states.push_back(now);
    }
    std::size_t level = states.size() - 1;
    while (!HasFailure() && m_session.undo()) {
      const std::string now = stored();
      while (level > 0 && states[level] != now) --level;  // some are one action together
      EXPECT_EQ(now, states[level]) << m_done;
      EXPECT_EQ(faultsOf(song), "") << m_done;
    }
    EXPECT_EQ(states[level], states.front()) << m_done;
    while (!HasFailure() && m_session.redo()) {
      const std::string now = stored();
      while (level + 1 < states.size() && states[level] != now) ++level;
      EXPECT_EQ(now, states[level]) << m_done;
    }
    EXPECT_EQ(states[level], states.back()) << m_done;
    const std::string last = seen(song);
    EXPECT_EQ(seen(reopenedSong()), last) << m_done;
    EXPECT_TRUE(platform::StoreFile::problems(context().store()).empty());
    m_desk.deleteSongs(m_desk.album()->songs().snapshot());
  }
}

}  // namespace
}  // namespace korvel
