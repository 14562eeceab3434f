// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/instrument/QBMusicXMLScanner.h"

#include "platform/files/Files.h"

namespace korvel {
namespace {

constexpr char kEnd = '\'';

bool isLineBreak(char c) { return c == '\r' || c == '\n'; }

bool isBlank(const std::string& text) { return text.find_first_not_of(" \t") == std::string::npos; }

}  // namespace

QBMusicXMLScanner::QBMusicXMLScanner(const std::filesystem::path& file)
    : data(platform::bytesOrNone(file)) {}

char QBMusicXMLScanner::readChar() {
  while (rpos < data.size() && isLineBreak(data[rpos])) ++rpos;
  // The end is not passed, so that it is found again.
  if (rpos == data.size() || data[rpos] == kEnd) return kEnd;
  return data[rpos++];
}

bool QBMusicXMLScanner::skipPast(char mark) {
  char next = readChar();
  while (next != mark && next != kEnd) next = readChar();
  return next == mark;
}

/// Goes on to the next tag, and reads its title; none when the data ends before that does.
std::optional<std::string> QBMusicXMLScanner::readTitle() {
  if (!skipPast('<')) return std::nullopt;
  std::string title;
  for (char next = readChar(); next != kEnd; next = readChar()) {
    if (next == '>') return title;
    title += next;
  }
  return std::nullopt;
}

std::string QBMusicXMLScanner::readValue() {
  std::string value;
  char next = readChar();
  for (; next != '<' && next != kEnd; next = readChar()) value += next;
  if (next == '<') --rpos;  // It belongs to the next tag.
  return isBlank(value) ? std::string() : value;
}

std::optional<QBMusicXMLScanner::Tag> QBMusicXMLScanner::nextOpenTag() {
  auto title = readTitle();
  return title ? std::optional(Tag{std::move(*title), readValue()}) : std::nullopt;
}

std::optional<QBMusicXMLScanner::Tag> QBMusicXMLScanner::nextCloseTag() {
  for (auto title = readTitle(); title; title = readTitle())
    if (title->starts_with('/')) return Tag{std::move(*title), {}};
  return std::nullopt;
}

}  // namespace korvel
