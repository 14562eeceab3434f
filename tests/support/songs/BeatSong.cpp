// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/songs/BeatSong.h"

#include <regex>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "music/Ticks.h"
#include "support/store/StandardStore.h"

namespace korvel::test {
namespace {

constexpr double kTempoUnlessGiven = 120;

class BeatWriter {
 public:
  explicit BeatWriter(QBSong* song) : m_song(song) { song->setTempo(kTempoUnlessGiven); }

  void write(const std::string& word) {
    static const std::regex setting("(tempo|key|swing)=([0-9.]+)");
    static const std::regex time("([0-9]+)/([0-9]+)");
    static const std::regex chord("(?:([A-G][#b]?)?([^:]*)(:))?([0-9a-ex]{6})?");
    static const std::regex step("([~r]?)([whqes][.3]?)(?:_([0-5])([whqes][.3]?))?");
    std::smatch part;
    if (word == "|") {
      m_measure = nullptr;
    } else if (std::regex_match(word, part, setting)) {
      set(part[1], std::stod(part[2]));
    } else if (std::regex_match(word, part, time)) {
      m_beat = std::stoi(part[1]);
      m_beattype = std::stoi(part[2]);
    } else if (std::regex_match(word, part, step)) {
      add(part[1], ticksOf(part[2]), part[3].matched ? std::stoi(part[3]) : -1,
          part[4].matched ? ticksOf(part[4]) : 0);
    } else if (std::regex_match(word, part, chord)) {
      if (part[3].matched) name(part[1], part[2]);
      if (part[4].matched) m_frets = part[4];
    } else {
      throw std::invalid_argument(word);
    }
  }

 private:
  struct Ringing {
    QBTone* tone;
    int end;
  };

  void set(const std::string& setting, double value) {
    if (setting == "tempo") m_song->setTempo(value);
    if (setting == "key") m_song->setKey(static_cast<int>(value));
    if (setting == "swing") m_song->setSwing(value);
  }

  void name(const std::string& root, const std::string& type) {
    m_harmony = root.empty() ? nullptr : QBTabMgr::db().createHarmony(type, 1);
    if (root.empty()) return;
    static constexpr int kNotes[] = {9, 11, 0, 2, 4, 5, 7};
    const int shift = root.size() == 1 ? 0 : root[1] == '#' ? 1 : -1;
    m_root = (kNotes[root[0] - 'A'] + shift + 12) % 12;
  }

  bool compound() const { return isCompound(m_beat, m_beattype); }

  int ticksOf(const std::string& length) const {
    const std::string letters = "whqes";
    int ticks = 48 >> letters.find(length[0]);
    if (length.ends_with('.')) ticks = ticks * 3 / 2;
    if (length.ends_with('3')) ticks = ticks * 2 / 3;
    return compound() ? ticks * 2 / 3 : ticks;
  }

  void add(const std::string& kind, int ticks, int string, int ticksOfString) {
    openMeasure();
    QBChord* chord = addChord(m_song, kind.empty() ? m_frets : "xxxxxx",
                              sixteenthsBetween(m_place, m_place + ticks, compound()));
    chord->setTicks(ticks);
    if (m_harmony) {
      chord->setHarmony(m_harmony);
      chord->setBaseTone(m_root);
    }
    m_measure->addChord(chord);
    if (kind == "~") ringOn(ticks);
    if (kind.empty()) strike(*chord, ticks, string, ticksOfString);
    m_place += ticks;
    m_tick += ticks;
  }

  void openMeasure() {
    if (m_measure) return;
    m_measure = QBTabMgr::db().createMeasure(m_song, m_beat, m_beattype);
    m_place = 0;
  }

  void strike(QBChord& chord, int ticks, int string, int ticksOfString) {
    m_ringing.clear();
    for (QBTone* tone : chord.hold()->tones()) {
      tone->setTicks(tone->string() == string ? ticksOfString : ticks);
      m_ringing.push_back({tone, m_tick + tone->ticks()});
    }
  }

  void ringOn(int ticks) {
    for (Ringing& each : m_ringing) {
      if (each.end != m_tick) continue;
      each.end += ticks;
      each.tone->setTicks(each.tone->ticks() + ticks);
    }
  }

  QBSong* m_song;
  QBMeasure* m_measure = nullptr;
  QBHarmony* m_harmony = nullptr;
  int m_root = 0;
  std::string m_frets = "xxxxxx";
  int m_beat = 4;
  int m_beattype = 4;
  int m_place = 0;  ///< In its bar.
  int m_tick = 0;   ///< In the song.
  std::vector<Ringing> m_ringing;
};

}  // namespace

QBSong* beatSong(QBSong* song, const std::string& written) {
  BeatWriter writer(song);
  std::istringstream words(written);
  for (std::string word; words >> word;) writer.write(word);
  return song;
}

}  // namespace korvel::test
