// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/shelf/QBMusicXMLTag.h"

#include <utility>

#include "export/shelf/QBMusicXMLVisitor.h"
#include "platform/text/Blanks.h"

namespace korvel {

QBMusicXMLTag::QBMusicXMLTag(std::string title, std::string_view value)
    : m_title(std::move(title)), m_value(platform::trimmed(value, platform::kBlanksOfLine)) {}

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

bool QBMusicXMLTag::iterate(QBMusicXMLVisitor& visitor) const {
  visitor.pre(*this);
  visitor.increaseDepth();
  for (const auto& tag : m_tags)
    if (!tag->iterate(visitor)) return false;
  visitor.decreaseDepth();
  visitor.execute(*this);
  return visitor.post(*this);
}

}  // namespace korvel
