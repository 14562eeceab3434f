// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/SongLyrics.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "model/songs/QBSong.h"
#include "platform/text/Utf8.h"

namespace korvel {
namespace {

/// Between the tick and the words of a line.
constexpr char kTab = '\t';

bool isBlank(char letter) { return std::isspace(static_cast<unsigned char>(letter)) != 0; }

/// One line, with one blank for each run of them and none at the ends.
std::string inOneLine(std::string_view text) {
  std::string spaced(text);
  std::ranges::replace_if(spaced, isBlank, ' ');
  std::string line;
  for (const char letter : platform::printable(spaced))
    if (letter != ' ' || (!line.empty() && line.back() != ' ')) line += letter;
  if (line.ends_with(' ')) line.pop_back();
  return line;
}

}  // namespace

std::vector<SungWords> lyricsOf(const QBSong& song) {
  std::vector<SungWords> words;
  std::string_view rest = song.lyrics();
  while (!rest.empty()) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    SungWords each;
    const char* end = line.data() + line.size();
    const auto [behind, error] = std::from_chars(line.data(), end, each.tick);
    if (error != std::errc() || behind == end || *behind != kTab) continue;
    each.text = inOneLine({behind, end});
    if (!each.text.empty()) words.push_back(std::move(each));
  }
  std::ranges::stable_sort(words, {}, &SungWords::tick);
  return words;
}

void setLyrics(QBSong& song, std::vector<SungWords> words) {
  std::ranges::stable_sort(words, {}, &SungWords::tick);
  std::string text;
  int tick = 0;
  for (const SungWords& each : words) {
    const std::string line = inOneLine(each.text);
    if (line.empty()) continue;
    const bool isJoined = !text.empty() && each.tick == tick;
    if (isJoined) text.back() = ' ';
    if (!isJoined) text += std::to_string(each.tick) + kTab;
    text += line + '\n';
    tick = each.tick;
  }
  if (text != song.lyrics()) song.setLyrics(std::move(text));
}

}  // namespace korvel
