// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace korvel {

/// Cuts an instrument definition file into tags. There are no attributes, comments or prolog; line
/// breaks do not count, wherever they stand. An apostrophe ends the data for good, wherever it
/// stands, and so does the end of the file; what is left of a tag there is no tag.
class QBMusicXMLScanner {
 public:
  struct Tag {
    std::string title;  ///< Between "<" and ">"; that of a close tag begins with "/".
    std::string value;  ///< The text up to the next tag or the end; empty when it is all blanks.
  };

  /// Loads the whole file. One that is missing or unreadable has no tags.
  explicit QBMusicXMLScanner(const std::filesystem::path& file);

  /// The next byte that is no line break; an apostrophe at the end of the data, however often it is
  /// asked for.
  char readChar();

  /// The next tag of any kind, and the text behind it.
  std::optional<Tag> nextOpenTag();
  /// The next tag whose title begins with "/"; everything before it is skipped.
  std::optional<Tag> nextCloseTag();

 private:
  bool skipPast(char mark);
  std::optional<std::string> readTitle();
  std::string readValue();

  std::string data;
  std::size_t rpos = 0;
};

}  // namespace korvel
