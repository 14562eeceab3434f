// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/QBMusicXMLTag.h"

#include <utility>

namespace korvel {
namespace {

std::string trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

}  // namespace

QBMusicXMLTag::QBMusicXMLTag(std::string title, std::string_view value)
    : m_title(std::move(title)), m_value(trimmed(value)) {}

QBMusicXMLTag& QBMusicXMLTag::addTag(std::string title, std::string_view value) {
  return addTagObj(std::make_unique<QBMusicXMLTag>(std::move(title), value));
}

QBMusicXMLTag& QBMusicXMLTag::addTagObj(std::unique_ptr<QBMusicXMLTag> tag) {
  return *m_tags.emplace_back(std::move(tag));
}

QBMusicXMLTag& QBMusicXMLTag::addTagObjFirst(std::unique_ptr<QBMusicXMLTag> tag) {
  return **m_tags.insert(m_tags.begin(), std::move(tag));
}

std::string QBMusicXMLTag::open() const {
  return '<' + m_title + (m_attrs.empty() ? "" : ' ' + m_attrs) + (hasContent() ? ">" : "/>");
}

std::string QBMusicXMLTag::close() const { return hasContent() ? "</" + m_title + '>' : ""; }

}  // namespace korvel
