// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/FileSong.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "exchange/guitarpro/FileBeats.h"
#include "exchange/guitarpro/Tonic.h"
#include "platform/text/UserError.h"

namespace korvel::exchange::guitarpro {
namespace {

using platform::phrase;

constexpr std::string_view kFirstWords = "FICHIER GUITAR";
constexpr std::size_t kVersionRoom = 30;
constexpr std::size_t kNameRoom = 40;
constexpr int kMostBars = 10'000;
constexpr int kMostNotices = 10'000;
constexpr int kMostStringsOfFile = 7;
constexpr int kHighestCapo = 60;

bool isPowerOfTwo(int number) { return number > 0 && (number & (number - 1)) == 0; }

// Where each of the directions stands in the file.
enum Direction : std::size_t {
  coda,
  doubleCoda,
  segno,
  segnoSegno,
  fine,
  daCapo,
  daCapoAlCoda,
  daCapoAlDoubleCoda,
  daCapoAlFine,
  dalSegno,
  dalSegnoAlCoda,
  dalSegnoAlDoubleCoda,
  dalSegnoAlFine,
  dalSegnoSegno,
  dalSegnoSegnoAlCoda,
  dalSegnoSegnoAlDoubleCoda,
  dalSegnoSegnoAlFine,
  toCoda,
  toDoubleCoda
};

struct DirectionJump {
  Direction direction;
  BarSigns::Jump jump;
  BarSigns::Until until;
};

constexpr DirectionJump kJumps[] = {
    {daCapo, BarSigns::Jump::daCapo, BarSigns::Until::end},
    {daCapoAlCoda, BarSigns::Jump::daCapo, BarSigns::Until::coda},
    {daCapoAlFine, BarSigns::Jump::daCapo, BarSigns::Until::fine},
    {dalSegno, BarSigns::Jump::dalSegno, BarSigns::Until::end},
    {dalSegnoAlCoda, BarSigns::Jump::dalSegno, BarSigns::Until::coda},
    {dalSegnoAlFine, BarSigns::Jump::dalSegno, BarSigns::Until::fine},
};

}  // namespace

int versionOf(std::string_view bytes) {
  if (bytes.size() <= kVersionRoom || !bytes.substr(1).starts_with(kFirstWords)) return 0;
  const std::string_view line =
      bytes.substr(1, std::min<std::size_t>(static_cast<unsigned char>(bytes[0]), kVersionRoom));
  const std::size_t dot = line.rfind('.');
  int version = 0;
  for (const std::size_t place : {dot - 1, dot + 1, dot + 2}) {
    const bool isDigit = dot != std::string_view::npos && dot > 0 && place < line.size() &&
                         std::isdigit(static_cast<unsigned char>(line[place]));
    version = version * 10 + (isDigit ? line[place] - '0' : 0);
  }
  if (version < 300 || version >= 600)
    throw platform::UserError(
        phrase("Exchange", "it is of a version of Guitar Pro that is not read: %1"),
        readable(line));
  return version;
}

FileSong::FileSong(std::string_view bytes, int version) : m_bytes(bytes), m_version(version) {
  m_directions.fill(-1);
}

TabSheet FileSong::read() {
  m_bytes.text(kVersionRoom);
  readInformation();
  if (m_version < 500) setFeel(m_bytes.byte());
  if (m_version >= 400) readLyrics();
  if (m_version >= 500) readPage();
  readTempo();
  readChannels();
  if (m_version >= 500) readDirections();
  const int bars = m_bytes.count(1, kMostBars);
  const int tracks = m_bytes.count(1, kMostTracks);
  readBars(bars);
  readTracks(tracks);
  readMusic();
  placeDirections();
  return std::move(m_sheet);
}

void FileSong::readInformation() {
  m_sheet.head.title = m_bytes.sizedText();
  m_bytes.sizedText();  // the subtitle
  m_sheet.head.artist = m_bytes.sizedText();
  // Album, words, from version 5 on music too, copyright, transcriber and instructions.
  for (int i = m_version >= 500 ? 6 : 5; i > 0; --i) m_bytes.sizedText();
  for (int i = m_bytes.count(0, kMostNotices); i > 0; --i) m_bytes.sizedText();
}

void FileSong::readLyrics() {
  m_bytes.number();  // their track
  for (int line = 0; line < 5; ++line) {
    m_bytes.number();  // the bar that they begin in
    if (!m_bytes.longText().empty()) ++m_sheet.head.left["lyrics"];
  }
}

void FileSong::readPage() {
  constexpr std::size_t kSoundOfAll = 19;
  constexpr std::size_t kSizes = 30;
  if (m_version >= 510) m_bytes.skip(kSoundOfAll);
  m_bytes.skip(kSizes);
  for (int line = 0; line < 10; ++line) m_bytes.sizedText();
}

void FileSong::readTempo() {
  if (m_version >= 500) m_bytes.sizedText();  // what the tempo is called
  m_sheet.quartersAMinute = requiredTempo(m_bytes, m_bytes.number());
  if (m_version >= 510) m_bytes.byte();  // whether it is hidden
  m_bytes.number();                      // the key, which the bars say again
  if (m_version >= 400) m_bytes.byte();  // transposed by octaves on paper
}

void FileSong::readChannels() {
  constexpr std::size_t kSettings = 8;
  for (int& program : m_programs) {
    program = m_bytes.number();
    m_bytes.skip(kSettings);
  }
}

void FileSong::readDirections() {
  for (int& bar : m_directions) bar = m_bytes.shortNumber();
  m_bytes.number();  // the reverb of all
}

void FileSong::readBars(int count) {
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) readBar(i);
}

