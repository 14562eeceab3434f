// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/XmlDocument.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>
#include <memory>
#include <new>
#include <unordered_map>

#include "platform/text/Blanks.h"
#include "platform/text/UserError.h"

namespace korvel::platform {
namespace {

struct FreeParser {
  void operator()(xmlParserCtxt* parser) const {
    xmlFreeDoc(parser->myDoc);
    xmlFreeParserCtxt(parser);
  }
};

std::string_view viewOf(const xmlChar* text) {
  return text ? reinterpret_cast<const char*>(text) : std::string_view();
}

/// Of `kBlanks`; asked of each text.
constexpr bool isBlank(char c) { return c == '\n' || c == ' ' || c == '\t' || c == '\r'; }

template <class Number>
std::optional<Number> numberIn(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace

/// What the library finds becomes nodes. No exception may pass through the library: one is kept
/// until it has returned.
class XmlTreeBuilder {
 public:
  explicit XmlTreeBuilder(XmlDocument& document) : m_document(document) {}

  void build(std::string_view bytes) {
    m_document.m_nodes.reserve(bytes.size() / kFewBytesOfElement);
    m_bytes = bytes;
    m_parser.reset(
        xmlCreateIOParserCtxt(nullptr, nullptr, readOn, nullptr, this, XML_CHAR_ENCODING_NONE));
    if (!m_parser) throw std::bad_alloc();
    prepare(*m_parser->sax);
    m_parser->userData = this;
    xmlCtxtUseOptions(m_parser.get(), XML_PARSE_NONET | XML_PARSE_NOWARNING | XML_PARSE_NOERROR);
    xmlParseDocument(m_parser.get());
    if (m_failure) std::rethrow_exception(m_failure);
    if (!m_parser->wellFormed || m_document.m_nodes.empty()) refuse();
  }

 private:
  using Node = XmlDocument::Node;
  using Index = XmlDocument::Index;

  /// An element that has not ended yet.
  struct Open {
    Index node;
    Index lastChild;
    std::string text;
  };

  /// The index of a name that was met lately, by its place in memory.
  struct Known {
    const xmlChar* name;
    Index index;
  };
  static constexpr std::size_t kMostKnown = 256;
  /// Scores have about one element in 20 to 40 bytes; memory that is not written to costs nothing.
  static constexpr std::size_t kFewBytesOfElement = 16;

  static XmlTreeBuilder& self(void* data) { return *static_cast<XmlTreeBuilder*>(data); }

  /// Hands the bytes over bit by bit, so that the library makes no copy of them as a whole.
  static int readOn(void* data, char* to, int most) {
    std::string_view& bytes = self(data).m_bytes;
    const std::size_t count = bytes.copy(to, static_cast<std::size_t>(std::max(most, 0)));
    bytes.remove_prefix(count);
    return static_cast<int>(count);
  }

  /// Only what is named here happens at all: without the library's own handlers it makes no tree,
  /// and knows neither external documents nor entities but those of XML itself.
  static void prepare(xmlSAXHandler& handler) {
    handler = {};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = [](void* data, const xmlChar* name, const xmlChar*, const xmlChar*,
                                int, const xmlChar**, int attributes, int, const xmlChar** values) {
      self(data).guarded([&](XmlTreeBuilder& it) { it.start(name, attributes, values); });
    };
    handler.endElementNs = [](void* data, const xmlChar*, const xmlChar*, const xmlChar*) {
      self(data).guarded([](XmlTreeBuilder& it) { it.end(); });
    };
    handler.characters = [](void* data, const xmlChar* text, int length) {
      self(data).guarded([&](XmlTreeBuilder& it) { it.addText(text, length); });
    };
    handler.cdataBlock = handler.characters;
    handler.ignorableWhitespace = handler.characters;
    handler.entityDecl = [](void* data, const xmlChar*, int, const xmlChar*, const xmlChar*,
                            xmlChar*) {
      self(data).guarded([](XmlTreeBuilder& it) { it.refuseEntity(); });
    };
    handler.serror = [](void*, auto) {};
  }

  template <class Work>
  void guarded(const Work& work) {
    if (m_failure) return;
    try {
      work(*this);
    } catch (...) {
      m_failure = std::current_exception();
      xmlStopParser(m_parser.get());
    }
  }

  void start(const xmlChar* name, int attributes, const xmlChar** values) {
    auto& nodes = m_document.m_nodes;
    const auto index = static_cast<Index>(nodes.size());
    Node& made = nodes.emplace_back();
    made.name = nameIndex(name);
    made.line = static_cast<Index>(std::max(0, m_parser->input->line));
    made.attributes = static_cast<Index>(m_document.m_attributes.size());
    // Of each five values: name, prefix, namespace, and where its text begins and ends.
    for (int i = 0; i < attributes; ++i, values += 5)
      m_document.m_attributes.push_back(
          {nameIndex(values[0]), keep({reinterpret_cast<const char*>(values[3]),
                                       static_cast<std::size_t>(values[4] - values[3])})});
    if (!m_open.empty()) {
      Index& last = m_open.back().lastChild;
      (last == XmlDocument::kNone ? nodes[m_open.back().node].child : nodes[last].next) = index;
      last = index;
    }
    m_open.push_back({index, XmlDocument::kNone, {}});
  }

  void end() {
    std::string& text = m_open.back().text;
    while (!text.empty() && isBlank(text.back())) text.pop_back();
    m_document.m_nodes[m_open.back().node].text = keep(text);
    m_open.pop_back();
  }

  void addText(const xmlChar* bytes, int length) {
    if (m_open.empty()) return;
    std::string& text = m_open.back().text;
    const char* first = reinterpret_cast<const char*>(bytes);
    const char* end = first + length;
    // Most elements with elements in them have nothing but blanks beside these.
    if (text.empty()) first = std::find_if_not(first, end, isBlank);
    text.append(first, end);
  }

  XmlDocument::Text keep(std::string_view text) {
    const auto at = static_cast<Index>(m_document.m_texts.size());
    m_document.m_texts += text;
    return {at, static_cast<Index>(text.size())};
  }

  /// The library gives equal names as the same pointer.
  Index nameIndex(const xmlChar* name) {
    Known& known = m_known[reinterpret_cast<std::uintptr_t>(name) / alignof(double) % kMostKnown];
    if (known.name != name) known = {name, indexOf(name)};
    return known.index;
  }

  Index indexOf(const xmlChar* name) {
    const auto [found, isNew] =
        m_names.try_emplace(name, static_cast<Index>(m_document.m_names.size()));
    if (isNew) m_document.m_names.emplace_back(viewOf(name));
    return found->second;
  }

  void refuseEntity() const {
    throw UserError(
        phrase("Exchange", "line %1 declares an entity, which is not read for safety's sake"),
        m_parser->input->line);
  }

  void refuse() const {
    const xmlError& error = m_parser->lastError;
    const char* said = error.message ? error.message : "";
    throw UserError(phrase("Exchange", "its XML is broken in line %1: %2"), error.line,
                    trimmed(said));
  }

  XmlDocument& m_document;
  std::string_view m_bytes{};  ///< Those that the library has not seen yet.
  std::unique_ptr<xmlParserCtxt, FreeParser> m_parser{};
  std::unordered_map<const xmlChar*, Index> m_names{};
  std::array<Known, kMostKnown> m_known{};
  std::vector<Open> m_open{};
  std::exception_ptr m_failure{};
};

XmlDocument::XmlDocument(std::string_view bytes) {
  if (bytes.empty()) throw UserError(phrase("Exchange", "it is empty"));
  if (bytes.size() > kMostBytes)
    throw UserError(phrase("Exchange", "it has more than %1 MB of XML"), kMostBytes >> 20);
  XmlTreeBuilder(*this).build(bytes);
}

XmlDocument::Element XmlDocument::root() const { return {this, 0}; }

std::string_view XmlDocument::Element::text() const {
  return m_document ? m_document->view(node().text) : std::string_view();
}

std::optional<int> XmlDocument::Element::integer() const { return numberIn<int>(text()); }

std::optional<double> XmlDocument::Element::number() const { return numberIn<double>(text()); }

std::string_view XmlDocument::Element::attribute(std::string_view name) const {
  if (!m_document) return {};
  const auto& nodes = m_document->m_nodes;
  const auto& all = m_document->m_attributes;
  const std::size_t end = m_index + 1 < nodes.size() ? nodes[m_index + 1].attributes : all.size();
  for (std::size_t i = node().attributes; i < end; ++i)
    if (m_document->m_names[all[i].name] == name) return m_document->view(all[i].value);
  return {};
}

std::optional<int> XmlDocument::Element::integerAttribute(std::string_view name) const {
  return numberIn<int>(trimmed(attribute(name)));
}

std::optional<double> XmlDocument::Element::numberAttribute(std::string_view name) const {
  return numberIn<double>(trimmed(attribute(name)));
}

int XmlDocument::Element::line() const { return m_document ? static_cast<int>(node().line) : 0; }

XmlDocument::Element XmlDocument::Element::child(std::string_view name) const {
  for (const Element& each : children())
    if (each.is(name)) return each;
  return {};
}

XmlDocument::Children XmlDocument::Element::children() const { return Children(*this); }

}  // namespace korvel::platform
