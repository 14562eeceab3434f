// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/MonoTrack.h"

#include <utility>

#include "model/store/SessionServices.h"
#include "platform/media/MediaError.h"

namespace korvel {
namespace {

void tell(std::string_view problem) { SessionServices::current().addToLog(problem); }

}  // namespace

MonoTrack::MonoTrack(std::filesystem::path file) : m_file(std::move(file)) {}

void MonoTrack::startRecord(float) {
  m_reader.reset();
  const platform::MediaAsset asset(m_file);
  if (!asset.hasTrackList())
    tell("no asset tracks found");
  else if (const auto* sound = asset.firstSound())
    createReader(asset, *sound);
}

void MonoTrack::createReader(const platform::MediaAsset& asset, const platform::MediaTrack& sound) {
  try {
    m_reader.emplace(asset, sound);
    if (!m_reader->start()) tell("could not start reading asset");
  } catch (const platform::MediaError&) {
    tell("could not create asset reader");
  }
}

std::span<const float> MonoTrack::readSamples() {
  return m_reader ? m_reader->next() : std::span<const float>();
}

double MonoTrack::progress() const { return isReading() ? m_reader->progress() : 1; }

}  // namespace korvel
