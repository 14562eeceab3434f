// SPDX-License-Identifier: GPL-3.0-or-later
#include "RandomSongs.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <random>
#include <span>
#include <string>

#include "export/SongJson.h"
#include "music/Ticks.h"
#include "support/songs/BeatSong.h"
#include "support/store/StandardStore.h"
#include "workflow/exporting/SongFiles.h"

namespace korvel::test {
namespace {

/// Writes a song in the words of `beatSong`.
class WordsOfSong {
 public:
  explicit WordsOfSong(unsigned seed) : m_random(seed) {
    m_words = "tempo=" + std::to_string(40 + below(180)) + " key=" + std::to_string(below(12));
    if (below(8) == 0) m_words += " swing=0.67";
    takeMetre();
    if (below(2)) addPickUp();
    for (int bars = 1 + below(16); bars > 0; --bars) {
      if (below(6) == 0) takeMetre();
      fill(ticksOfBar(m_metre[0], m_metre[1]));
    }
  }

  const std::string& words() const { return m_words; }
  /// Open strings as they may be: each within a fourth of the standard one, from low to high.
  OpenPitches tuning() {
    OpenPitches open{40, 45, 50, 55, 59, 64};
    for (int& pitch : open) pitch += below(3) ? 0 : below(5) - 3;
    return open;
  }

 private:
  int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
  template <class T>
  T oneOf(std::span<const T> all) {
    return all[static_cast<std::size_t>(below(static_cast<int>(all.size())))];
  }
  void say(const std::string& word) { m_words += ' ' + word; }

  void takeMetre() {
    constexpr std::array<int, 2> kMetres[] = {{4, 4}, {4, 4}, {3, 4}, {6, 8},  {2, 4},
                                              {5, 4}, {7, 8}, {9, 8}, {12, 8}, {2, 2}};
    m_metre = oneOf<std::array<int, 2>>(kMetres);
    say(std::to_string(m_metre[0]) + '/' + std::to_string(m_metre[1]));
  }

  void addPickUp() {
    const int sixteenth = ticksOfSixteenth(isCompound(m_metre[0], m_metre[1]));
    const int sixteenths = ticksOfBar(m_metre[0], m_metre[1]) / sixteenth;
    fill(sixteenth * (1 + below(sixteenths - 1)));
  }

  void fill(int ticks) {
    constexpr int kStraight[] = {3, 6, 6, 9, 12, 12, 18, 24};
    constexpr int kTriplets[] = {2, 4, 8};
    while (ticks > 0) {
      const int kind = below(8);
      const int wanted = kind == 0   ? 1 + below(24)
                         : kind == 1 ? oneOf<int>(kTriplets)
                                     : oneOf<int>(kStraight);
      const int length = std::min(wanted, ticks);
      const int times = kind == 1 && ticks >= 3 * length ? 3 : 1;
      for (int i = 0; i < times; ++i) addStep(length);
      ticks -= times * length;
    }
    say("|");
  }

  void addStep(int ticks) {
    const std::string length = 't' + std::to_string(ticks);
    const int kind = below(10);
    if (kind == 0) return say('r' + length);
    if (kind == 1 && m_isStruck) return say('~' + length);
    const std::string grip = newGrip();
    say(newName() + grip);
    m_isStruck = true;
    if (kind == 2) return say(length + "=t" + std::to_string(1 + below(40)));
    if (kind > 4) return say(length);
    const std::size_t string = grip.find_first_not_of('x');
    say(length + '_' + std::to_string(string) + 't' + std::to_string(1 + below(60)));
  }

  std::string newGrip() {
    std::string frets(6, 'x');
    for (int tones = 1 + below(3) * below(3); tones > 0; --tones)
      frets[static_cast<std::size_t>(below(6))] = "0123456789abcde"[below(15)];
    return frets;
  }

  std::string newName() {
    constexpr const char* kRoots[] = {"A", "Bb", "C", "C#", "D", "Eb", "F#", "G"};
    constexpr const char* kTypes[] = {"", "m", "7", "maj7", "m7b5", "sus4", "dim", "add9"};
    const int kind = below(8);
    if (kind == 0) return ":";
    return kind > 2 ? ""
                    : std::string(oneOf<const char*>(kRoots)) + oneOf<const char*>(kTypes) + ':';
  }

  std::mt19937 m_random;
  std::string m_words;
  std::array<int, 2> m_metre{4, 4};
  bool m_isStruck = false;
};

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
    for (const SongFormat format :
         {SongFormat::guitarPro5, SongFormat::guitarPro7, SongFormat::musicXml})
      write(folder / (name + std::string(extensionOf(format))), songFile(*song, format));
    write(folder / (std::string(name) + ".json"),
          "{\"song\": " + songAsJson(*song) + ", \"metric\": null}\n");
  }
}

}  // namespace korvel::test
