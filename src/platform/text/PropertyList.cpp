// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/PropertyList.h"

#include <libxml/xmlreader.h>

#include <charconv>
#include <fstream>
#include <memory>
#include <string_view>

#include "platform/text/Blanks.h"

namespace korvel::platform {
namespace {

struct FreeReader {
  void operator()(xmlTextReader* reader) const { xmlFreeTextReader(reader); }
};

int readSome(void* stream, char* buffer, int size) {
  auto& file = *static_cast<std::ifstream*>(stream);
  file.read(buffer, size);
  return file.bad() ? -1 : static_cast<int>(file.gcount());
}

/// The parts of a document that count: tags and texts, without comments and white space.
class TagReader {
 public:
  explicit TagReader(std::ifstream& file)
      : m_reader(xmlReaderForIO(readSome, nullptr, &file, nullptr, nullptr,
                                XML_PARSE_NONET | XML_PARSE_NOBLANKS | XML_PARSE_NOCDATA)) {
    // Findings would go to the program's standard error.
    const auto ignore = [](void*, auto) {};
    if (m_reader) xmlTextReaderSetStructuredErrorHandler(m_reader.get(), ignore, nullptr);
  }

  /// False at the end and at an error.
  bool next() {
    do m_result = m_reader ? xmlTextReaderRead(m_reader.get()) : -1;
    while (m_result == 1 && !counts(type()));
    return m_result == 1;
  }
  bool atEnd() const { return m_result == 0; }
  bool isStart(std::string_view tag) const { return is(XML_READER_TYPE_ELEMENT, tag); }
  bool isEnd(std::string_view tag) const { return is(XML_READER_TYPE_END_ELEMENT, tag); }
  bool isEmpty() const { return xmlTextReaderIsEmptyElement(m_reader.get()) == 1; }
  bool isText() const { return type() == XML_READER_TYPE_TEXT; }
  std::string_view text() const { return view(xmlTextReaderConstValue(m_reader.get())); }

 private:
  static bool counts(int type) {
    return type == XML_READER_TYPE_ELEMENT || type == XML_READER_TYPE_END_ELEMENT ||
           type == XML_READER_TYPE_TEXT || type == XML_READER_TYPE_ENTITY_REFERENCE;
  }
  static std::string_view view(const xmlChar* text) {
    return text ? reinterpret_cast<const char*>(text) : std::string_view();
  }
  int type() const { return xmlTextReaderNodeType(m_reader.get()); }
  bool is(int wanted, std::string_view tag) const {
    return type() == wanted && view(xmlTextReaderConstName(m_reader.get())) == tag;
  }

  std::unique_ptr<xmlTextReader, FreeReader> m_reader;
  int m_result = -1;
};

std::optional<std::int64_t> asInteger(std::string_view text) {
  text = trimmed(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

/// The rest of an element behind its start tag.
std::optional<std::int64_t> readInteger(TagReader& reader) {
  if (reader.isEmpty() || !reader.next() || !reader.isText()) return std::nullopt;
  const auto value = asInteger(reader.text());
  return reader.next() && reader.isEnd("integer") ? value : std::nullopt;
}

/// The rest of an array behind its start tag.
std::optional<std::vector<std::int64_t>> readArray(TagReader& reader) {
  std::vector<std::int64_t> values;
  if (reader.isEmpty()) return values;
  while (reader.next() && reader.isStart("integer")) {
    const auto value = readInteger(reader);
    if (!value) return std::nullopt;
    values.push_back(*value);
  }
  if (!reader.isEnd("array")) return std::nullopt;
  return values;
}

}  // namespace

std::optional<std::vector<std::int64_t>> readIntegers(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  TagReader reader(stream);
  if (!reader.next() || !reader.isStart("plist") || reader.isEmpty()) return std::nullopt;
  if (!reader.next() || !reader.isStart("array")) return std::nullopt;
  auto values = readArray(reader);
  if (!reader.next() || !reader.isEnd("plist") || reader.next() || !reader.atEnd())
    return std::nullopt;
  return values;
}

}  // namespace korvel::platform
