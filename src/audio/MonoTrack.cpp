// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/MonoTrack.h"

#include <utility>

#include "model/store/SessionServices.h"
#include "platform/media/MediaError.h"

namespace korvel {
namespace {

using platform::phrase;

void tell(const platform::Phrase& problem) { SessionServices::current().addToLog(problem); }

}  // namespace

MonoTrack::MonoTrack(std::filesystem::path file) : m_file(std::move(file)) {}

void MonoTrack::startRecord(float) {
  m_reader.reset();
  m_stopped = false;
  m_progress = 0;
  const platform::MediaAsset asset(m_file);
  if (!asset.hasTrackList())
    tell(phrase("Log", "no asset tracks found"));
  else if (const auto* sound = asset.firstSound())
    createReader(asset, *sound);
  m_reading = m_reader && m_reader->isReading();
}

void MonoTrack::createReader(const platform::MediaAsset& asset, const platform::MediaTrack& sound) {
  try {
    m_reader.emplace(asset, sound);
    if (!m_reader->start()) tell(phrase("Log", "could not start reading asset"));
  } catch (const platform::MediaError&) {
    tell(phrase("Log", "could not create asset reader"));
  }
}

std::span<const float> MonoTrack::readSamples() {
  if (!isReading()) return {};
  const auto samples = m_reader->next();
  m_progress = m_reader->progress();
  m_reading = m_reader->isReading();
  return samples;
}

double MonoTrack::progress() const { return isReading() ? m_progress.load() : 1; }

}  // namespace korvel
