// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "analysis/picture/StretchReader.h"
#include "analysis/picture/TileMaker.h"
#include "analysis/picture/TileShelf.h"
#include "platform/loop/Workers.h"
#include "platform/media/ContentHash.h"

namespace korvel {

/// What a recording looks like: the detection's spectrogram and the wave, at any level of detail.
/// Tiles are made on a thread of its own, as they are asked for, and kept as long as there is room.
/// All but the callback is for the thread of its owner.
class SoundPicture {
 public:
  struct File {
    std::filesystem::path path;
    double seconds = 0;
    double tuningOffset = 0;  ///< In cents above 440 Hz.
    std::int64_t size = -1;   ///< In bytes; none when it is not known.
    std::string hash{};       ///< Likewise, when empty.
    /// A copy of its sound, which is read where the file is missing or another one; may be none.
    std::filesystem::path copy{};
  };

  /// Why there is no picture.
  enum class Trouble : std::uint8_t { none, missing, changed, unreadable };

  /// Columns [first, end) of a level, which may lie outside of the recording.
  struct Stretch {
    int level;
    std::int64_t first;
    std::int64_t end;
  };

  /// What is there of a stretch: for each column its shades and its peak, of a coarser or a finer
  /// level where the right one is missing, or nulls.
  struct Columns {
    std::vector<const std::uint8_t*> shades{};
    std::vector<const SoundTile::Peak*> peaks{};
    std::vector<TileShelf::Tile> tiles{};  ///< Which these are of.
  };

  static constexpr std::size_t kMostBytes = std::size_t{48} << 20U;

  /// changed: called on the thread of the tiles when there is more to be seen, or trouble.
  SoundPicture(File file, std::function<void()> changed, std::size_t mostBytes = kMostBytes);
  ~SoundPicture();

  /// The level on which the whole recording is one tile.
  int topLevel() const { return m_topLevel; }
  std::int64_t columns(int level) const;

  /// What is shown, in the order in which it is to be made: in the place of what was wanted before.
  void want(const std::vector<Stretch>& stretches);
  Columns look(const Stretch& stretch);
  /// The samples from `first` on; empty as long as not all of them are there.
  std::vector<std::int16_t> samples(std::int64_t first, std::int64_t end);

  Trouble trouble() const;
  /// The shade that the loudest partials of most loud columns seen so far reach, and the furthest
  /// that a sample lies from 0; they settle as more is seen.
  int loudShade() const;
  int loudestSample() const;
  std::size_t bytes() const;

 private:
  using Place = SoundTile::Place;
  using Tile = TileShelf::Tile;

  // On the thread of the tiles: SoundPictureWork.cpp.
  void work(const std::stop_token& stop);
  bool workOn(const std::stop_token& stop);
  bool rest();
  bool checkFile();
  bool checkContentOn();
  void leaveFile(Trouble trouble);
  bool isWanted(const Place& place) const;
  /// Null for what is not wanted any more. root: the wanted tile that it is needed for.
  Tile make(const Place& place, const Place& root, const std::stop_token& stop);
  Tile makeOfSound(const Place& place, const Place& root, const std::stop_token& stop);
  Tile makeOfTwo(const Place& place, const Place& root, const std::stop_token& stop);
  void put(const Place& place, const Tile& tile);
  void give(Trouble trouble);

  /// Under the lock.
  Tile nearest(int level, std::int64_t column, int& foundLevel);

  const File m_file;
  const std::function<void()> m_changed;
  std::int64_t m_frames;
  int m_topLevel = 0;

  // Of the thread of the tiles.
  StretchReader m_reader;
  TileMaker m_maker;
  std::vector<float> m_samples;
  std::optional<platform::ContentHash> m_content{};  ///< As far as it is checked.
  bool m_contentChecked = false;
  bool m_readsCopy = false;

  mutable std::mutex m_lock;  ///< Guards what follows.
  TileShelf m_shelf;
  std::vector<Place> m_wanted;  ///< And missing; the first one is being made.
  bool m_working = false;
  Trouble m_trouble = Trouble::none;
  std::array<std::int64_t, 256>
      m_loudest{};  ///< How many columns have that as their loudest shade.
  int m_loudestSample = 0;

  platform::Workers m_workers{1};  ///< Ends first.
};

}  // namespace korvel
