// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace korvel::platform {

/// Writes an XML document in UTF-8 from its first tag to its last one, a line for each. Texts may
/// be anything: what has a meaning in XML is escaped, and what an XML document must not have, such
/// as control characters and malformed bytes, is left out. Throws std::bad_alloc when memory ends.
class XmlWriter {
 public:
  /// The element that everything is in.
  explicit XmlWriter(const char* root);
  /// The same with where its definition is published.
  XmlWriter(const char* root, const char* publicId, const char* systemId);
  XmlWriter(const XmlWriter&) = delete;
  XmlWriter& operator=(const XmlWriter&) = delete;
  ~XmlWriter();

  /// An element that is open as long as this lives. They must end in the reverse order.
  class Element {
   public:
    explicit Element(XmlWriter& writer) : m_writer(writer) {}
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;
    ~Element() { m_writer.close(); }

   private:
    XmlWriter& m_writer;
  };

  /// Opens an element; `attribute` then adds to its start tag.
  [[nodiscard]] Element open(const char* name);
  void attribute(const char* name, std::string_view value);
  void text(std::string_view value);
  /// An element with a text, or with nothing in it.
  void add(const char* name, std::string_view text);
  void add(const char* name, int number);
  void add(const char* name);

  /// Ends the root element; nothing may be written after it.
  std::string finish();

 private:
  struct Document;
  void close();

  std::unique_ptr<Document> m_document;
};

}  // namespace korvel::platform
