// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "analysis/HearingSettings.h"
#include "music/Neck.h"

namespace korvel {

class Listening;

/// Recordings that come one after the other, of which the next ones are listened to already while
/// one has its turn, so that all cores have something to do. What is wrong with one is left for its
/// turn to be found.
class ListeningAhead {
 public:
  /// open: the strings of the guitar.
  ListeningAhead(std::vector<std::string> files, const OpenPitches& open,
                 const HearingSettings& settings);
  ~ListeningAhead();

  /// What listens to the next file. Throws NoSound where there is nothing to hear. Once for each.
  std::shared_ptr<Listening> next();

 private:
  void beginSome();
  std::shared_ptr<Listening> begunAhead(const std::string& file) const;
  std::shared_ptr<Listening> begin(const std::string& file) const;

  std::vector<std::string> m_files;
  OpenPitches m_open;
  HearingSettings m_settings;
  std::vector<std::shared_ptr<Listening>> m_begun;  ///< Of the first files; none where it failed.
  std::size_t m_next = 0;
};

}  // namespace korvel
