// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/midi/MidiReader.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "exchange/BarLength.h"
#include "exchange/PlayedOrder.h"
#include "exchange/midi/MidiBytes.h"
#include "exchange/midi/MidiTrack.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {

namespace {

using platform::phrase;

constexpr int kDrumChannel = 9;
constexpr double kMicrosecondsOfMinute = 6e7;
constexpr std::size_t kMostMidiNotes = 1'000'000;

struct MidiContent {
  int format = 0;
  double division = 0;   ///< Ticks of a quarter.
  bool isTimed = false;  ///< Ticks are fractions of seconds, whatever the tempo.
  std::vector<MidiTrack> tracks{};
  MidiSigns signs{};
};

/// A MIDI file may be in a container that has other things as well.
std::string_view unpacked(std::string_view file) {
  if (!file.starts_with("RIFF")) return file;
  const std::size_t data = file.find("MThd");
  return data == std::string_view::npos ? std::string_view() : file.substr(data);
}

/// Ticks of a quarter, or fractions of frames, of which some number make a second: half a second
/// counts as a quarter then, as at a tempo of 120.
void readDivision(std::uint32_t division, MidiContent& content) {
  constexpr double kQuartersOfSecond = 2;
  content.isTimed = division >= 0x8000;
  if (!content.isTimed) {
    content.division = division;
    return;
  }
  const int code = 0x100 - static_cast<int>(division >> 8);
  const double frames = code == 29 ? 30000.0 / 1001 : code;
  content.division = frames * (division & 0xFF) / kQuartersOfSecond;
}

void readHeader(MidiBytes& bytes, MidiContent& content) {
  constexpr std::size_t kHeaderBytes = 6;
  MidiBytes header(bytes.takeUpTo(bytes.number(4)));
  content.format = static_cast<int>(header.number(2));
  header.take(kHeaderBytes - 4);
  readDivision(header.number(2), content);
  if (content.format > 1)
    throw platform::UserError(phrase("Exchange",
                                     "its tracks are pieces of their own, which is not read; save "
                                     "it in another format of MIDI"));
  if (!(content.division > 0))
    throw platform::UserError(phrase("Exchange", "it does not say how long a beat is"));
}

MidiContent contentOf(std::string_view file) {
  MidiContent content;
  MidiBytes bytes(unpacked(file));
  try {
    if (bytes.take(4) != "MThd") throw MidiBytes::Ended();
    readHeader(bytes, content);
  } catch (const MidiBytes::Ended&) {
    throw platform::UserError(phrase("Exchange", "it is no MIDI file"));
  }
  try {
    while (!bytes.atEnd()) {
      const std::string_view kind = bytes.take(4);
      const std::string_view events = bytes.takeUpTo(bytes.number(4));
      if (kind == "MTrk") content.tracks.push_back(readMidiTrack(events, content.signs));
    }
  } catch (const MidiBytes::Ended&) {
    ++content.signs.left["tracks that break off"];
  }
  return content;
}

/// Makes a piece of what the tracks say.
class PieceMaker {
 public:
  explicit PieceMaker(MidiContent content) : m_content(std::move(content)) {}

  Piece make() {
    m_piece.left = m_content.signs.left;
    addKey();
    addTempos();
    addBars();
    nameTitle();
    for (const MidiTrack& track : m_content.tracks)
      for (const auto& [channel, notes] : track.channels) addTrack(track, channel, notes);
    return std::move(m_piece);
  }

 private:
  std::int64_t grainsOf(std::int64_t tick) const {
    return std::llround(static_cast<double>(tick) * static_cast<double>(kGrainsOfQuarter) /
                        m_content.division);
  }

  void addKey() {
    const auto& keys = m_content.signs.keys;
    if (keys.empty()) return;
    m_piece.key = keys.begin()->second;
    if (keys.size() > 1) m_piece.left["changes of key"] = static_cast<int>(keys.size()) - 1;
  }

