// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/songs/BeatSong.h"

#include <optional>
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
    static const std::regex chord("(?:([A-G][#b]?)?([^:]*)(:))?([0-9a-ox]{6})?");
    static const std::string length = "([whqes][.3]?|t[0-9]+)";
    static const std::regex step("([~r]?)" + length + "(?:_([0-5])" + length + "|=" + length +
                                 ")?");
    std::smatch part;
    if (word == "|") {
      m_measure = nullptr;
    } else if (std::regex_match(word, part, setting)) {
      set(part[1], std::stod(part[2]));
    } else if (std::regex_match(word, part, time)) {
      m_beat = std::stoi(part[1]);
      m_beattype = std::stoi(part[2]);
    } else if (std::regex_match(word, part, step)) {
      add(part[1], ticksOf(part[2]), tonesOf(part));
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
  /// How long the tone of a string lasts, or each of them; those of no ticks as long as the chord.
  struct Tones {
    std::optional<int> string{};
    int ticks = 0;

    bool has(const QBTone& tone) const {
      return ticks > 0 && string.value_or(tone.string()) == tone.string();
    }
  };

  Tones tonesOf(const std::smatch& step) const {
    if (step[4].matched) return {std::stoi(step[3]), ticksOf(step[4])};
    return step[5].matched ? Tones{{}, ticksOf(step[5])} : Tones();
  }

  void set(const std::string& setting, double value) {
    if (setting == "tempo") m_song->setTempo(value);
    if (setting == "key") m_song->setKey(static_cast<int>(value));
    if (setting == "swing") m_song->setSwing(value);
  }

  /// With the tones of those that are triads, too.
  static QBHarmony* harmonyOf(const std::string& type) {
    QBHarmony* harmony = QBTabMgr::db().createHarmony(type, 1);
    if (!type.empty() && type != "m") return harmony;
    int order = 0;
    for (const int step : {0, type.empty() ? 4 : 3, type.empty() ? 3 : 4})
      harmony->addStep(order++, step);
    return harmony;
  }

  void name(const std::string& root, const std::string& type) {
    m_harmony = root.empty() ? nullptr : harmonyOf(type);
    if (root.empty()) return;
    static constexpr int kNotes[] = {9, 11, 0, 2, 4, 5, 7};
    const int shift = root.size() == 1 ? 0 : root[1] == '#' ? 1 : -1;
    m_root = (kNotes[root[0] - 'A'] + shift + 12) % 12;
  }

  bool compound() const { return isCompound(m_beat, m_beattype); }

  int ticksOf(const std::string& length) const {
    if (length[0] == 't') return std::stoi(length.substr(1));
    const std::string letters = "whqes";
    int ticks = 48 >> letters.find(length[0]);
    if (length.ends_with('.')) ticks = ticks * 3 / 2;
    if (length.ends_with('3')) ticks = ticks * 2 / 3;
    return compound() ? ticks * 2 / 3 : ticks;
  }

  void add(const std::string& kind, int ticks, const Tones& tones) {
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
    if (kind.empty()) strike(*chord, ticks, tones);
    m_place += ticks;
    m_tick += ticks;
  }

  void openMeasure() {
    if (m_measure) return;
    m_measure = QBTabMgr::db().createMeasure(m_song, m_beat, m_beattype);
    m_place = 0;
  }

  void strike(QBChord& chord, int ticks, const Tones& tones) {
    m_ringing.clear();
    for (QBTone* tone : chord.hold()->tones()) {
      tone->setTicks(tones.has(*tone) ? tones.ticks : ticks);
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
