// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/midi/MidiTrack.h"

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <utility>

#include "exchange/midi/MidiBytes.h"
#include "music/Pitch.h"
#include "platform/text/ForeignText.h"
#include "platform/text/UserError.h"
#include "platform/text/Utf8.h"

namespace korvel::exchange {

namespace {

using platform::phrase;

/// More than any music takes; with less no sum is out of range.
constexpr std::int64_t kMostTicks = std::int64_t{1} << 40;
constexpr std::size_t kMostTrackNotes = 1'000'000;

/// Texts of MIDI files do not say in which letters they are.
std::string textIn(std::string_view bytes) {
  return platform::printable(platform::foreignText(bytes));
}

/// Goes through the events of a track.
class EventReader {
 public:
  EventReader(std::string_view events, MidiSigns& signs) : m_bytes(events), m_signs(signs) {}

  MidiTrack read() {
    try {
      while (!m_bytes.atEnd() && !m_isOver) readEvent();
    } catch (const MidiBytes::Ended&) {
      ++m_signs.left["tracks that break off"];
    }
    endAll();
    std::erase_if(m_track.channels, [](const auto& each) { return each.second.notes.empty(); });
    return std::move(m_track);
  }

 private:
  void readEvent() {
    constexpr int kFirstOfSystem = 0xF0;
    constexpr int kMeta = 0xFF;
    m_tick += m_bytes.variable();
    if (m_tick > kMostTicks)
      throw platform::UserError(phrase("Exchange", "one of its tracks is longer than any music"));
    if (m_bytes.peek() < 0x80 && m_status == 0)
      throw platform::UserError(phrase("Exchange", "one of its tracks is broken"));
    const int status = m_bytes.peek() < 0x80 ? m_status : m_bytes.byte();
    if (status == kMeta) {
      const int type = m_bytes.byte();
      readMeta(type, m_bytes.take(m_bytes.variable()));
    } else if (status >= kFirstOfSystem) {
      skipSystem(status);
    } else {
      m_status = status;
      readChannel(status >> 4, status & 0x0F);
    }
  }

  void skipSystem(int status) {
    if (status == 0xF0 || status == 0xF7)
      m_bytes.take(m_bytes.variable());
    else if (status == 0xF1 || status == 0xF3)
      m_bytes.take(1);
    else if (status == 0xF2)
      m_bytes.take(2);
  }

  void readChannel(int kind, int channel) {
    const int first = m_bytes.byte() & 0x7F;
    const bool hasOne = kind == 0xC || kind == 0xD;
    const int second = hasOne ? 0 : m_bytes.byte() & 0x7F;
    if (kind == 0x9 && second > 0)
      strike(channel, first, second);
    else if (kind == 0x8 || kind == 0x9)
      release(channel, first);
    else if (kind == 0xB)
      readController(channel, first, second);
    else if (kind == 0xC)
      readProgram(channel, first);
    else if (kind == 0xE && (first != 0 || second != 0x40))
      m_track.channels[channel].isBent = true;
    else if (kind == 0xE)
      countBend(m_track.channels[channel]);
  }

  /// A bend is many events; it is over where the wheel is let go.
  static void countBend(ChannelNotes& notes) {
    if (notes.isBent) ++notes.left["bends"];
    notes.isBent = false;
  }

  void readController(int channel, int number, int value) {
    constexpr int kSustain = 64;
    constexpr int kDown = 64;
    if (number == kSustain && value >= kDown) ++m_track.channels[channel].left["pedals"];
  }

  void readProgram(int channel, int program) {
    m_signs.programs.try_emplace(channel, program);
    ChannelNotes& notes = m_track.channels[channel];
    if (notes.program < 0 || notes.notes.empty())
      notes.program = program;
    else if (notes.program != program)
      ++notes.left["changes of sound"];
  }

  void strike(int channel, int pitch, int velocity) {
    auto& notes = m_track.channels[channel].notes;
    if (++m_count > kMostTrackNotes)
      throw platform::UserError(phrase("Exchange", "it makes more than %1 notes; nothing was read"),
                                kMostTrackNotes);
    m_sounding[{channel, pitch}].push_back(notes.size());
    notes.push_back({m_tick, m_tick, pitch, velocity});
    m_signs.end = std::max(m_signs.end, m_tick);
  }

  /// Of several of a pitch the one ends that was struck first.
  void release(int channel, int pitch) {
    auto& sounding = m_sounding[{channel, pitch}];
    if (sounding.empty()) return;
    end(m_track.channels[channel].notes[sounding.front()]);
    sounding.pop_front();
  }

  void end(TickNote& note) {
    note.end = std::max(m_tick, note.start + 1);
    m_signs.end = std::max(m_signs.end, note.end);
  }

  /// What was never released.
  void endAll() {
    for (auto& [channel, notes] : m_track.channels) countBend(notes);
    for (const auto& [place, indexes] : m_sounding)
      for (const std::size_t index : indexes) end(m_track.channels[place.first].notes[index]);
  }

  void readMeta(int type, std::string_view data) {
    switch (type) {
      case 0x03:
        if (m_track.name.empty()) m_track.name = textIn(data);
        break;
      case 0x05:
        ++m_signs.left["lyrics"];
        break;
      case 0x06:
        ++m_signs.left["markers"];
        break;
      case 0x2F:
        m_isOver = true;
        break;
      case 0x51:
        readTempo(data);
        break;
      case 0x58:
        readMeter(data);
        break;
      case 0x59:
        readKey(data);
        break;
      default:
        break;
    }
  }

  void readTempo(std::string_view data) {
    if (data.size() < 3) return;
    const auto microseconds = static_cast<int>(MidiBytes(data).number(3));
    if (microseconds > 0) m_signs.tempos[m_tick] = microseconds;
  }

  void readMeter(std::string_view data) {
    constexpr int kMostBeatsOfMeter = 64;
    constexpr int kMostHalvings = 6;
    if (data.size() < 2) return;
    MidiBytes bytes(data);
    const int beats = bytes.byte();
    const int halvings = bytes.byte();
    if (beats < 1 || beats > kMostBeatsOfMeter || halvings > kMostHalvings) return;
    m_signs.meters[m_tick] = {beats, 1 << halvings};
  }

  void readKey(std::string_view data) {
    constexpr int kFifth = 7;
    constexpr int kRelativeMinor = 9;
    if (data.size() < 2) return;
    const int fifths = static_cast<signed char>(data[0]);
    const bool isMinor = data[1] != 0;
    if (std::abs(fifths) <= 7)
      m_signs.keys[m_tick] = {pitchClass(fifths * kFifth + (isMinor ? kRelativeMinor : 0)),
                              isMinor};
  }

  MidiBytes m_bytes;
  MidiSigns& m_signs;
  MidiTrack m_track{};
  /// The notes of each channel and pitch that sound, by their indexes.
  std::map<std::pair<int, int>, std::deque<std::size_t>> m_sounding{};
  std::int64_t m_tick = 0;
  int m_status = 0;  ///< Of the channel event before, which goes on for the next ones.
  std::size_t m_count = 0;
  bool m_isOver = false;
};

}  // namespace

MidiTrack readMidiTrack(std::string_view events, MidiSigns& signs) {
  return EventReader(events, signs).read();
}

}  // namespace korvel::exchange
