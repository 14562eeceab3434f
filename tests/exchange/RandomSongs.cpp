// SPDX-License-Identifier: GPL-3.0-or-later
#include "RandomSongs.h"

#include <cstdio>
#include <fstream>
#include <string>

#include "export/SongJson.h"
#include "support/songs/BeatSong.h"
#include "support/songs/WordsOfSong.h"
#include "support/store/StandardStore.h"
#include "workflow/exporting/SongFiles.h"

namespace korvel::test {
namespace {

void write(const std::filesystem::path& file, const std::string& bytes) {
  std::ofstream out(file, std::ios::binary);
  out.exceptions(std::ios::failbit | std::ios::badbit);
  out << bytes;
  out.close();
}

}  // namespace

void writeRandomSongs(const std::filesystem::path& folder, int count) {
  std::filesystem::create_directories(folder);
  const StandardStore store;
  for (int number = 0; number < count; ++number) {
    char name[16];
    std::snprintf(name, sizeof name, "%03d", number);
    WordsOfSong words(static_cast<unsigned>(number));
    const platform::Ref<QBSong> song = store.song(name);
    const OpenPitches open = words.tuning();
    std::string pitches;
    for (const int pitch : open) pitches += std::to_string(pitch) + ' ';
    song->setTuning(addTuning(pitches, open));
    beatSong(song, words.words());
    song->setCapo(words.capo());
    for (const SongFormat format :
         {SongFormat::guitarPro5, SongFormat::guitarPro7, SongFormat::musicXml})
      write(folder / (name + std::string(extensionOf(format))), songFile(*song, format));
    write(
        folder / (std::string(name) + ".json"),
        "{\"song\": " + songAsJson(*song) + ", \"capo\": " + std::to_string(words.capo()) + "}\n");
  }
}

}  // namespace korvel::test
