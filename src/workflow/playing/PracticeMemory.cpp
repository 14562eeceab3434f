// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/PracticeMemory.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <sstream>
#include <string_view>

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
constexpr double kMostRounds = 1e6;
/// By their numbers.
constexpr std::array kVoiceWords{"none", "melody", "2", "3", "4", "5", "bass", "accompaniment"};

OwnVoice voiceOf(std::string_view word) {
  const auto found = std::ranges::find(kVoiceWords, word);
  return found == kVoiceWords.end() ? OwnVoice::none
                                    : static_cast<OwnVoice>(found - kVoiceWords.begin());
}

/// With a point wherever the user lives.
std::string shortNumber(double value) {
  constexpr int kDigits = 6;
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::general, kDigits);
  return {text.data(), end.ptr};
}

/// Takes away the number that a text begins with, and a colon behind it.
std::optional<double> takeNumber(std::string_view& text) {
  double number = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
  if (end.ec != std::errc() || !std::isfinite(number)) return {};
  text.remove_prefix(static_cast<std::size_t>(end.ptr - text.data()));
  if (text.starts_with(':')) text.remove_prefix(1);
  return number;
}

class PracticeWriter {
 public:
  void add(const char* name, double value, double usual) {
    if (value != usual) add(name + ('=' + shortNumber(value)));
  }
  void add(const std::string& word) { m_text += (m_text.empty() ? "" : " ") + word; }
  const std::string& text() const { return m_text; }

 private:
  std::string m_text;
};

void readRounds(std::string_view name, std::string_view value, RoundsOfLoop& rounds) {
  if (name == "between" && value == "clicks") rounds.between = BetweenRounds::clicks;
  if (name == "between" && value == "silence") rounds.between = BetweenRounds::silence;
  if (name != "ramp") return;
  const auto from = takeNumber(value);
  const auto step = takeNumber(value);
  const auto count = takeNumber(value);
  if (!from || !step || !count) return;
  platform::SpeedRamp ramp;
  ramp.from = std::clamp(*from / kOneHundred, kSlowestPractice, 1.0);
  ramp.step = std::clamp(*step / kOneHundred, 0.0, 1.0);
  ramp.rounds = static_cast<int>(std::clamp(*count, 1.0, kMostRounds));
  rounds.ramp = ramp;
}

void readWord(std::string_view name, std::string_view value, PractisedSong& practised) {
  readRounds(name, value, practised.sound.rounds);
  if (name == "voice") practised.sound.silent.voice = voiceOf(value);
  const auto told = takeNumber(value);
  if (!told) return;
  const double number = *told;
  if (name == "rate") practised.rate = std::clamp(number, kSlowestPractice, kFastestPractice);
  if (name == "mix") practised.sound.mix = std::clamp(number, 0.0, 1.0);
  if (name == "apart") practised.sound.apart = number != 0;
  if (name == "recorded-pitch") practised.sound.recordedPitch = number != 0;
  if (name == "cents") practised.sound.cents = std::clamp(number, -kMostCents, kMostCents);
  if (name == "silent" && number >= 0 && number <= kAllStrings)
    practised.sound.silent.strings = static_cast<unsigned>(number);
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
    writer.add("ramp=" + shortNumber(ramp->from * kOneHundred) + ':' +
               shortNumber(ramp->step * kOneHundred) + ':' + std::to_string(ramp->rounds));
  }
  return writer.text();
}

PractisedSong practisedOf(const std::string& text) {
  PractisedSong practised;
  // Some were written with the decimal commas of their user's language.
  std::string pointed = text;
  std::ranges::replace(pointed, ',', '.');
  std::istringstream words(pointed);
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
