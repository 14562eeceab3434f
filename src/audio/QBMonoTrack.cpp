// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/QBMonoTrack.h"

#include <utility>

#include "model/SessionServices.h"
#include "platform/MediaError.h"

namespace korvel {
namespace {

void log(std::string_view text) { SessionServices::current().addToLog(text); }

}  // namespace

QBMonoTrack::QBMonoTrack(std::filesystem::path file) : m_file(std::move(file)) {}

void QBMonoTrack::startRecord(float) {
  m_reader.reset();
  const platform::MediaAsset asset(m_file);
  if (!asset.hasTrackList())
    log("no asset tracks found");
  else if (const auto* sound = asset.firstSound())
    createReader(asset, *sound);
}

void QBMonoTrack::createReader(const platform::MediaAsset& asset,
                               const platform::MediaTrack& sound) {
  try {
    m_reader.emplace(asset, sound);
    if (!m_reader->start()) log("could not start reading asset");
  } catch (const platform::MediaError&) {
    log("could not create asset reader");
  }
}

std::span<const float> QBMonoTrack::readSamples() {
  return m_reader ? m_reader->next() : std::span<const float>();
}

double QBMonoTrack::progress() const { return isReading() ? m_reader->progress() : 1; }

}  // namespace korvel
