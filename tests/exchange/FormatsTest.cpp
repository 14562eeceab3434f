// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/Formats.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace korvel::exchange {
namespace {

using namespace std::string_literals;

constexpr std::optional<Format> kNone{};
const std::string kSystem =
    "e|---0-2-3--|\nB|----------|\n\nG|----------|\nD|--2-------|\nA|----------|\nE|0---------|\n";

TEST(FormatsTest, contentTellsTheFormatAndTheNameWhatItLeavesOpen) {
  const struct {
    std::string_view name;
    std::string bytes;
    std::optional<Format> format;
  } kFiles[] = {
      {"song.mid", "MThd\0\0\0\6"s, Format::midi},
      {"song.wav", "RIFF\0\0\0\0RMIDdata"s, Format::midi},
      {"song.wav", "RIFF\0\0\0\0WAVEfmt "s, kNone},
      {"song",
       "\x18"
       "FICHIER GUITAR PRO v5.00"s,
       Format::guitarPro},
      {"song.gp", "BCFZ\1\2"s, Format::guitarPro},
      {"song.zip", "PK\3\4....Content/score.gpif"s, Format::guitarPro},
      {"song.zip", "PK\3\4....META-INF/container.xml"s, Format::compressedMusicXml},
      {"song.MXL", "PK\3\4...."s, Format::compressedMusicXml},
      {"song.zip", "PK\3\4...."s, kNone},
      {"song.xml", "<?xml version=\"1.0\"?>\n<score-partwise>"s, Format::musicXml},
      {"wide.xml", "\xFF\xFE<\0?\0x\0m\0l\0?\0>\0<\0s\0c\0o\0r\0e\0-\0t\0i\0m\0e\0w\0i\0s\0e\0"s,
       Format::musicXml},
      {"guitar.xml", "<?xml version=\"1.0\"?>\n<instrument/>"s, kNone},
      {"song", kSystem, Format::tabText},
      {"notes.txt", "only words", Format::tabText},
      {"notes.md", "only words\n- and\n- a\n- list\n- of them\n", kNone},
      {"noise.tab", "e|---0\1--|"s, kNone},
      {"empty.txt", "", kNone},
  };
  for (const auto& file : kFiles)
    EXPECT_EQ(formatOf(file.bytes, file.name), file.format) << file.name << ": " << file.bytes;
}

}  // namespace
}  // namespace korvel::exchange
