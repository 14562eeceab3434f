// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

class QBMusicXMLVisitor;

/// One element of an XML document: a title, a text or children, attributes and raw markup, which
/// stand in the document as they are given, without escaping.
class QBMusicXMLTag {
 public:
  /// Blanks and tabs around the value are dropped.
  QBMusicXMLTag(std::string title, std::string_view value);
  QBMusicXMLTag(const QBMusicXMLTag&) = delete;
  QBMusicXMLTag& operator=(const QBMusicXMLTag&) = delete;
  virtual ~QBMusicXMLTag() = default;

  // Children, in the order of the document. Each answers the child.
  QBMusicXMLTag& addTag(std::string title, std::string_view value);
  QBMusicXMLTag& addTagObj(std::unique_ptr<QBMusicXMLTag> tag);
  QBMusicXMLTag& addTagObjFirst(std::unique_ptr<QBMusicXMLTag> tag);
  /// Appends to the attribute text; nothing is put in between.
  void addAttr(std::string_view text) { m_attrs += text; }
  /// Appends to the markup that follows the start tag; nothing is put in between.
  void addRaw(std::string_view text) { m_raw += text; }

  /// The start tag, which closes itself when there is neither text nor child.
  std::string open() const;
  /// The end tag; empty when the start tag closes itself.
  std::string close() const;
  const std::string& title() const { return m_title; }
  const std::string& value() const { return m_value; }
  const std::string& raw() const { return m_raw; }
  const std::vector<std::unique_ptr<QBMusicXMLTag>>& tags() const { return m_tags; }

  /// Hands this tag and those below it to the visitor, in the order of the document. Ends early,
  /// answering false, when the visitor says so after a tag.
  bool iterate(QBMusicXMLVisitor& visitor) const;

 private:
  bool hasContent() const { return !m_value.empty() || !m_tags.empty(); }

  std::string m_title;
  std::string m_value;
  std::string m_attrs;
  std::string m_raw;
  std::vector<std::unique_ptr<QBMusicXMLTag>> m_tags;
};

}  // namespace korvel