void FileSong::readBar(std::size_t index) {
  if (index > 0 && m_version >= 500) m_bytes.byte();
  const auto flags = static_cast<unsigned>(m_bytes.byte());
  MasterBar bar;
  if (index > 0) {
    bar.beats = m_sheet.bars.back().beats;
    bar.beatType = m_sheet.bars.back().beatType;
  }
  readSignature(bar, flags);
  bar.signs.opensRepeat = flags & 0x04U;
  // The older ones say how often it is repeated, the newer ones how often it is played.
  if (flags & 0x08U)
    bar.signs.timesPlayed = std::max(m_bytes.byte() + (m_version < 500 ? 1 : 0), 2);
  if (m_version < 500 && flags & 0x10U) bar.signs.endings = endingsOf(m_bytes.byte());
  if (flags & 0x20U) {
    m_bytes.sizedText();  // a mark
    m_bytes.number();     // its colour
  }
  if (flags & 0x40U) {
    const int sharps = m_bytes.signedByte();
    const bool minor = m_bytes.byte() == 1;
    if (index == 0) m_sheet.head.key = keyOf(sharps, minor);
  }
  if (m_version >= 500) {
    if (flags & 0x03U) m_bytes.skip(4);  // how beams are parted
    const int endings = m_bytes.byte();
    if (flags & 0x10U) bar.signs.endings = static_cast<unsigned>(endings);
    const int feel = m_bytes.byte();
    if (index == 0) setFeel(feel);
  }
  m_sheet.bars.push_back(std::move(bar));
}

void FileSong::readSignature(MasterBar& bar, unsigned flags) {
  constexpr int kMostBeats = 64;
  constexpr int kShortestBeat = 64;
  if (flags & 0x01U) bar.beats = m_bytes.byte();
  if (flags & 0x02U) bar.beatType = m_bytes.byte();
  const bool isSignature = bar.beats >= 1 && bar.beats <= kMostBeats &&
                           bar.beatType <= kShortestBeat && isPowerOfTwo(bar.beatType);
  if (!isSignature) m_bytes.damaged();
}

