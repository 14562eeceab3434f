// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "platform/sound/QueueBuffer.h"

namespace korvel {

/// A store of sound bytes, 1.3 s of two channels at 44100 Hz, that fills up once. Every operation
/// but `Reset` takes the lock, waiting for it.
class QBAudioMem {
 public:
  static constexpr std::int32_t kBytes = 0x38000;

  QBAudioMem() : mData(kBytes + 1) {}
  QBAudioMem(const QBAudioMem&) = delete;
  QBAudioMem& operator=(const QBAudioMem&) = delete;
  virtual ~QBAudioMem() = default;

  /// Appends the buffer's bytes as far as they fit.
  virtual void Push(const platform::QueueBuffer& buffer);
  /// The sample at the read position, which moves on by two bytes; none past the written bytes.
  std::optional<std::int16_t> nextSample();
  /// Back to the start. Does not take the lock: nobody else may be at work.
  virtual void Reset();

  /// Takes the lock and answers whether it did: always, here.
  virtual bool Ptry();
  void V();

 protected:
  /// Writes the bytes from a position on; they must fit.
  void write(std::span<const std::byte> bytes, std::int32_t position);

  // One byte more than is ever written, so that a sample at an odd last position can be read.
  std::vector<std::byte> mData;
  std::int32_t mPos = 0;     ///< Position of the next byte to read.
  std::int32_t mEndPos = 0;  ///< Position of the next byte to write.

 private:
  std::mutex mLock;
};

}  // namespace korvel
