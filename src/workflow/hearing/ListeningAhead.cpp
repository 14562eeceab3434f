// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/ListeningAhead.h"

#include <utility>

#include "analysis/chords/Listening.h"
#include "audio/MonoTrack.h"
#include "platform/loop/Workers.h"
#include "workflow/hearing/SoundCheck.h"

namespace korvel {

ListeningAhead::ListeningAhead(std::vector<std::string> files, const OpenPitches& open,
                               const HearingSettings& settings)
    : m_files(std::move(files)), m_open(open), m_settings(settings) {}

ListeningAhead::~ListeningAhead() = default;

std::shared_ptr<Listening> ListeningAhead::next() {
  beginSome();
  const std::size_t turn = m_next++;
  auto& begun = m_begun.at(turn);
  return begun ? std::move(begun) : begin(m_files.at(turn));
}

/// Each open file waits with a decoder of its own, so there are not many.
void ListeningAhead::beginSome() {
  const std::size_t atOnce = 1 + platform::Workers::ofProcess().threads();
  while (m_begun.size() < m_files.size() && m_begun.size() < m_next + atOnce)
    m_begun.push_back(begunAhead(m_files[m_begun.size()]));
}

std::shared_ptr<Listening> ListeningAhead::begunAhead(const std::string& file) const {
  try {
    return begin(file);
  } catch (const NoSound&) {
    return nullptr;
  }
}

std::shared_ptr<Listening> ListeningAhead::begin(const std::string& file) const {
  requireSound(file);
  const auto track = std::make_shared<MonoTrack>(file);
  track->startRecord(0);
  return std::make_shared<Listening>(track, m_open, m_settings);
}

}  // namespace korvel
