// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/SoundFonts.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sstream>
#include <string>

#include "platform/files/Files.h"

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::array kPlaces{"soundfonts", "sounds/sf2", "sounds/sf3"};
/// What an administrator of a Debian machine has chosen.
constexpr std::array kDefaults{"sounds/sf2/default-GM.sf2", "sounds/sf3/default-GM.sf3"};

bool hasEndingOfFont(const fs::path& file) {
  std::string ending = file.extension().string();
  std::ranges::transform(ending, ending.begin(), [](unsigned char c) { return std::tolower(c); });
  return ending == ".sf2" || ending == ".sf3";
}

/// By name; none when the folder is missing or cannot be read.
std::vector<fs::path> fontsIn(const fs::path& folder) {
  std::vector<fs::path> fonts;
  std::error_code ended;
  for (fs::directory_iterator at(folder, ended), end; !ended && at != end; at.increment(ended))
    if (hasEndingOfFont(at->path())) fonts.push_back(at->path());
  std::ranges::sort(fonts);
  return fonts;
}

void addFontsOf(const fs::path& data, std::vector<fs::path>& fonts) {
  for (const char* place : kPlaces)
    for (const fs::path& font : fontsIn(data / place)) fonts.push_back(font);
}

bool canPlay(const fs::path& font, int program) {
  try {
    return SoundFontFile(font).has(0, program);
  } catch (const SoundFontError&) {
    return false;
  }
}

}  // namespace

SoundFonts::Folders SoundFonts::Folders::ofMachine() {
  Folders folders;
  folders.user = {userDataFolder("")};
  const char* named = std::getenv("XDG_DATA_DIRS");
  std::istringstream dirs(named && *named ? named : "/usr/local/share");
  for (std::string dir; std::getline(dirs, dir, ':');)
    if (fs::path(dir).is_absolute()) folders.system.emplace_back(dir);
  folders.system.emplace_back("/usr/share");
  return folders;
}

fs::path SoundFonts::find(const std::optional<fs::path>& chosen, int program) const {
  if (chosen) return SoundFontFile(*chosen).path();
  const std::vector<fs::path> known = candidates();
  const auto playable =
      std::ranges::find_if(known, [&](const fs::path& font) { return canPlay(font, program); });
  if (playable != known.end()) return *playable;
  throw SoundFontError(
      "SoundFont",
      phrase("Message",
             "none was found to play with; install one (apt install timgm6mb-soundfont) "
             "or choose a file"));
}

std::vector<fs::path> SoundFonts::candidates() const {
  std::vector<fs::path> fonts;
  for (const fs::path& data : m_folders.user) addFontsOf(data, fonts);
  for (const char* file : kDefaults)
    for (const fs::path& data : m_folders.system) fonts.push_back(data / file);
  for (const fs::path& data : m_folders.system) addFontsOf(data, fonts);
  return fonts;
}

}  // namespace korvel::platform
