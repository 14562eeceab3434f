// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/DefinitionCheck.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "music/Neck.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

using platform::phrase;

constexpr std::string_view kBlanksOfFile = " \t\r\n";

std::string textOf(const std::filesystem::path& file) {
  try {
    return platform::readWholeFile(file);
  } catch (const platform::FileError&) {
    return {};
  }
}

template <class Number>
std::optional<Number> numberIn(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanksOfFile);
  if (first == std::string_view::npos) return std::nullopt;
  text = text.substr(first, text.find_last_not_of(kBlanksOfFile) + 1 - first);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size() &&
                     std::isfinite(static_cast<double>(number));
  return whole ? std::optional(number) : std::nullopt;
}

/// Walks over the elements in the order that they have to stand in.
class Walk {
 public:
  /// For the reader an apostrophe ends the file.
  Walk(const std::filesystem::path& file, std::string_view text)
      : m_file(file.string()), m_text(text.substr(0, text.find('\''))) {
    readTag();
  }

  void wholeFile() {
    if (m_title != "Instrument")
      throw EditRefused(
          phrase("Message", "%1: is no instrument definition file; nothing was imported"), m_file);
    enter("Instrument");
    element("Name");
    number<float>("DetailLevel");
    while (m_title == "Spectrum") spectrum();
    enter("/Instrument");
  }

 private:
  void spectrum() {
    enter("Spectrum");
    enter("String");
    const std::string_view string = element("Order");
    const auto order = numberIn<int>(string);
    if (!order || *order < 0 || *order >= kStrings)
      throw EditRefused(
          phrase("Message",
                 "%1: line %2 has \"%3\" where a string, 0 to 5, belongs; nothing was "
                 "imported"),
          m_file, lineOf(string), string);
    enter("/String");
    while (m_title == "Overtone") overtone();
    enter("/Spectrum");
  }

  void overtone() {
    enter("Overtone");
    for (const char* each : {"OverString", "OverFret", "OverNote", "OverNmbOfHits"})
      number<int>(each);
    number<double>("Amp");
    number<int>("Offset");
    enter("/Overtone");
  }

  template <class Number>
  void number(const std::string& title) {
    const std::string_view value = element(title);
    if (!numberIn<Number>(value))
      throw EditRefused(
          phrase("Message", "%1: line %2 has \"%3\" where a number belongs; nothing was imported"),
          m_file, lineOf(value), value);
  }

  /// Its text; what follows it is the next tag.
  std::string_view element(const std::string& title) {
    enter(title);
    const std::string_view value = m_before;
    enter('/' + title);
    return value;
  }

  /// Goes past a tag, which has to be that one.
  void enter(const std::string& title) {
    if (m_title.empty())
      throw EditRefused(
          phrase("Message", "%1: breaks off in line %2, before <%3>; nothing was imported"), m_file,
          lineAt(m_text.find_last_not_of(kBlanksOfFile)), title);
    if (m_title != title)
      throw EditRefused(
          phrase("Message", "%1: line %2 has <%3> where <%4> belongs; nothing was imported"),
          m_file, lineAt(m_at), m_title, title);
    readTag();
  }

  /// The next tag and the text before it; no title at the end.
  void readTag() {
    const std::size_t open = std::min(m_text.find('<', m_next), m_text.size());
    const std::size_t close = m_text.find('>', open);
    m_before = m_text.substr(m_next, open - m_next);
    m_at = open;
    m_title.clear();
    if (close == std::string_view::npos) return;
    m_title = m_text.substr(open + 1, close - open - 1);
    std::erase_if(m_title, [](char c) { return c == '\r' || c == '\n'; });
    m_next = close + 1;
  }

  std::ptrdiff_t lineOf(std::string_view value) const {
    return lineAt(static_cast<std::size_t>(value.data() - m_text.data()));
  }

  /// Counted from 1.
  std::ptrdiff_t lineAt(std::size_t place) const {
    return 1 + std::ranges::count(m_text.substr(0, std::min(place, m_text.size())), '\n');
  }

  std::string m_file;
  std::string_view m_text;
  std::string m_title;        ///< Of the tag that comes next.
  std::string_view m_before;  ///< The text between the last tag and that one.
  std::size_t m_at = 0;       ///< Where that one begins.
  std::size_t m_next = 0;     ///< Behind it.
};

}  // namespace

void requireWholeDefinition(const std::filesystem::path& file) {
  const std::string text = textOf(file);
  Walk(file, text).wholeFile();
}

}  // namespace korvel