/// Up to version 4 an ending has the number of the last round that it is played in; the endings
/// before it have the others.
unsigned FileSong::endingsOf(int value) const {
  unsigned others = 0;
  for (std::size_t i = m_sheet.bars.size(); i > 0; --i) {
    const BarSigns& signs = m_sheet.bars[i - 1].signs;
    others |= signs.endings;
    if (signs.opensRepeat) break;
  }
  const unsigned rounds = (1U << static_cast<unsigned>(std::clamp(value, 0, 8))) - 1;
  return rounds & ~others;
}

void FileSong::readTracks(int count) {
  for (int i = 0; i < count; ++i) readTrack(i == 0);
  if (m_version >= 500) m_bytes.skip(m_version == 500 ? 2 : 1);
}

void FileSong::readTrack(bool isFirst) {
  SheetTrack track;
  if (m_version == 500 || (m_version > 500 && isFirst)) m_bytes.byte();
  const auto flags = static_cast<unsigned>(m_bytes.byte());
  track.head.isDrums = flags & 0x01U;
  track.head.name = m_bytes.text(kNameRoom);
  readStrings(track.head);
  m_bytes.number();  // the port
  const int channel = m_bytes.number();
  if (channel >= 1 && channel <= static_cast<int>(kChannels))
    track.head.program = std::clamp(m_programs[static_cast<std::size_t>(channel - 1)], -1, 127);
  m_bytes.number();  // the channel of effects
  m_bytes.number();  // how many frets there are
  track.head.capo = std::clamp(m_bytes.number(), 0, kHighestCapo);
  track.head.namesAreShapes = true;
  m_bytes.number();  // its colour
  if (m_version >= 500) readSound();
  m_sheet.tracks.push_back(std::move(track));
}

void FileSong::readStrings(Track& track) {
  const int strings = m_bytes.count(1, kMostStringsOfFile);
  for (int i = 0; i < kMostStringsOfFile; ++i) {
    const int open = m_bytes.number();
    if (i < strings) track.open.push_back(std::clamp(open, 0, 127));
  }
  std::ranges::reverse(track.open);  // the file begins with the highest one
}

/// What only Guitar Pro's own sounds need.
void FileSong::readSound() {
  m_bytes.skip(m_version == 500 ? 44 : 49);
  if (m_version == 500) return;
  m_bytes.sizedText();
  m_bytes.sizedText();
}

void FileSong::readMusic() {
  FileBeats beats(m_bytes, m_version);
  for (std::size_t bar = 0; bar < m_sheet.bars.size(); ++bar)
    for (SheetTrack& track : m_sheet.tracks) beats.readBar(m_sheet.bars[bar], track);
}

void FileSong::placeDirections() {
  std::vector<MasterBar>& bars = m_sheet.bars;
  const auto barOf = [&](std::size_t direction) -> BarSigns* {
    const int number = std::exchange(m_directions[direction], -1);
    const bool isThere = number >= 1 && number <= std::ssize(bars);
    return isThere ? &bars[static_cast<std::size_t>(number - 1)].signs : nullptr;
  };
  if (BarSigns* bar = barOf(coda)) bar->isCoda = true;
  if (BarSigns* bar = barOf(segno)) bar->isSegno = true;
  if (BarSigns* bar = barOf(fine)) bar->isFine = true;
  if (BarSigns* bar = barOf(toCoda)) bar->isToCoda = true;
  for (const DirectionJump& each : kJumps) {
    BarSigns* bar = barOf(each.direction);
    if (!bar) continue;
    bar->jump = each.jump;
    bar->until = each.until;
  }
  for (const int bar : m_directions)
    if (bar >= 1) ++m_sheet.head.left[kDirections];
}

void FileSong::setFeel(int feel) {
  constexpr int kTripletEighths = 1;
  if (feel == kTripletEighths) m_sheet.head.swing = 2.0 / 3;
}

}  // namespace korvel::exchange::guitarpro
