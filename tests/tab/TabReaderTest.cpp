// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/TabReader.h"

#include "support/Testing.h"

namespace korvel {
namespace {

/// "x02210@3": the frets from the lowest string up, and the column.
std::string read(const char* text) {
  std::string read;
  const TabReader reader(text);
  for (const TypedChord& chord : reader.chords()) {
    std::array<std::string, 6> frets;
    frets.fill("x");
    for (const auto& tone : chord.tones)
      frets.at(static_cast<std::size_t>(tone.string)) =
          tone.fret > 9 ? '(' + std::to_string(tone.fret) + ')' : std::to_string(tone.fret);
    for (const std::string& fret : frets) read += fret;
    read += '@' + std::to_string(chord.column) + ' ';
  }
  return read;
}

struct Written {
  const char* what;
  const char* text;
  const char* chords;
};

constexpr Written kTexts[] = {
    {"a song book's, with names and a remark", R"(
Am      G
e|--0-----3--|
B|--1-----0--|
G|--2-----0--|
D|--2-----0--|
A|--0-----2--|
E|--------3--| x2
)",
     "x02210@2 320003@8 "},
    {"two systems with words between, of other tunings, and without a last bar", R"(
Eb|-0-|--
Bb|---|--
Gb|---|--
Db|---|--
Ab|---|--
Eb|---|3-
   la  la
Eb|---
Bb|1--
Gb|---
Db|---
Ab|---
Eb|---
)",
     "xxxxx0@1 3xxxxx@4 xxxx1x@6 "},
    {"numbers of two digits, set to the left or to the right of one", R"(
|-12--10-35-|
|--9--------|
|-----------|
|-----------|
|-----------|
|-----------|
)",
     "xxxx9(12)@1 xxxxx(10)@5 xxxxx3@8 xxxxx5@9 "},
    {"signs of how it is played; what is bent to is not struck", R"(
e|--7b9r7--5h7p5-|
B|--x--(3)-------|
G|--<12>---------|
D|----------/5~--|
A|---------------|
E|---------------|
)",
     "xxx(12)x7@2 xxxx3x@5 xxxxx5@9 xx5xx7@11 xxxxx5@13 "},
    {"as this program draws it, with durations", R"(
        Am  F
 |E---- -0---1--
 |B---- -1---1--
 |G---- -2---2--
 |D---- -2---3--
 |A---- -0---3--
 |E---- -----1--
         |   |
         -   -
)",
     "x02210@6 133211@10 "},
    {"drawn lines, the low string at the top",
     "E│──3──\r\nA│──2──\r\nD│──0──\r\nG│──0──\r\nB│──0──\r\ne│──3──\r\n", "320003@2 "},
    {"without bars at the beginning", "e--0--|\nB--1--|\nG--2--|\nD--2--|\nA--0--|\nE-----|\n",
     "x02210@2 "},
    {"of a bass", "G|--0--|\nD|--2--|\nA|--2--|\nE|--0--|\n", ""},
    {"a line lost", "e|--0--|\nB|--1--|\nG|--2--|\nD|--2--|\nA|--0--|\n", ""},
    {"words", "Buy strings | and a capo -- soon", ""},
};

TEST(TabReader, readsWhatPeopleWrite) {
  for (const Written& each : kTexts) EXPECT_EQ(read(each.text), each.chords) << each.what;
}

}  // namespace
}  // namespace korvel
