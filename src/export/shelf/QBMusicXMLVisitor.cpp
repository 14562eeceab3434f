// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/shelf/QBMusicXMLVisitor.h"

namespace korvel {
namespace {

constexpr std::size_t kBlanksForLevel = 2;

}  // namespace

std::string QBMusicXMLVisitor::shift() const {
  return std::string(kBlanksForLevel * static_cast<std::size_t>(m_depth), ' ');
}

}  // namespace korvel
