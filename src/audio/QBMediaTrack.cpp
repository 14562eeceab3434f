// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/QBMediaTrack.h"

#include <algorithm>
#include <stdexcept>

#include "model/store/QBTabMgr.h"
#include "model/store/SessionServices.h"
#include "platform/media/MediaError.h"

namespace korvel {
namespace {

using platform::phrase;

void log(const platform::Phrase& text) { SessionServices::current().addToLog(text); }

}  // namespace

QBMediaTrack::QBMediaTrack(const std::filesystem::path& file) {
  if (!file.empty()) m_url = file;
}

// The decoder always has data ready or is at its end, so there is nothing to sleep for in between.
void QBMediaTrack::startRecord(float) {
  if (!open()) return;
  while (pullBuffer()) {
  }
}

bool QBMediaTrack::open() {
  if (!m_url) return false;
  m_asset.emplace(*m_url);
  if (!m_asset->hasTrackList()) {
    log(phrase("Log", "no asset tracks found"));
    return false;
  }
  if (const platform::MediaTrack* sound = m_asset->firstSound()) {
    m_track = *sound;
    createReader();
  }
  return isReading();
}

void QBMediaTrack::createReader() {
  try {
    m_reader.emplace(*m_asset, *m_track);
    if (!m_reader->start()) log(phrase("Log", "could not start reading asset"));
  } catch (const platform::MediaError&) {
    log(phrase("Log", "could not create asset reader"));
  }
}

bool QBMediaTrack::pullBuffer() {
  if (!m_reader) return false;
  auto bytes = m_reader->next();
  if (bytes.empty()) return false;
  while (!bytes.empty()) {
    QBBlock& block = topBlock();
    const auto taken = std::min<std::size_t>(block.space(), bytes.size());
    block.addData(bytes.first(taken));
    bytes = bytes.subspan(taken);
  }
  return true;
}

QBBlock& QBMediaTrack::topBlock() {
  if (m_blocks.empty()) {
    addBlock();
  } else if (m_blocks.back()->isFilled()) {
    addBlock();
    ++m_nmbOfSamples;
  }
  return *m_blocks.back();
}

void QBMediaTrack::addBlock() {
  m_blocks.emplace_back(QBTabMgr::db().createBlock(nullptr));
  ++m_nmbOfBlocks;
}

platform::Ref<QBBlock> QBMediaTrack::readBlockFromSamples() {
  if (m_blocks.empty()) return nullptr;
  platform::Ref<QBBlock> block = std::move(m_blocks.front());
  m_blocks.pop_front();
  ++m_nmbOfProcessedBlocks;
  return block;
}

void QBMediaTrack::stopRecord() {
  if (m_reader) m_reader->cancel();
  m_reader.reset();
}

double QBMediaTrack::progress() const {
  if (isReading()) return m_reader->progress();
  if (m_nmbOfBlocks == 0) return 1;
  return static_cast<double>(m_nmbOfProcessedBlocks) / static_cast<double>(m_nmbOfBlocks);
}

int QBMediaTrack::workingStateInPercent() const {
  if (m_nmbOfBlocks == 0) throw std::domain_error("no block was read to take a share of");
  // Whole numbers are divided first on purpose: the displays show progress as 0 or 100.
  const auto whole = m_nmbOfProcessedBlocks / m_nmbOfBlocks;
  return static_cast<int>(static_cast<double>(whole) * 100.0);
}

}  // namespace korvel