  void addTempos() {
    m_piece.tempos.emplace_back();
    if (m_content.isTimed) return;
    for (const auto& [tick, microseconds] : m_content.signs.tempos) {
      const Tempo tempo{grainsOf(tick), kMicrosecondsOfMinute / microseconds};
      if (m_piece.tempos.back().at == tempo.at) m_piece.tempos.pop_back();
      m_piece.tempos.push_back(tempo);
    }
  }

  void addBars() {
    const auto& meters = m_content.signs.meters;
    std::int64_t end = grainsOf(m_content.signs.end);
    if (!meters.empty()) end = std::max(end, grainsOf(meters.rbegin()->first) + 1);
    TickMeter meter{4, 4};
    for (const auto& [tick, next] : meters) {
      fillUntil(grainsOf(tick), meter);
      meter = next;
      if (tick > 0) settlePickUp(next);
    }
    fillUntil(end, meter);
    if (m_piece.bars.empty()) addBar(meter);
    // The last one is whole, whatever ends in it.
    Bar& last = m_piece.bars.back();
    last.beats = meter.beats;
    last.beatType = meter.beatType;
    last.length = lengthOf(meter.beats, meter.beatType);
  }

  /// Bars of the meter; the last one is shorter where another meter begins in it.
  void fillUntil(std::int64_t end, TickMeter meter) {
    while (m_at + kRounding < end) {
      addBar(meter);
      if (m_at <= end + kRounding) continue;
      Bar& last = m_piece.bars.back();
      fitBar(last, end - last.at);
      m_at = last.at + last.length;
    }
  }

  void addBar(TickMeter meter) {
    if (m_piece.bars.size() >= kMostPlayedBars)
      throw platform::UserError(phrase("Exchange", "it has more than %1 bars"), kMostPlayedBars);
    const std::int64_t length = lengthOf(meter.beats, meter.beatType);
    m_piece.bars.push_back({m_at, length, meter.beats, meter.beatType});
    m_at += length;
  }

  /// A pick-up is written as a short bar with a time signature of its own.
  void settlePickUp(TickMeter next) {
    if (m_piece.bars.size() != 1) return;
    Bar& first = m_piece.bars.front();
    if (first.length >= lengthOf(next.beats, next.beatType)) return;
    first.beats = next.beats;
    first.beatType = next.beatType;
  }

  /// The first track of format 1 has no notes, but the name of all.
  void nameTitle() {
    if (m_content.tracks.empty()) return;
    MidiTrack& first = m_content.tracks.front();
    if (m_content.format == 0 || first.channels.empty())
      m_piece.title = std::exchange(first.name, {});
  }

  void addTrack(const MidiTrack& track, int channel, const ChannelNotes& played) {
    Track& made = m_piece.tracks.emplace_back();
    made.name = track.name;
    if (track.channels.size() > 1)
      made.name += (made.name.empty() ? "" : " ") + std::to_string(channel + 1);
    made.isDrums = channel == kDrumChannel;
    made.left = played.left;
    const auto other = m_content.signs.programs.find(channel);
    made.program = played.program;
    if (made.program < 0 && other != m_content.signs.programs.end()) made.program = other->second;
    m_count += played.notes.size();
    if (m_count > kMostMidiNotes)
      throw platform::UserError(phrase("Exchange", "it makes more than %1 notes; nothing was read"),
                                kMostMidiNotes);
    for (const TickNote& each : played.notes) {
      const std::int64_t at = grainsOf(each.start);
      const std::int64_t length = std::max<std::int64_t>(grainsOf(each.end) - at, 1);
      made.notes.push_back(
          {.at = at, .length = length, .pitch = each.pitch, .velocity = each.velocity});
    }
    std::ranges::stable_sort(made.notes, {},
                             [](const Note& note) { return std::pair(note.at, note.pitch); });
  }

  MidiContent m_content;
  Piece m_piece{};
  std::int64_t m_at = 0;
  std::size_t m_count = 0;
};

}  // namespace

Piece readMidi(std::string_view file) { return PieceMaker(contentOf(file)).make(); }

}  // namespace korvel::exchange
