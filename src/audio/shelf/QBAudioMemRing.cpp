// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/shelf/QBAudioMemRing.h"

#include <algorithm>
#include <cmath>

namespace korvel {
namespace {

constexpr float kBytesPerSecond = 44100.0F;

/// The position in the ring, however far outside it lies.
std::int32_t wrapped(std::int64_t position) {
  const auto rest = static_cast<std::int32_t>(position % QBAudioMem::kBytes);
  return rest < 0 ? rest + QBAudioMem::kBytes : rest;
}

/// Bytes from a position to the ring's end, but no more than wanted.
std::size_t untilEnd(std::int32_t position, std::size_t wanted) {
  return std::min(wanted, static_cast<std::size_t>(QBAudioMem::kBytes - position));
}

void silence(platform::QueueBuffer& buffer) {
  std::ranges::fill(buffer.data, std::byte{0});
  buffer.dataByteSize = QBAudioMemRing::kDefaultFill;
}

}  // namespace

void QBAudioMemRing::Push(const platform::QueueBuffer& buffer) {
  if (!Ptry()) return;
  auto sound = buffer.sound();
  if (mEndPos + static_cast<std::int64_t>(sound.size()) >= kBytes) mFirstRun = false;
  while (!sound.empty()) {
    const auto piece = sound.first(untilEnd(mEndPos, sound.size()));
    write(piece, mEndPos);
    mEndPos = wrapped(mEndPos + static_cast<std::int64_t>(piece.size()));
    sound = sound.subspan(piece.size());
  }
  V();
}

void QBAudioMemRing::Fill(platform::QueueBuffer& buffer) {
  if (!Ptry()) {
    silence(buffer);
    return;
  }
  if (buffer.dataByteSize == 0) buffer.dataByteSize = kDefaultFill;
  buffer.packetDescriptionCount = 0;
  mPos = readPosition(buffer.dataByteSize);
  auto out = buffer.data.first(buffer.sound().size());
  while (!out.empty()) {
    const auto piece = out.first(untilEnd(mPos, out.size()));
    std::copy_n(mData.begin() + mPos, piece.size(), piece.begin());
    mPos = wrapped(mPos + static_cast<std::int64_t>(piece.size()));
    out = out.subspan(piece.size());
  }
  V();
}

std::int32_t QBAudioMemRing::readPosition(std::uint32_t size) const {
  if (mDelay == 0.0F) return wrapped(static_cast<std::int64_t>(mEndPos) - size);
  if (mFirstRun) return wrapped(mPos);
  const float position = std::trunc(mDelay * -kBytesPerSecond + static_cast<float>(mEndPos));
  if (!std::isfinite(position)) return mPos;
  return wrapped(static_cast<std::int64_t>(std::fmod(position, static_cast<float>(kBytes))));
}

void QBAudioMemRing::SetDelay(float seconds) {
  if (!Ptry()) return;
  mDelay = seconds;
  V();
}

void QBAudioMemRing::Reset() {
  QBAudioMem::Reset();
  mFirstRun = true;
}

}  // namespace korvel
