// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/shelf/QBMusicXMLVisitorFile.h"

#include <utility>

#include "export/shelf/QBMusicXMLTag.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "platform/text/Blanks.h"

namespace korvel {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

QBMusicXMLVisitorFile::QBMusicXMLVisitorFile(std::string file) : m_file(std::move(file)) {}

bool QBMusicXMLVisitorFile::pre(const QBMusicXMLTag& tag) {
  if (!tag.raw().empty()) {
    addStringAndNewLine(tag.open());
    addStringAndNewLine(tag.raw());
  } else if (!tag.value().empty()) {
    addString(tag.open());
  } else {
    addStringAndNewLine(tag.open());
  }
  return true;
}

bool QBMusicXMLVisitorFile::execute(const QBMusicXMLTag& tag) {
  m_content += platform::trimmed(tag.value(), platform::kBlanksOfLine);
  return true;
}

// The end tag of an empty one is empty too, but its line end is written: an empty line, as
// intended.
bool QBMusicXMLVisitorFile::post(const QBMusicXMLTag& tag) {
  m_content += tag.close();
  m_content += kLineEnd;
  return true;
}

void QBMusicXMLVisitorFile::addString(std::string_view text) {
  m_content += shift();
  m_content += platform::trimmed(text, platform::kBlanksOfLine);
}

void QBMusicXMLVisitorFile::addStringAndNewLine(std::string_view text) {
  addString(text);
  m_content += kLineEnd;
}

bool QBMusicXMLVisitorFile::write() const {
  try {
    platform::writeAtomically(m_file, m_content);
    return true;
  } catch (const platform::FileError&) {
    return false;
  }
}

}  // namespace korvel
