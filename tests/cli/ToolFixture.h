// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <nlohmann/json.hpp>

#include "support/Process.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/store/ScratchFolder.h"

namespace korvel::test {

/// The tool in a folder of its own, which has its store, its takes and "a.wav", a few chords.
class ToolFixture : public testing::Test {
 protected:
  ToolFixture() { writeWav(m_wav, fewChords()); }

  std::vector<std::string> command(std::vector<std::string> words) const {
    words.insert(words.begin(), {"env", "XDG_DATA_HOME=" + m_folder.path().string(), KORVEL_CLI,
                                 "--store", m_store});
    return words;
  }
  Outcome tool(const std::vector<std::string>& words) const { return runProgram(command(words)); }
  nlohmann::json dump(const std::string& song) const {
    return nlohmann::json::parse(tool({"dump", song}).out);
  }
  std::string file(const std::string& name) const { return m_folder.file(name); }

  ScratchFolder m_folder;
  std::string m_store = file("Korvel.sqlite");
  std::string m_wav = file("a.wav");
};

}  // namespace korvel::test
