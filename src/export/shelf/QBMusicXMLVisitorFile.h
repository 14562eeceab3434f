// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "export/shelf/QBMusicXMLVisitor.h"

namespace korvel {

/// Turns tags into the text of a document: lines end in "\r\n", a tag with a text alone is on one
/// line, an end tag is not indented, and an empty tag is followed by an empty line.
class QBMusicXMLVisitorFile final : public QBMusicXMLVisitor {
 public:
  explicit QBMusicXMLVisitorFile(std::string file);

  bool pre(const QBMusicXMLTag& tag) override;
  bool execute(const QBMusicXMLTag& tag) override;
  bool post(const QBMusicXMLTag& tag) override;

  void addString(std::string_view text);
  void addStringAndNewLine(std::string_view text);
  const std::string& content() const { return m_content; }
  /// Puts the content into the file, which is replaced as a whole; false when that fails.
  bool write() const;

 private:
  std::string m_file;
  std::string m_content;
};

}  // namespace korvel
