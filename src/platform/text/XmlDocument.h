// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvel::platform {

/// An XML document of another program, read as a whole: elements with their attributes and texts,
/// without comments and the prefixes of namespaces. Nothing outside of the bytes is ever looked at;
/// a document that declares entities of its own is refused.
class XmlDocument {
 public:
  /// More than any music takes; what is read takes about ten times as much memory as this at worst.
  static constexpr std::size_t kMostBytes = 32 << 20;

  class Element;
  class Children;

  /// In any encoding that the document names. Throws a UserError that tells the line where it is
  /// not well formed, too large or nested deeper than a few hundred elements.
  explicit XmlDocument(std::string_view bytes);
  XmlDocument(const XmlDocument&) = delete;
  XmlDocument& operator=(const XmlDocument&) = delete;

  Element root() const;

 private:
  friend class XmlTreeBuilder;
  using Index = std::uint32_t;
  static constexpr Index kNone = ~Index{0};

  struct Text {
    Index at = 0;
    Index length = 0;
  };
  struct Attribute {
    Index name = 0;
    Text value;
  };
  struct Node {
    Index name = 0;
    Index line = 0;
    Text text;
    Index attributes = 0;  ///< The first one; those of the next element follow.
    Index child = kNone;
    Index next = kNone;
  };

  std::string_view view(const Text& text) const {
    return std::string_view(m_texts).substr(text.at, text.length);
  }

  std::vector<std::string> m_names;
  std::vector<Node> m_nodes;  ///< As they begin in the document; the root is the first.
  std::vector<Attribute> m_attributes;
  std::string m_texts;
};

/// An element, or none: one that was asked for and is not there. All queries of none give nothing,
/// so that they can be chained. Valid as long as its document.
class XmlDocument::Element {
 public:
  Element() = default;

  explicit operator bool() const { return m_document != nullptr; }
  std::string_view name() const {
    return m_document ? std::string_view(m_document->m_names[node().name]) : std::string_view();
  }
  bool is(std::string_view name) const { return this->name() == name; }
  /// What stands in it outside of its elements, without the blanks around it.
  std::string_view text() const;
  /// The text as a number; none where it is no number, or where more than a number stands there.
  std::optional<int> integer() const;
  std::optional<double> number() const;
  /// Empty where it has no such attribute.
  std::string_view attribute(std::string_view name) const;
  std::optional<int> integerAttribute(std::string_view name) const;
  std::optional<double> numberAttribute(std::string_view name) const;
  /// Where it begins, from 1 on; 0 of none.
  int line() const;

  /// The first of that name.
  Element child(std::string_view name) const;
  bool has(std::string_view name) const { return static_cast<bool>(child(name)); }
  /// All of them in order.
  Children children() const;

 private:
  friend class XmlDocument;
  friend class Children;
  Element(const XmlDocument* document, Index index) : m_document(document), m_index(index) {}
  const Node& node() const { return m_document->m_nodes[m_index]; }

  const XmlDocument* m_document = nullptr;
  Index m_index = 0;
};

/// The elements in an element.
class XmlDocument::Children {
 public:
  class Iterator {
   public:
    using value_type = Element;
    using difference_type = std::ptrdiff_t;

    Iterator() = default;
    Element operator*() const { return {m_document, m_index}; }
    Iterator& operator++() {
      m_index = m_document->m_nodes[m_index].next;
      return *this;
    }
    Iterator operator++(int) {
      const Iterator before = *this;
      ++*this;
      return before;
    }
    bool operator==(const Iterator& other) const { return m_index == other.m_index; }

   private:
    friend class Children;
    Iterator(const XmlDocument* document, Index index) : m_document(document), m_index(index) {}

    const XmlDocument* m_document = nullptr;
    Index m_index = kNone;
  };

  explicit Children(const Element& parent) : m_parent(parent) {}

  Iterator begin() const { return {m_parent.m_document, m_parent ? m_parent.node().child : kNone}; }
  Iterator end() const { return {m_parent.m_document, kNone}; }

 private:
  Element m_parent;
};

}  // namespace korvel::platform
