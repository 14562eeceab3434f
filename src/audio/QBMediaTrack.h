// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <optional>

#include "audio/QBSampleSource.h"
#include "platform/media/MediaAsset.h"
#include "platform/media/MediaReader.h"

namespace korvel {

/// The first sound track of a media file as blocks: interleaved 16-bit samples at the file's own
/// rate and channel count, neither mixed down nor resampled.
///
/// `startRecord` reads the whole file. A caller that must not be kept waiting calls `open` and then
/// `pullBuffer` until it answers false. What is wrong with a file becomes a line of the log, and
/// the source is at its end at once. Main thread only, as blocks are objects of the store.
class QBMediaTrack final : public QBSampleSource {
 public:
  /// An empty path makes a source without a file.
  explicit QBMediaTrack(const std::filesystem::path& file);

  bool isRecordable() const { return m_url.has_value(); }
  /// Returns when every block is read. The volume has no meaning for a file.
  void startRecord(float volume) override;
  /// Opens the file and starts its decoder; false when there is nothing to read.
  bool open();
  /// Reads about two blocks; false at the end.
  bool pullBuffer() override;
  /// Ends reading; blocks that were read stay.
  void stopRecord() override;

  /// Whether no blocks are left, which says nothing about the file while `isReading`.
  bool eof() const override { return m_blocks.empty(); }
  /// Whether the decoder has not reached the end of the track yet.
  bool isReading() const override { return m_reader && m_reader->isReading(); }
  /// The next block, at the front; the caller deletes it from the store after use. None when empty.
  platform::Ref<QBBlock> readBlockFromSamples() override;
  /// The block that takes the next bytes: the last one, or a new one behind it when it is full.
  QBBlock& topBlock();
  /// 0 until the last block is handed out, then 100. Throws std::domain_error before any was read.
  int workingStateInPercent() const override;
  /// The share of the file while it is being read, and of its blocks afterwards.
  double progress() const override;

  std::int64_t nmbOfBlocks() const { return m_nmbOfBlocks; }
  std::int64_t nmbOfProcessedBlocks() const { return m_nmbOfProcessedBlocks; }
  /// How often a full block was followed by a new one.
  std::int64_t nmbOfSamples() const { return m_nmbOfSamples; }

 private:
  void createReader();
  void addBlock();

  std::optional<std::filesystem::path> m_url;
  std::optional<platform::MediaAsset> m_asset;
  std::optional<platform::MediaTrack> m_track;
  std::optional<platform::MediaReader> m_reader;
  std::deque<platform::Ref<QBBlock>> m_blocks;
  std::int64_t m_nmbOfBlocks = 0;
  std::int64_t m_nmbOfProcessedBlocks = 0;
  std::int64_t m_nmbOfSamples = 0;
};

}  // namespace korvel
