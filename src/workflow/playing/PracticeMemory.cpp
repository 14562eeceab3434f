// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/PracticeMemory.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <sstream>

#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/sqlite/StoreError.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

constexpr double kOneHundred = 100;
constexpr double kSlowestPractice = 0.1;
constexpr double kFastestPractice = 4;
constexpr double kMostCents = 2400;
constexpr unsigned kAllStrings = 0xFFFF;
/// By their numbers.
constexpr std::array kVoiceWords{"none", "melody", "2", "3", "4", "5", "bass", "accompaniment"};

OwnVoice voiceOf(const std::string& word) {
  const auto found = std::ranges::find(kVoiceWords, word);
  return found == kVoiceWords.end() ? OwnVoice::none
                                    : static_cast<OwnVoice>(found - kVoiceWords.begin());
}

class PracticeWriter {
 public:
  void add(const char* name, double value, double usual) {
    if (value == usual) return;
    char text[48];
    std::snprintf(text, sizeof text, "%s=%.6g", name, value);
    add(text);
  }
  void add(const std::string& word) { m_text += (m_text.empty() ? "" : " ") + word; }
  const std::string& text() const { return m_text; }

 private:
  std::string m_text;
};

void readRounds(const std::string& name, const std::string& value, RoundsOfLoop& rounds) {
  platform::SpeedRamp ramp;
  double from = 0, step = 0;
  if (name == "between" && value == "clicks") rounds.between = BetweenRounds::clicks;
  if (name == "between" && value == "silence") rounds.between = BetweenRounds::silence;
  if (name != "ramp" || std::sscanf(value.c_str(), "%lf:%lf:%d", &from, &step, &ramp.rounds) != 3)
    return;
  ramp.from = std::clamp(from / kOneHundred, kSlowestPractice, 1.0);
  ramp.step = std::clamp(step / kOneHundred, 0.0, 1.0);
  ramp.rounds = std::max(ramp.rounds, 1);
  rounds.ramp = ramp;
}

void readWord(const std::string& name, const std::string& value, PractisedSong& practised) {
  readRounds(name, value, practised.sound.rounds);
  if (name == "voice") practised.sound.silent.voice = voiceOf(value);
  double number = 0;
  if (std::sscanf(value.c_str(), "%lf", &number) != 1 || !std::isfinite(number)) return;
  if (name == "rate") practised.rate = std::clamp(number, kSlowestPractice, kFastestPractice);
  if (name == "mix") practised.sound.mix = std::clamp(number, 0.0, 1.0);
  if (name == "apart") practised.sound.apart = number != 0;
  if (name == "recorded-pitch") practised.sound.recordedPitch = number != 0;
  if (name == "cents") practised.sound.cents = std::clamp(number, -kMostCents, kMostCents);
  if (name == "silent" && number >= 0)
    practised.sound.silent.strings = static_cast<unsigned>(number) & kAllStrings;
}

}  // namespace

std::string textOf(const PractisedSong& practised) {
  PracticeWriter writer;
  const PlayedSound& sound = practised.sound;
  writer.add("rate", practised.rate, 0);
  writer.add("mix", sound.mix, 1);
  writer.add("apart", sound.apart ? 1 : 0, 0);
  writer.add("recorded-pitch", sound.recordedPitch ? 1 : 0, 0);
  writer.add("cents", sound.cents, 0);
  writer.add("silent", sound.silent.strings, 0);
  if (sound.silent.voice != OwnVoice::none)
    writer.add(std::string("voice=") +
               kVoiceWords.at(static_cast<std::size_t>(sound.silent.voice)));
  if (sound.rounds.between != BetweenRounds::nothing)
    writer.add(sound.rounds.between == BetweenRounds::clicks ? "between=clicks"
                                                             : "between=silence");
  if (const auto& ramp = sound.rounds.ramp) {
    char text[64];
    std::snprintf(text, sizeof text, "ramp=%.6g:%.6g:%d", ramp->from * kOneHundred,
                  ramp->step * kOneHundred, ramp->rounds);
    writer.add(text);
  }
  return writer.text();
}

PractisedSong practisedOf(const std::string& text) {
  PractisedSong practised;
  std::istringstream words(text);
  for (std::string word; words >> word;)
    if (const auto equals = word.find('='); equals != std::string::npos)
      readWord(word.substr(0, equals), word.substr(equals + 1), practised);
  return practised;
}

std::optional<PractisedSong> practiceOf(const QBSong& song) {
  if (song.practice().empty()) return {};
  return practisedOf(song.practice());
}

/// A store that cannot be saved keeps it for the next time that something is.
void rememberPractice(QBSong& song, const PractisedSong& practised) {
  QBTabMgr& db = QBTabMgr::of(song);
  const std::string text = textOf(practised);
  if (text == song.practice() || db.context().isReadOnly() || SongInWork::is(song)) return;
  song.setPractice(text);
  try {
    db.context().save();
  } catch (const platform::StoreError&) {
    return;
  }
}

}  // namespace korvel
